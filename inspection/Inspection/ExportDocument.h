// SPDX-License-Identifier: MIT
//
// The document in which stored values travel: JSON with a line for each value, sorted by key, so that people can read and
// compare it. From bytes to checked values and back, without stores.
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
#include <Storage/Kind.h>
#include <Storage/SqliteStorage.h>

#include <nlohmann/json_fwd.hpp>

#include <deque>
#include <stdexcept>
#include <string>
#include <vector>

namespace Inspection {

/// A stored value in a document.
struct Entry {
    Catalogue::Store store = Catalogue::Store::product;
    Storage::Kind kind = Storage::Kind::boolean;
    std::string key;                     ///< The key's own bytes.
    Storage::SqliteStorage::Value value; ///< Of that kind; `std::monostate` for a redacted value.

    bool isRedacted() const { return std::holds_alternative<std::monostate>(value); }
};

struct Document {
    std::string made;          ///< A time in UTC.
    std::string product;       ///< The name of the product that the stores belong to.
    std::deque<Entry> entries; ///< Sorted by store and by the bytes of their keys.
};

/// The steps to a place in a document, such as "stores", "product", "exportPath", "value"; empty for the whole document.
using Place = std::vector<std::string>;

/// A fault in a document. `what()` joins the parts with the names as they are: a name may be long or hold control characters.
class DocumentError : public std::runtime_error {
public:
    /// A fault of the value at `place`.
    DocumentError(Place const& place, std::string const& fault, std::string const& remedy);
    /// A fault of the text at a line and a column, both counted from 1.
    DocumentError(std::size_t line, std::size_t column, std::string const& fault, std::string const& remedy);

    Place const& place() const noexcept { return m_place; }
    std::size_t line() const noexcept { return m_line; }     ///< 0 for a fault with a place.
    std::size_t column() const noexcept { return m_column; } ///< In bytes; 0 for a fault with a place.
    /// What is wrong, in one line of UTF-8 of modest length without control characters; continues the place to a sentence.
    std::string const& fault() const noexcept { return m_fault; }
    /// What the user can do, likewise.
    std::string const& remedy() const noexcept { return m_remedy; }

private:
    Place m_place;
    std::size_t m_line = 0;
    std::size_t m_column = 0;
    std::string m_fault;
    std::string m_remedy;
};

/// A `DocumentError` about a key that the library never asks for.
class UnknownKeyError final : public DocumentError {
public:
    using DocumentError::DocumentError;
};

/// The bytes of a document, whose entries must be sorted.
std::string written(Document const& document);

/// The checked document in `bytes`. Throws `DocumentError`.
Document readDocument(std::string const& bytes);

/// Checks that the library reads each entry from its store and as its kind; `withUnknown` accepts the keys that the
/// library never asks for. Throws `DocumentError`.
void checkKeys(Document const& document, bool withUnknown);

/// The name of a key in a document, which is UTF-8 for every key.
std::string nameOf(std::string const& key);
/// A stored value in a document: the fields "kind", "value" and, for a string that is not UTF-8, "encoding".
nlohmann::ordered_json fieldsOf(std::string const& kind, Storage::SqliteStorage::Value const& value);

} // namespace Inspection
