// SPDX-License-Identifier: MIT
#include <support/Patterns.h>

#include <iterator>
#include <map>
#include <regex>

namespace {

// Made once, as tests try the same pattern on one line after another. Each thread has its own, so that none waits for another.
std::regex const& expression(std::string const& pattern)
{
    thread_local std::map<std::string, std::regex> expressions;
    return expressions.try_emplace(pattern, pattern).first->second;
}

} // namespace

bool matches(std::string const& text, std::string const& pattern) { return std::regex_match(text, expression(pattern)); }

bool contains(std::string const& text, std::string const& pattern) { return std::regex_search(text, expression(pattern)); }

std::vector<std::string> captured(std::string const& text, std::string const& pattern)
{
    std::vector<std::string> result;
    for (std::sregex_iterator match(text.begin(), text.end(), expression(pattern)), end; match != end; ++match)
        result.insert(result.end(), std::next(match->begin()), match->end());
    return result;
}

std::string replaced(std::string const& text, std::string const& pattern, std::string const& replacement)
{
    return std::regex_replace(text, expression(pattern), replacement);
}
