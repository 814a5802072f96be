// SPDX-License-Identifier: MIT
//
// Documents and the stores that an application is bound to: what an export holds, how a document differs from the stores,
// and its import.
#pragma once

#include <Host/ToolApplication.h>
#include <Inspection/ExportDocument.h>
#include <Inspection/RowDifference.h>

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Inspection {

/// Called before a store is read or changed, so that a user sees which one takes long. May be empty.
using StoreBegins = std::function<void(Catalogue::Store)>;

/// Which values an export or a comparison is about.
struct Selection {
    std::vector<std::string> classes; ///< The words for their classes; empty for all values, those of unknown keys too.
    /// Export: keeps the values of roaming and transient preferences, and of local ones that are a bool or an int; redacts
    /// all others, and leaves out unknown keys, as a key may name the user or the user's work.
    bool redact = false;
};

/// A stored row that no document can hold.
struct Uncarried {
    Catalogue::Store store;
    std::string key;
    std::string kind; ///< The stored word.
    bool isReadable;  ///< False for a value that this version cannot read; true for a key with a NUL.
};

/// What keeps the row out, as the begin of a sentence: "'key' in the product store holds ..."; no value.
std::string inWords(Uncarried const& row);

struct Export {
    Document document;
    std::vector<Uncarried> uncarried;
    std::vector<std::pair<Catalogue::Store, std::size_t>> unknown; ///< How many unknown keys a redaction left out, where any.
};

/// The selected values of both stores, as of now. Throws `Storage::StorageError`.
Export exported(Host::ToolApplication const& application, Selection const& selection, StoreBegins const& begins = {});

/// A key whose row in a store differs from the document.
struct Difference {
    Catalogue::Store store;
    RowDifference row; ///< From the store to the document.
};

struct Comparison {
    std::size_t same = 0;             ///< Entries that a store holds with the same value.
    std::size_t redacted = 0;         ///< Entries that are not compared.
    std::vector<Uncarried> uncarried; ///< Rows that are not compared.
};

/// Takes the differences, by store and sorted by key. One takes many times the memory of its entry.
using TakeDifference = std::function<void(Difference)>;

/// Compares the selected values of both stores with `document`, which a caller that needs it no longer moves here: its
/// entries go while the differences come. Throws `Storage::StorageError`.
Comparison compared(Host::Application const& application, Selection const& selection, Document document, TakeDifference const& take,
                    StoreBegins const& begins = {});

/// A value that an import stores.
struct NewValue {
    Catalogue::Store store;
    std::string key;
    Storage::SqliteStorage::Value value;
};

/// What a store holds after an import.
enum class Outcome {
    imported,   ///< The values of the document.
    unchanged,  ///< What it held before.
    unreadable, ///< Unknown: it could not be read after a failure.
};

struct Imported {
    std::optional<Storage::StorageError> error; ///< Why the import failed; nullopt for a success.
    /// For each store with a new value; empty where an obstacle was found before any store was changed.
    std::vector<std::pair<Catalogue::Store, Outcome>> outcomes;
};

/// Stores the values, which are sorted by store, in one transaction for each store; creates a missing store only if no
/// other takes no change.
Imported imported(Host::Application const& application, std::deque<NewValue> values, StoreBegins const& begins = {});

} // namespace Inspection
