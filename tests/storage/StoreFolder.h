// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include <sys/stat.h>

/// A folder for stores, and what a test does to their files from outside.
class StoreFolder : public testing::Test {
protected:
    std::filesystem::path path(char const* name = "store.sqlite") const { return m_home.path() / name; }

    static std::string content(std::filesystem::path const& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static void overwrite(std::filesystem::path const& file, std::string const& content)
    {
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream << content;
        stream.close();
        if (!stream)
            throw std::runtime_error("cannot write " + file.string());
    }

    static unsigned mode(std::filesystem::path const& file)
    {
        struct stat status = {};
        if (::stat(file.c_str(), &status) != 0)
            throw std::runtime_error("cannot stat " + file.string());
        return status.st_mode & 07777;
    }

    TestKit::TemporaryHome m_home;
};

/// The file as another program that uses SQLite sees it.
class OtherProgram {
public:
    explicit OtherProgram(std::filesystem::path const& file) { check(sqlite3_open(file.c_str(), &m_database)); }
    ~OtherProgram() { sqlite3_close(m_database); }
    OtherProgram(OtherProgram const&) = delete;
    OtherProgram& operator=(OtherProgram const&) = delete;

    void execute(char const* sql) { check(sqlite3_exec(m_database, sql, nullptr, nullptr, nullptr)); }

    /// The first column of the first row.
    std::string ask(char const* sql)
    {
        std::string answer;
        auto const take = [](void* result, int, char** values, char**) {
            *static_cast<std::string*>(result) = values[0] ? values[0] : "null";
            return 0;
        };
        check(sqlite3_exec(m_database, sql, take, &answer, nullptr));
        return answer;
    }

private:
    void check(int code)
    {
        if (code != SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(m_database));
    }

    sqlite3* m_database = nullptr;
};
