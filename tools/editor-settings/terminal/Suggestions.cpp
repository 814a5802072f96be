// SPDX-License-Identifier: MIT
#include "terminal/Suggestions.h"

#include "terminal/Escaping.h"

#include <absl/strings/ascii.h>
#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <numeric>
#include <utility>

namespace {

// The Levenshtein distance.
std::size_t distance(std::string const& from, std::string const& to)
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
    std::string const wanted = absl::AsciiStrToLower(word);
    std::size_t const tolerated = 1 + wanted.size() / 4;
    std::vector<std::pair<std::size_t, std::string>> candidates;
    for (std::string const& name : names) {
        std::string const candidate = absl::AsciiStrToLower(name);
        if (wanted.size() > candidate.size() + tolerated)
            continue; // the distance of a very long word is out of reach and slow to compute
        std::size_t const edits = distance(wanted, candidate);
        bool const contains = wanted.size() >= 3 && absl::StrContains(candidate, wanted);
        if (edits <= tolerated || contains)
            candidates.emplace_back(edits, name);
    }
    std::sort(candidates.begin(), candidates.end());
    std::vector<std::string> result;
    for (std::size_t at = 0; at < std::min<std::size_t>(candidates.size(), 3); ++at)
        result.push_back(candidates[at].second);
    return result;
}

std::string alternatives(std::vector<std::string> const& words) { return joined(words, " or "); }

std::string didYouMean(std::string const& word, std::vector<std::string> const& names)
{
    std::vector<std::string> const likely = suggestions(word, names);
    return likely.empty() ? std::string() : absl::StrCat("did you mean ", alternatives(likely), "?") + ' ';
}
