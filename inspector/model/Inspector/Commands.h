// SPDX-License-Identifier: MIT
//
// The command line that does what the window does, as one line for a POSIX shell.
#pragma once

#include <Inspector/Place.h>

#include <Catalogue/Catalogue.h>

#include <QString>

#include <optional>
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

} // namespace Inspector
