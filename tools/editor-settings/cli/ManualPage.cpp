// SPDX-License-Identifier: MIT
#include "cli/ManualPage.h"

#include "cli/HelpTexts.h"

#include <Settings/Version.h>

#include <absl/strings/ascii.h>

namespace {

// Text as troff takes it: no escapes, no requests at the start of a line, hyphens that can be copied.
std::string troff(std::string const& text)
{
    std::string result;
    bool atLineStart = true;
    for (char const character : text) {
        if (atLineStart && (character == '.' || character == '\''))
            result += "\\&";
        if (character == '\\')
            result += "\\e";
        else if (character == '-')
            result += "\\-";
        else
            result += character;
        atLineStart = character == '\n';
    }
    return result;
}

std::string usageOf(Option const& positional)
{
    std::string const name = "\\fI" + troff(positional.name) + "\\fR" + (positional.isRepeated() ? "..." : "");
    return positional.isRequired ? name : '[' + name + ']';
}

std::string entry(std::string const& term, std::string const& description) { return ".TP\n" + term + '\n' + troff(description) + '\n'; }

std::string entryOf(Option const& option)
{
    if (option.isPositional())
        return entry("\\fI" + troff(option.name) + "\\fR", option.help);
    std::string const value = option.takesValue() ? " \\fI" + troff(option.valueName) + "\\fR" : "";
    return entry("\\fB" + troff(option.name) + "\\fR" + value, option.help);
}

// The positional words first, as they are typed.
std::string entriesOf(std::vector<Option> const& options)
{
    std::string text;
    for (bool const positional : {true, false})
        for (Option const& option : options)
            text += option.isPositional() == positional ? entryOf(option) : "";
    return text;
}

// As it is typed: with quotes that a shell takes for such.
std::string typed(std::string const& command)
{
    std::string result;
    for (char const character : troff(command))
        result += character == '\'' ? "\\(aq" : character == '~' ? "\\(ti" : std::string(1, character);
    return result;
}

std::string examplesIn(std::vector<Example> const& examples)
{
    std::string text;
    for (Example const& example : examples)
        text += entry("\\fB" + typed(example.command) + "\\fR", example.effect);
    return text.empty() ? text : ".PP\nExamples:\n" + text;
}

std::string sectionsOf(std::vector<Command> const& commands, std::string const& above)
{
    std::string text;
    for (Command const& command : commands) {
        text += ".SS \"\\fB" + troff(above + command.name) + "\\fR";
        for (Option const& option : command.options)
            text += option.isPositional() ? ' ' + usageOf(option) : "";
        text += "\"\n" + troff(command.summary) + ".\n" + entriesOf(command.options) + examplesIn(command.examples);
        text += sectionsOf(command.verbs, above + command.name + ' ');
    }
    return text;
}

std::string environment(std::vector<Option> const& options)
{
    std::string text;
    for (Option const& option : options)
        if (!option.variable.empty())
            text += entry(troff(option.variable), "Stands in for " + option.name + " where that is not given");
    for (auto const& [variable, meaning] : environmentTerms())
        text += entry(troff(variable), meaning);
    return text;
}

std::string sectionOf(HelpText const& section)
{
    std::string text = ".SH \"" + absl::AsciiStrToUpper(troff(section.title)) + "\"\n";
    if (*section.text != '\0')
        text += troff(section.text) + '\n';
    for (auto const& [term, meaning] : section.terms)
        text += entry("\\fB" + typed(term) + "\\fR", meaning);
    return text;
}

} // namespace

std::string manualPage(std::string const& description, std::vector<Option> const& global, std::vector<Command> const& commands)
{
    std::string const name = "editor\\-settings";
    std::string page =
        ".TH " + absl::AsciiStrToUpper(name) + " 1 \"\" \"" + name + ' ' + EDITOR_SETTINGS_VERSION_STRING + "\" \"User Commands\"\n";
    // As the title of a page: a phrase, not a sentence.
    std::string phrase = description.substr(0, description.size() - 1);
    phrase.front() = absl::ascii_tolower(static_cast<unsigned char>(phrase.front()));
    page += ".SH NAME\n" + name + " \\- " + troff(phrase) + '\n';
    page += ".SH SYNOPSIS\n.B " + name + "\n[\\fIOPTIONS\\fR] \\fIVERB\\fR [\\fIWORDS\\fR]\n";
    page += ".SH DESCRIPTION\n" + troff(description) + '\n';
    page += ".SH OPTIONS\n" + entry("\\fB\\-h, \\-\\-help\\fR", "Print this help message and exit") +
            entry("\\fB\\-\\-version\\fR", "Display program version information and exit") + entriesOf(global);
    page += ".SH VERBS\n" + sectionsOf(commands, "");
    page += ".SH ENVIRONMENT\n" + environment(global);
    for (HelpText const& section : helpTexts())
        page += sectionOf(section);
    return page;
}
