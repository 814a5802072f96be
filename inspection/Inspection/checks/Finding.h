// SPDX-License-Identifier: MIT
#pragma once

#include <Catalogue/Catalogue.h>

#include <optional>
#include <string>
#include <vector>

namespace Inspection {

enum class Severity {
    note,    ///< Nothing is wrong.
    warning, ///< Something works in a way that users do not expect, or a value may be lost.
    error,   ///< Something does not work.
};

/// What was found, in the order of the words of `checkName`.
enum class Check {
    productFile,
    home,
    storeUnusable,
    storeMissing,
    storeNewer,
    storeReadOnly,
    storeFolder,
    fileMode,
    fileOwner,
    journalLeft,
    fileSystem,
    misplacedKey,
    unknownKey,
    unknownRational,
    rationalHalf,
    rationalKind,
    rationalZero,
    otherKind,
    unreadable,
    notUtf8,
    listChanges,
    unusableValue,
    folder,
    foldersMissing,
    keptStores,
    studioServer,
    studioSchema,
    studioTls,
    studioPooler,
    studioClock,
    studioQueue,
    studioStandby,
    studioPending,
    studioRefused,
    studioOutbox,
};

/// The result of a check, with sentences in raw bytes: a caller escapes them for its medium.
struct Finding {
    Severity severity;
    Check check;
    std::string what;
    std::string remedy; ///< What the user can do; may be empty.
    std::optional<Catalogue::Store> store = std::nullopt;
    std::string key = {};                ///< The stored key; empty where the finding is about none.
    std::string path = {};               ///< The file or folder in UTF-8; empty where the finding is about none.
    std::vector<std::string> names = {}; ///< What the finding counts; empty where it is about one thing.
    std::string folderKey = {};          ///< The preference whose folder was checked; empty where the finding is about no folder of one.
};

using Findings = std::vector<Finding>;

/// The only finding where the product file cannot be used, for the reason that `error` tells.
Finding aboutProductFile(std::string const& error, std::string const& file);

/// The word for scripts: "note", "warning" or "error".
char const* severityName(Severity severity);

/// The word for scripts, which no version changes.
char const* checkName(Check check);

} // namespace Inspection
