// SPDX-License-Identifier: MIT
//
// Rows as the stores hold them, of whichever kind.
#pragma once

#include <Storage/SqliteStorage.h>

#include <nlohmann/json.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

/// The value as JSON: bytes as a base64 text; null where it cannot be read.
nlohmann::ordered_json storedJson(Storage::SqliteStorage::Value const& value);
/// Kind and value as JSON; null where there is no row.
nlohmann::ordered_json storedJson(std::optional<Storage::SqliteStorage::Row> const& row);
/// The value as text: bytes in base64, "(unreadable)" where it cannot be read.
std::string storedText(Storage::SqliteStorage::Value const& value);
/// The time as "2026-11-20T16:40:53.344Z".
std::string inUtc(std::chrono::system_clock::time_point time);

/// What differs between two looks at a store.
struct RowDifference {
    std::string key;
    std::optional<Storage::SqliteStorage::Row> before; ///< None where the key was absent.
    std::optional<Storage::SqliteStorage::Row> after;  ///< None where it is.
};

/// What happened to the keys between `before` and `after`, both sorted by key. A value that was set to what it was is no
/// change; one that cannot be read is one when it was set again.
std::vector<RowDifference> rowDifferences(std::vector<Storage::SqliteStorage::Row> const& before,
                                          std::vector<Storage::SqliteStorage::Row> const& after);
/// What `row` holds, on one line, with `absent` where there is none.
std::string shown(std::optional<Storage::SqliteStorage::Row> const& row, std::string const& absent);
