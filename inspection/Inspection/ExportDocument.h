// SPDX-License-Identifier: MIT
//
// The document in which stored values travel: JSON with a line for each value, sorted by key, so that people can read and
// compare it. From bytes to checked values and back; without stores and without terminal.
//
//   {
//     "format": "editor-settings export",
//     "version": 1,
//     "made": "2026-11-20T16:40:53.344Z",
//     "product": "Lumora Video Editor",
//     "stores": {
//       "product": {
//         "exportPath": {"kind": "string", "class": "local", "value": "/films"},
//         "mainWindowState": {"kind": "bytes", "class": "local", "value": "AP8="},
//         "npsEmailToSend": {"kind": "string", "class": "personal", "redacted": true}
//       },
//       "common": {}
//     }
//   }
//
// Bytes stand in base64. So does a text that JSON cannot hold, with "encoding": "base64" before it. In a key a byte that
// is not UTF-8 stands as `\xHH`, and a backslash is doubled. "made", "product" and "class" are for readers only.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Storage/SqliteStorage.h>

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>
#include <vector>

namespace Transfer {

/// A stored value in a document.
struct Entry {
    Catalogue::Store store = Catalogue::Store::product;
    std::string key;
    std::string kind;                    ///< "bool", "int", "string" or "bytes".
    std::string dataClass;               ///< The word for its class; empty where that is unknown.
    Storage::SqliteStorage::Value value; ///< Of that kind; `std::monostate` where it was redacted.
};

struct Document {
    std::string made;           ///< A time in UTC.
    std::string product;        ///< The name of the product whose stores these are.
    std::vector<Entry> entries; ///< Sorted by store and by the bytes of their keys.
};

/// What is wrong with a document. The text says where, what, and what to do, on one line of UTF-8 of modest length: where
/// is a line and a column, or the names that lead to a place, such as "stores.product.exportPath.value".
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The bytes of a document whose entries are sorted.
std::string written(Document const& document);

/// The document in `bytes`, checked whole. Throws `Error`.
Document read(std::string const& bytes);

/// Checks that the library can read each entry where it stands, and as what it is. With `withUnknown` keys pass that the
/// library never asks for. Throws `Error`.
void checkKeys(Document const& document, bool withUnknown);

/// The place of an entry or of its field `field`, for an `Error`.
std::string placeOf(Entry const& entry, char const* field = nullptr);

/// A key as a document has it: UTF-8, whatever the key.
std::string nameOf(std::string const& key);
/// A stored value of a kind as a document has it: the fields "kind", "value" and, where needed, "encoding".
nlohmann::ordered_json fieldsOf(std::string const& kind, Storage::SqliteStorage::Value const& value);

} // namespace Transfer
