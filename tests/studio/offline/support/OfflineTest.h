// SPDX-License-Identifier: MIT
#pragma once

#include <TestKit/TemporaryHome.h>

#include <studio/session/support/SessionTest.h>

#include <support/OtherProgram.h>

#include <filesystem>
#include <string>

/// Options of a program that keeps changes in `folder`. It waits for the answer of a server that it can reach, however long that takes.
inline Studio::Session::Options keeping(std::string const& connection, std::filesystem::path const& folder)
{
    Studio::Session::Options options = quiet(connection);
    options.worksOffline = true;
    options.folder = folder;
    options.startWait = options.writeWait = std::chrono::seconds(60);
    return options;
}

/// A test with a laptop, whose programs keep their changes, and other workstations, whose programs keep none.
class OfflineTest : public SessionTest {
protected:
    std::filesystem::path folder() const { return m_home.path() / "outbox"; }
    Studio::Session::Options laptop() const { return keeping(connectionOf("alice"), folder()); }

    /// The one outbox in the folder.
    std::filesystem::path outbox() const
    {
        for (auto const& entry : std::filesystem::directory_iterator(folder()))
            if (entry.path().extension() == ".sqlite")
                return entry.path();
        throw std::runtime_error("there is no outbox");
    }
    /// The same as another program sees it.
    std::string inOutbox(char const* sql) const { return OtherProgram(outbox()).ask(sql); }

    /// How many changes of alice's the server has stored.
    std::string stored() const { return ask("SELECT revision FROM settings.layer WHERE name = 'alice'"); }

    /// What of alice's lost a conflict, such as "number=1 other=2".
    std::string losers() const
    {
        return login("alice")
            .ask("SELECT coalesce(string_agg(encode(key, 'escape') || '=' || encode(value, 'escape'), ' '), '') "
                 "FROM settings.superseded_v1(false)")
            .text();
    }

    TestKit::TemporaryHome m_home;
};
