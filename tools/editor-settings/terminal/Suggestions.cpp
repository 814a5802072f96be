// SPDX-License-Identifier: MIT
#include "terminal/Suggestions.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cctype>
#include <numeric>
#include <utility>

namespace {

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    return text;
}

// Levenshtein's distance: insertions, deletions and replacements that turn `from` into `to`.
std::size_t edits(std::string const& from, std::string const& to)
{
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t(0));
    for (std::size_t line = 1; line <= from.size(); ++line) {
        std::size_t diagonal = std::exchange(row[0], line);
        for (std::size_t column = 1; column <= to.size(); ++column) {
            std::size_t const replaced = diagonal + (from[line - 1] != to[column - 1]);
            diagonal = std::exchange(row[column], std::min({replaced, row[column] + 1, row[column - 1] + 1}));
        }
    }
    return row.back();
}

} // namespace

std::vector<std::string> suggestions(std::string const& word, std::vector<std::string> const& names)
{
    std::string const wanted = lowerCase(word);
    std::size_t const tolerated = 1 + wanted.size() / 4;
    std::vector<std::pair<std::size_t, std::string>> candidates;
    for (std::string const& name : names) {
        std::string const candidate = lowerCase(name);
        if (wanted.size() > candidate.size() + tolerated)
            continue; // so many letters would have to go; it takes long to count them one by one
        std::size_t const distance = edits(wanted, candidate);
        bool const holdsIt = wanted.size() >= 3 && candidate.find(wanted) != std::string::npos;
        if (distance <= tolerated || holdsIt)
            candidates.emplace_back(distance, name);
    }
    std::sort(candidates.begin(), candidates.end());
    std::vector<std::string> result;
    for (auto const& [distance, name] : candidates)
        if (result.size() < 3)
            result.push_back(name);
    return result;
}

std::string alternatives(std::vector<std::string> const& words) { return joined(words, " or "); }

std::string didYouMean(std::string const& word, std::vector<std::string> const& names)
{
    std::vector<std::string> const likely = suggestions(word, names);
    return likely.empty() ? std::string() : absl::StrCat("did you mean ", alternatives(likely), "?") + ' ';
}
