// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// The names that a mistyped `word` may have meant, best first: those that hold it or that a few edits make of it,
/// whatever the case. At most three.
std::vector<std::string> suggestions(std::string const& word, std::vector<std::string> const& names);

/// "a or b", for people.
std::string alternatives(std::vector<std::string> const& words);
/// "did you mean a or b? " with those names; empty without any.
std::string didYouMean(std::string const& word, std::vector<std::string> const& names);
