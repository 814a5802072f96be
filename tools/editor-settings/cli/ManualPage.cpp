// SPDX-License-Identifier: MIT
#include "cli/ManualPage.h"

#include "cli/CommandWalk.h"
#include "cli/HelpTexts.h"
#include "commands/Examples.h"
#include "terminal/Escaping.h"

#include <algorithm>
#include <cctype>

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

std::string upperCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char letter) { return static_cast<char>(std::toupper(letter)); });
    return text;
}

std::string usageOf(CLI::Option const& positional)
{
    std::string const name = "\\fI" + troff(positional.get_name(true)) + "\\fR" + (positional.get_items_expected_max() > 1 ? "..." : "");
    return positional.get_required() ? name : '[' + name + ']';
}

std::string entry(std::string const& term, std::string const& description) { return ".TP\n" + term + '\n' + troff(description) + '\n'; }

std::string entriesOf(CLI::App const& app)
{
    std::string text;
    for (CLI::Option const* positional : optionsOf(app, true))
        text += entry("\\fI" + troff(positional->get_name(true)) + "\\fR", positional->get_description());
    for (CLI::Option const* option : optionsOf(app, false)) {
        if (app.get_parent() && option == app.get_help_ptr())
            continue; // told once, for all
        // A type name may go on with what a validator says after a colon.
        std::string const type = option->get_type_name().substr(0, option->get_type_name().find(':'));
        std::string const value = takesValue(*option) ? " \\fI" + troff(type) + "\\fR" : "";
        text += entry("\\fB" + troff(joined(formsOf(*option), ", ")) + "\\fR" + value, option->get_description());
    }
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

std::string examplesIn(std::string const& path)
{
    std::string text;
    for (Example const& example : examplesOf(path))
        text += entry("\\fB" + typed(example.command) + "\\fR", example.effect);
    return text.empty() ? text : ".PP\nExamples:\n" + text;
}

std::string sectionOf(CLI::App const& verb, std::string const& path)
{
    std::string usage = ".SS \"\\fB" + troff(path) + "\\fR";
    for (CLI::Option const* positional : optionsOf(verb, true))
        usage += ' ' + usageOf(*positional);
    return usage + "\"\n" + troff(verb.get_description()) + ".\n" + entriesOf(verb) + examplesIn(path);
}

} // namespace

std::string manualPage(CLI::App const& app)
{
    std::string const name = troff(app.get_name());
    std::string verbs;
    std::string environment;
    walk(app, "", [&](CLI::App const& verb, std::string const& path) {
        if (!path.empty())
            verbs += sectionOf(verb, path);
        for (CLI::Option const* option : optionsOf(verb, false))
            if (!option->get_envname().empty())
                environment +=
                    entry(troff(option->get_envname()), "Stands in for " + joined(formsOf(*option), ", ") + " where that is not given");
    });
    std::string page = ".TH " + upperCase(name) + " 1 \"\" \"" + name + ' ' + app.version() + "\" \"User Commands\"\n";
    // As the title of a page: a phrase, not a sentence.
    std::string phrase = app.get_description();
    phrase.front() = static_cast<char>(std::tolower(static_cast<unsigned char>(phrase.front())));
    phrase.pop_back();
    page += ".SH NAME\n" + name + " \\- " + troff(phrase) + '\n';
    page += ".SH SYNOPSIS\n.B " + name + "\n[\\fIOPTIONS\\fR] \\fIVERB\\fR [\\fIWORDS\\fR]\n";
    page += ".SH DESCRIPTION\n" + troff(app.get_description()) + '\n';
    page += ".SH OPTIONS\n" + entriesOf(app);
    page += ".SH VERBS\n" + verbs;
    page += ".SH ENVIRONMENT\n" + environment;
    for (HelpText const& note : helpTexts())
        page += ".SH \"" + upperCase(troff(note.title)) + "\"\n" + troff(note.text) + '\n';
    return page;
}
