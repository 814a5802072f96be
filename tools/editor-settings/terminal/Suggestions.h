// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// At most three of `names` that a mistyped `word` may mean, best first: those within a few edits and those that contain it,
/// regardless of the case of ASCII letters.
std::vector<std::string> suggestions(std::string const& word, std::vector<std::string> const& names);

/// "a or b".
std::string alternatives(std::vector<std::string> const& words);
/// "did you mean a or b? " with the suggestions; empty without any.
std::string didYouMean(std::string const& word, std::vector<std::string> const& names);
