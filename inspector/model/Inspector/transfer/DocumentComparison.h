// SPDX-License-Identifier: MIT
//
// How a document that `editor-settings export` wrote differs from the stores, as values that never change.
#pragma once

#include <Inspector/Snapshot.h>

#include <Inspection/DocumentTransfer.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace Inspector {

/// Rows that were changed together: each with the row before and the row after.
using Step = std::vector<Inspection::Difference>;

/// A value of a document that a store does not hold. Its texts hold no personal value.
struct DocumentLine : Item {
    /// The columns of `cells`.
    enum Column { keyColumn, storeColumn, storedColumn, fileColumn, classColumn };

    std::string key;                                  ///< Of any bytes.
    Catalogue::Store store;                           ///< Where its row lies.
    std::optional<Storage::SqliteStorage::Row> there; ///< As of the comparison; nullopt where the key is absent.
    Storage::SqliteStorage::Row wanted;               ///< Without a value where it is redacted.
    std::string dataClass;                            ///< The word; empty for a key that the editor does not know.
    bool isRedacted = false;                          ///< Then it cannot be taken.

    /// Whether it is taken unless somebody decides otherwise.
    bool isTakenAtFirst() const { return !isRedacted && !dataClass.empty(); }
};

/// What a document holds beside what the stores hold.
struct DocumentComparison {
    std::filesystem::path file;                   ///< Absolute.
    std::string made;                             ///< A time in UTC, by the document.
    std::string product;                          ///< The product's name, by the document.
    Lines<DocumentLine> lines;                    ///< What differs, and what is redacted.
    std::size_t same = 0;                         ///< Values that a store holds already.
    std::size_t onlyHere = 0;                     ///< Rows that the document does not have; an import leaves them.
    std::vector<Inspection::Uncarried> uncarried; ///< Rows that are not compared.
    bool hasUnknown = false;                      ///< Whether it has any key that the editor does not know, differing or not.
};

/// The comparison of the checked `document`, which was read from `file`. Throws `Storage::StorageError`, and `Inspection::DocumentError`
/// where the library would not read a value from its store, or as its kind. The library must be bound.
DocumentComparison comparisonOf(Host::Application const& application, std::filesystem::path const& file, Inspection::Document document);

/// What is wrong with a document that was read from `file`, and what to do, in one sentence.
std::string documentFault(std::filesystem::path const& file, Inspection::DocumentError const& error);
/// The document in `file`, which anyone may have put there: a regular file of at most 64 MiB. Never waits for a writer. Throws
/// `std::runtime_error` with a sentence for people. Calls neither library nor stores.
Inspection::Document documentIn(std::filesystem::path const& file);

/// What to commit in order to take the lines with these ids, each over the row that was compared. Redacted ones are left out.
Step stepOf(DocumentComparison const& document, std::set<std::string> const& taken);

} // namespace Inspector
