// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <algorithm>

namespace {

constexpr char mark = '\x1f';

bool isVerb(std::string const& word, std::vector<Command> const& commands)
{
    return std::any_of(commands.begin(), commands.end(), [&](Command const& each) { return each.name == word; });
}

Option const* find(std::vector<Option> const& options, std::string const& word)
{
    std::string const name = word.substr(0, word.find('='));
    auto const found = std::find_if(options.begin(), options.end(), [&](Option const& each) { return each.name == name; });
    return found == options.end() || found->isPositional() ? nullptr : &*found;
}

bool isOptionOf(std::vector<Option> const& options, std::string const& word) { return find(options, word); }

bool takesNextWord(std::vector<Option> const& options, std::string const& word)
{
    return find(options, word)->takesValue() && word.find('=') == std::string::npos;
}

} // namespace

std::vector<std::string> verbFirst(std::vector<std::string> words, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    auto const verb = std::find_if(words.begin(), words.end(), [&](std::string const& word) { return isVerb(word, commands); });
    if (verb == words.end())
        return words;
    Command const& command = *std::find_if(commands.begin(), commands.end(), [&](Command const& each) { return each.name == *verb; });
    std::vector<std::string> before;
    std::vector<std::string> behind = {*verb};
    for (auto word = words.begin(); word < verb;) {
        bool const isOfVerb = isOptionOf(command.options, *word);
        if (!isOfVerb && !isOptionOf(global, *word))
            return words;
        std::vector<std::string>& target = isOfVerb ? behind : before;
        auto const next = word + (takesNextWord(isOfVerb ? command.options : global, *word) ? 2 : 1);
        if (next > verb)
            return words;
        target.insert(target.end(), word, next);
        word = next;
    }
    before.insert(before.end(), behind.begin(), behind.end());
    before.insert(before.end(), verb + 1, words.end());
    return before;
}

std::vector<std::string> markedArguments(std::vector<std::string> words)
{
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
