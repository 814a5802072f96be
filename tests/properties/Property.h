// SPDX-License-Identifier: MIT
#pragma once

#include <support/Tally.h>

#include <QString>

#include <rapidcheck.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

/// Checks `property`, a function of random arguments that throws or uses RC_ASSERT, with `cases` of them. The cases
/// follow from a seed that is always the same, unless EDITOR_SETTINGS_SEED in the environment gives another.
template <typename Property>
void expectForAll(int cases, Property&& property)
{
    char const* const given = std::getenv("EDITOR_SETTINGS_SEED");
    rc::detail::TestParams parameters;
    parameters.seed = given ? std::stoull(given) : 1;
    parameters.maxSuccess = cases;
    ::setenv("RC_PARAMS", ("seed=" + std::to_string(parameters.seed)).c_str(), 1); // which RapidCheck would else make up, and print
    auto const result = rc::detail::checkTestable(std::forward<Property>(property), rc::detail::TestMetadata(), parameters);
    bool const holds = result.template is<rc::detail::SuccessResult>();
    tally("Random case of a property", cases, holds ? 0 : 1);
    if (!holds) {
        std::ostringstream text;
        rc::detail::printResultMessage(result, text);
        ADD_FAILURE() << "EDITOR_SETTINGS_SEED=" << parameters.seed << '\n' << text.str();
    }
}

/// Texts of whole characters of every script, NUL among them. Half of the characters are those that mean something in a
/// stored list. None begins with a byte order mark, which UTF-8 text loses when it is read.
inline rc::Gen<QString> anyText()
{
    auto const meaning = rc::gen::elementOf(std::u32string(U"|#a \u00E9\0", 6));
    auto const other = rc::gen::suchThat(rc::gen::inRange<char32_t>(0, 0x110000), [](char32_t c) { return c < 0xD800 || c > 0xDFFF; });
    auto const characters = rc::gen::container<std::u32string>(rc::gen::oneOf(meaning, other));
    return rc::gen::map(rc::gen::suchThat(characters, [](std::u32string const& text) { return text.empty() || text[0] != 0xFEFF; }),
                        [](std::u32string const& text) { return QString::fromUcs4(text.data(), static_cast<int>(text.size())); });
}

/// Lets RapidCheck print what it found.
inline void showValue(QString const& text, std::ostream& stream) { stream << '"' << text.toStdString() << '"'; }
