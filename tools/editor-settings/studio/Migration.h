// SPDX-License-Identifier: MIT
//
// What the verb `studio` does with the server. It stands in a module of its own, which that verb loads: libpq brings some twenty
// libraries with it, and every other verb would take twice the time with them.
#pragma once

#include <string>
#include <vector>

/// What became of a migration.
struct Migration {
    std::string server;               ///< Where it was, as "db.example:5432".
    std::string answer;               ///< What was done, or would be.
    std::vector<std::string> reasons; ///< Why nothing was done; empty where something was.
};

/// Makes or updates the schema behind `connection`; with `isDryRun` only tells what would be done. Throws `Studio::ServerError`.
extern "C" void migrateStudio(Migration& result, std::string const& connection, bool isDryRun);
