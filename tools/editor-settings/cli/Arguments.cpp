// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <algorithm>

namespace {

constexpr char mark = '\x1f';

} // namespace

std::vector<std::string> markedArguments(int argc, char** argv)
{
    std::vector<std::string> words(argv + 1, argv + argc);
    for (std::string& word : words)
        if (!word.empty() && (word[0] == '[' || word[0] == mark || word == "++"))
            word.insert(word.begin(), mark);
    std::reverse(words.begin(), words.end());
    return words;
}

std::string unmarked(std::string text)
{
    for (std::string const& marked : {std::string{mark, '['}, std::string{mark, mark}, std::string{mark, '+', '+'}})
        for (std::size_t at = text.find(marked); at != std::string::npos; at = text.find(marked, at + 1))
            text.erase(at, 1);
    return text;
}

CLI::Validator unmarked()
{
    return {[](std::string& word) {
                if (!word.empty() && word[0] == mark)
                    word.erase(0, 1);
                return std::string();
            },
            ""};
}

CLI::Validator notEmpty(std::string const& refusal)
{
    return {[refusal](std::string& word) { return word.empty() ? refusal : std::string(); }, ""};
}

CLI::Validator oneOf(std::vector<std::string> const& words)
{
    std::string const all = '{' + joined(words, ",") + '}';
    return {[=](std::string& word) {
                bool const isOne = std::find(words.begin(), words.end(), word) != words.end();
                return isOne ? std::string() : absl::StrCat(word, " not in ", all);
            },
            all};
}
