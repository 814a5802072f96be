// SPDX-License-Identifier: MIT
//
// What the verb `studio` does with the server. A build without libpq has the same verbs, help and manual, and says why it cannot.
#pragma once

#include <string>

/// Makes or updates the schema behind `connection`, and prints what was done; with `isDryRun` what would be. False, with the reasons
/// on standard error, where something is in the way. Throws `Studio::ServerError`, and `UserError` in a build without libpq.
bool migrateStudio(std::string const& connection, bool isDryRun);
