// SPDX-License-Identifier: MIT
//
// Rows of a store of any kind, and the differences between two of its states, as text and as JSON.
#pragma once

#include <Storage/StoreWatcher.h>

#include <QStringList>

#include <nlohmann/json_fwd.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <vector>

namespace Inspection {

/// The value as JSON: bytes as a base64 text; null for an unreadable value.
nlohmann::ordered_json storedJson(Storage::SqliteStorage::Value const& value);
/// Kind and value as JSON; null for nullopt.
nlohmann::ordered_json storedJson(std::optional<Storage::SqliteStorage::Row> const& row);
/// The value as text of any bytes: bytes in base64, "(unreadable)" for an unreadable value.
std::string storedText(Storage::SqliteStorage::Value const& value);
/// The stored value on one line, as `onOneLine` of a value shows it; `absent` for nullopt.
std::string onOneLine(std::optional<Storage::SqliteStorage::Row> const& row, std::string const& absent);
/// The list in a row of a known key, unless its elements alone would hide a difference from the stored text; else nullopt.
std::optional<QStringList> storedList(Storage::SqliteStorage::Row const& row);
/// The time as "2026-11-20 17:40:53", where the user is.
std::string inLocalTime(std::chrono::system_clock::time_point time);
/// The time as "2026-11-20T16:40:53.344Z".
std::string inUtc(std::chrono::system_clock::time_point time);

using Storage::RowDifference;
using Storage::rowDifference;
using Storage::rowDifferences;
using Change = RowDifference::Change;

/// The machine word: "added", "removed" or "changed".
char const* changeName(Change change);

} // namespace Inspection
