// SPDX-License-Identifier: MIT
#pragma once

#include <storage/support/StoreFolder.h>

#include <filesystem>
#include <string>

/// The bytes of a store's file that tell its commits apart: change counter, size, and list of free pages.
inline std::string markOf(std::filesystem::path const& file) { return StoreFolder::content(file).substr(24, 16); }
