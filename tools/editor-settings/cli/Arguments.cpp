// SPDX-License-Identifier: MIT
#include "cli/Arguments.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <algorithm>

namespace {

constexpr char mark = '\x1f';

Option const* findOption(std::vector<Option> const& options, std::string const& word)
{
    std::string const name = word.substr(0, word.find('='));
    auto const found = std::find_if(options.begin(), options.end(), [&](Option const& each) { return each.name == name; });
    return found == options.end() || found->isPositional() ? nullptr : &*found;
}

bool takesNextWord(Option const& option, std::string const& word) { return option.takesValue() && word.find('=') == std::string::npos; }

using Words = std::vector<std::string>;

// A verb and those below it, as they are typed.
struct TypedVerbs {
    std::vector<Words::iterator> places;
    std::vector<Option> options; // of them all
};

TypedVerbs typedVerbs(Words& words, std::vector<Command> const& commands)
{
    TypedVerbs result;
    std::vector<Command> const* level = &commands;
    for (auto word = words.begin(); word != words.end(); ++word)
        if (Command const* const command = findVerb(*level, *word)) {
            result.places.push_back(word);
            result.options.insert(result.options.end(), command->options.begin(), command->options.end());
            level = &command->verbs;
        }
    return result;
}

} // namespace

std::vector<std::string> verbFirst(std::vector<std::string> words, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    TypedVerbs const verbs = typedVerbs(words, commands);
    Words sorted;
    Words moved;
    auto word = words.begin();
    for (auto const& verb : verbs.places) {
        while (word != verb) {
            Option const* const ofVerb = findOption(verbs.options, *word);
            Option const* const option = ofVerb ? ofVerb : findOption(global, *word);
            if (!option)
                return words;
            auto const next = word + (takesNextWord(*option, *word) ? 2 : 1);
            if (next > verb)
                return words;
            Words& target = ofVerb ? moved : sorted;
            target.insert(target.end(), word, next);
            word = next;
        }
        sorted.push_back(*word++);
    }
    sorted.insert(sorted.end(), moved.begin(), moved.end());
    sorted.insert(sorted.end(), word, words.end());
    return sorted;
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
