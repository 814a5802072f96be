// SPDX-License-Identifier: MIT
//
// Keys and values as they are typed, for every verb that sets one.
#pragma once

#include "commands/Command.h"

#include <Inspection/PreferenceState.h>

#include <functional>
#include <string>
#include <vector>

/// Whether `word` has wildcards.
bool isPattern(std::string const& word);

/// What is known of `key`, which may also be a getter's name. Throws `UserError` for a key that the library never asks for, that is
/// not declared and not stored. `adviceOnOwnKeys` ends the sentence about a key that is like no other.
Inspection::PreferenceState knownPreference(Host::Application const& application, std::string const& key,
                                            std::string const& adviceOnOwnKeys = {});
/// The same for a key that is to be set. Throws `UserError` where nobody but a program may.
Inspection::PreferenceState preferenceToWrite(Host::Application const& application, std::string const& key);

/// The words that give a value.
struct GivenValue {
    std::vector<std::string> values;
    std::string file;
    bool isEmpty = false;
    bool isStrict = false; ///< Whether a value that the editor cannot use is refused.

    bool isMissing() const { return values.empty() && file.empty() && !isEmpty; }
};

/// The word KEY.
Option keyOption(std::string& key);
/// KEY, and the words and options that give a value.
std::vector<Option> valueOptions(std::string& key, GivenValue& words);
/// The value, read from a file or from standard input where that was given. Throws `UserError`.
Catalogue::Value valueIn(Inspection::PreferenceState const& preference, GivenValue const& words);
/// Calls `store` for a value that can be set, with a warning where the editor cannot use it, which `isStrict` makes an error.
/// Throws `UserError`.
void write(Inspection::PreferenceState const& preference, Catalogue::Value const& value, bool isStrict, std::function<void()> const& store);
