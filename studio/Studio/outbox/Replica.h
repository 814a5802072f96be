// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/Snapshot.h>

#include <SQLiteCpp/Database.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Studio {

/// A key as a layer of the server has it.
struct SharedRow {
    std::string store;
    std::string key;
    std::optional<StoredValue> value; ///< nullopt where the key was removed.
    bool locked = false;
    std::string changedBy;
    std::int64_t changedAt = 0; ///< As the server counts: microseconds since 2000-01-01 00:00 UTC.
};

/// What came into a layer after one revision, up to another.
struct LayerNews {
    std::int64_t since = 0; ///< 0: all that the layer has.
    std::int64_t revision = 0;
    std::vector<SharedRow> rows;
};

/// What came into both layers, in the history that `epoch` names.
struct News {
    std::string epoch;               ///< Empty where no server was ever reached.
    std::array<LayerNews, 2> layers; ///< In the order of `Snapshot::Layer`.
    std::int64_t asOf = 0;           ///< Milliseconds since 1970-01-01 00:00 UTC, by this workstation's clock.
};

/// All that the file of an outbox knows of the server.
News readReplica(SQLite::Database& database);

/// Adds `news` to it, each layer by itself, where it joins what is known. It does not where another program has kept the same or
/// more, and where something lies between: the layer stays as of its revision then, and the next start asks for what came after
/// that. Of another history only all of both layers is taken, in place of what is known. To be called in a transaction.
void keepNews(SQLite::Database& database, News const& news);

/// Notes that the workstation's own value of a key was offered to the server. False where it was before. To be called in a transaction.
bool markOffered(SQLite::Database& database, std::string const& store, std::string const& key);

/// Takes the operation `sequence` of the outbox, which the server stored at `revision`, over into the user's layer, unless that
/// is known up to there. To be called in a transaction.
void keepStored(SQLite::Database& database, std::int64_t sequence, std::string const& epoch, std::int64_t revision);

} // namespace Studio
