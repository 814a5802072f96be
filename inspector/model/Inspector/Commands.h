// SPDX-License-Identifier: MIT
//
// The command line that does what the window does, as one line for a POSIX shell.
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>

#include <Catalogue/Catalogue.h>

#include <QString>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Inspector {

/// The words of `editor-settings set` for `value`, an element of a list in each.
std::vector<std::string> wordsOf(Catalogue::Value const& value);

/// "editor-settings VERB WORD..." for the stores of `place`. nullopt for a word that no text can carry: one with a NUL, or that is
/// not UTF-8.
std::optional<QString> command(Place const& place, std::string const& verb, std::vector<std::string> const& words = {});
/// The command that stores `value`, of the type of the setting `key`. nullopt as above, but for a text with a NUL, which is piped.
std::optional<QString> commandToSet(Place const& place, std::string const& key, Catalogue::Value const& value);
/// The command that stores a personal value nobody asked to see: with an ellipsis in its place.
std::optional<QString> commandToSetHidden(Place const& place, std::string const& key);
/// The commands that remove each of `keys`, joined by "&&". The command line removes an undeclared key that both stores hold from
/// the product's.
std::optional<QString> commandToUnset(Place const& place, std::vector<std::string> const& keys);

/// The commands that bring the rows of `step` back to what they hold before it, as an undo or "put back" does, joined by "&&". Personal
/// values are left as they are unless `showsPersonal`.
std::optional<QString> commandToRevert(Place const& place, Step const& step, bool showsPersonal = false);
/// The command that takes the lines with these ids of the document: `import FILE` where its options can say which; else an import
/// of those lines alone, on standard input, which leaves personal values as they are unless `showsPersonal`. nullopt where none is taken.
std::optional<QString> commandToImport(Place const& place, DocumentComparison const& document, std::set<std::string> const& taken,
                                       bool showsPersonal = false);
/// The command that exports to `file`.
std::optional<QString> commandToExport(Place const& place, std::filesystem::path const& file, bool isRedacted = true);
/// The command that copies both stores to `file`.
std::optional<QString> commandToBackUp(Place const& place, std::filesystem::path const& file);

} // namespace Inspector
