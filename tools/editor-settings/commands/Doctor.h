// SPDX-License-Identifier: MIT
//
// The verb that looks for what is wrong.
#pragma once

#include "terminal/Table.h"

#include <filesystem>
#include <optional>

/// Looks at the product file, at both stores and at the folders that the editor writes to, and prints what it finds. Makes
/// nothing and changes nothing, but that a change which somebody's death cut off is undone, as by all who open the store.
/// Whether all is well.
bool examineAll(std::filesystem::path const& productFile, std::optional<std::filesystem::path> const& storeFolder, Format format);
