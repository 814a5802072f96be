// SPDX-License-Identifier: MIT
//
// The verb `doctor`.
#pragma once

#include "terminal/Table.h"

#include <filesystem>
#include <optional>

/// Prints the findings about the home folder, the product file, both stores and the folders that the editor writes to.
/// Changes nothing, except that SQLite undoes an interrupted change. Returns whether there are only notes.
bool examineAll(std::filesystem::path const& productFile, std::optional<std::filesystem::path> const& storeFolder, Format format);
