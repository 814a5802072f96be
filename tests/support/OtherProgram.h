// SPDX-License-Identifier: MIT
#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <stdexcept>
#include <string>

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
