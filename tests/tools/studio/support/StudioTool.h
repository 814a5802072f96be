// SPDX-License-Identifier: MIT
#pragma once

#include <tools/commands/Tool.h>

#include <studio/support/ServerTest.h>

#include <optional>
#include <string>
#include <vector>

/// The program, with a server on which nothing is set up yet.
class StudioTool : public Tool {
protected:
    void SetUp() override
    {
        ServerEnvironment::forgetEnvironment();
        if (!Cluster::obstacle().empty()) {
            if (std::getenv("CI"))
                FAIL() << Cluster::obstacle();
            GTEST_SKIP() << Cluster::obstacle();
        }
        m_server.emplace();
    }

    std::string connection(std::string const& role = "postgres") const { return m_server->connection(role, "studio"); }
    // The product file of a product that shares settings on the server `studio`.
    std::string product(std::string const& studio, std::string const& name = "product.json", std::string const& ownKeys = "[]") const
    {
        return m_home
            .write(name, R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
                                      "projectFileExtensions": [], "resourcesRoot": "r", "studio": ")" +
                             studio + R"(", "ownKeys": )" + ownKeys + "}")
            .string();
    }
    // What follows the server's name on a line.
    static std::string told(std::string const& line, std::string const& marker)
    {
        std::size_t const begin = line.find(marker);
        return begin == std::string::npos ? line : line.substr(begin);
    }
    // The words of `line` with the files of a user and the server behind them.
    std::vector<std::string> as(std::string const& user, std::vector<std::string> words) const
    {
        words.insert(words.end(), {"--product", m_products.at(user), "--home", inHome(user.c_str())});
        return words;
    }

    std::optional<Cluster> m_server;
    std::map<std::string, std::string> m_products;
};

/// The same with a schema, the users alice and bob and the administrator ada, each with stores of the own.
class SharedStudio : public StudioTool {
protected:
    void SetUp() override
    {
        StudioTool::SetUp();
        if (!m_server)
            return;
        said({"studio", "migrate", connection()});
        m_server->ask("CREATE ROLE alice LOGIN IN ROLE settings_user; CREATE ROLE bob LOGIN IN ROLE settings_user; "
                      "CREATE ROLE ada LOGIN IN ROLE settings_admin");
        for (char const* const user : {"alice", "bob", "ada"})
            m_products[user] = product(connection(user), std::string(user) + ".json", ownKeys);
    }

    // What the server has for a key, in the layer of a user or, with "", of the studio; kind, value and whether it is locked.
    std::string atServer(std::string const& user, std::string const& key) const
    {
        return m_server->ask("SELECT concat_ws(' ', v.store, v.kind, encode(v.value, 'escape'), CASE WHEN v.locked THEN 'locked' END) "
                             "FROM settings.value v JOIN settings.layer l ON l.id = v.layer WHERE l.name = '" +
                                 user + "' AND v.kind IS NOT NULL AND v.key = '" + key + "'::bytea",
                             "studio");
    }

    static constexpr char const* ownKeys =
        R"([{"key": "grid", "kind": "rational", "store": "product", "class": "roaming", "purpose": "the grid"}])";
};
