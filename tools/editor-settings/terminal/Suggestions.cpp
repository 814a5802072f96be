// SPDX-License-Identifier: MIT
#include "terminal/Suggestions.h"

#include "terminal/Escaping.h"

#include <absl/strings/ascii.h>
#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>

#include <algorithm>
#include <utility>

namespace {

// The Levenshtein distance, in which two letters that changed places count once.
std::size_t distance(std::string const& from, std::string const& to)
{
    std::vector<std::vector<std::size_t>> edits(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
    for (std::size_t left = 0; left <= from.size(); ++left)
        for (std::size_t right = 0; right <= to.size(); ++right) {
            std::size_t& least = edits[left][right] = left + right;
            if (left == 0 || right == 0)
                continue;
            bool const isOther = from[left - 1] != to[right - 1];
            least = std::min({edits[left - 1][right - 1] + isOther, edits[left - 1][right] + 1, edits[left][right - 1] + 1});
            if (left > 1 && right > 1 && from[left - 1] == to[right - 2] && from[left - 2] == to[right - 1])
                least = std::min(least, edits[left - 2][right - 2] + 1);
        }
    return edits.back().back();
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
