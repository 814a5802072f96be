// SPDX-License-Identifier: MIT
#include "CommandTexts.h"

#include "Translation.h"

#include <algorithm>
#include <array>
#include <optional>

namespace {

// The texts of the parser by the kind of its error.
struct Shape {
    CLI::ExitCodes error;
    char const* text;
};

constexpr Shape shapes[] = {
    {CLI::ExitCodes::RequiredError, Text::mark("%1 is required")},
    {CLI::ExitCodes::ExtrasError, Text::mark("The following argument was not expected: %1")},
    {CLI::ExitCodes::ExtrasError, Text::mark("The following arguments were not expected: %1")},
    {CLI::ExitCodes::ExcludesError, Text::mark("%1 excludes %2")},
    {CLI::ExitCodes::ArgumentMismatch, Text::mark("%1: %2 required %3 missing")},
};

using Words = std::array<std::string, 3>;

// What stands in the places of `shape`; none where `text` is of another one.
std::optional<Words> wordsIn(std::string const& text, std::string const& shape)
{
    Words words;
    std::size_t place = shape.find('%');
    std::size_t at = place;
    if (text.compare(0, at, shape, 0, place) != 0)
        return std::nullopt;
    for (std::string& word : words) {
        if (place == std::string::npos)
            break;
        std::size_t const next = shape.find('%', place + 1);
        std::string const between = shape.substr(place + 2, next - place - 2);
        std::size_t const end = next == std::string::npos ? text.size() - std::min(between.size(), text.size()) : text.find(between, at);
        if (end == std::string::npos || end < at || text.compare(end, between.size(), between) != 0)
            return std::nullopt;
        word = text.substr(at, end - at);
        at = end + between.size();
        place = next;
    }
    return words;
}

} // namespace

void translateHelp(CLI::App& app)
{
    for (char const* label : {Text::mark("Usage"), Text::mark("OPTIONS"), Text::mark("SUBCOMMAND"), Text::mark("Positionals"),
                              Text::mark("REQUIRED"), Text::mark("Env"), Text::mark("Excludes")})
        app.get_formatter()->label(label, Text::of(label));
    app.get_help_ptr()->description(Text::of("Print this help message and exit"));
    for (CLI::Option* option : app.get_options())
        option->group(Text::of("Options"));
    for (CLI::App* verb : app.get_subcommands([](CLI::App*) { return true; })) {
        verb->group(Text::of("Subcommands"));
        translateHelp(*verb);
    }
}

std::string reasonOf(CLI::Error const& error)
{
    std::string const english = error.what();
    for (Shape const& shape : shapes)
        if (std::optional<Words> const words =
                error.get_exit_code() == static_cast<int>(shape.error) ? wordsIn(english, shape.text) : std::nullopt)
            return Text::of(shape.text, (*words)[0], (*words)[1], (*words)[2]);
    return english;
}
