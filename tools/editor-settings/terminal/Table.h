// SPDX-License-Identifier: MIT
//
// Prints answers: aligned for people, tab-separated for scripts, or JSON.
#pragma once

#include "terminal/Terminal.h"

#include <cstddef>
#include <string>
#include <vector>

enum class Format { people, plain, json };

/// One line of text and its style. The style carries no information of its own.
struct Cell {
    // NOLINTNEXTLINE(google-explicit-constructor): most cells are text alone
    Cell(std::string line, Terminal::Style look = Terminal::Style::normal) : text(std::move(line)), style(look) {}
    // NOLINTNEXTLINE(google-explicit-constructor): likewise
    Cell(char const* line) : text(line) {}

    std::string text;
    Terminal::Style style = Terminal::Style::normal;
};

using Columns = std::vector<Cell>;

/// Prints `table`: aligned for people on a terminal, else with tabs between the cells. Only people get the `heading`.
void printTable(std::vector<Columns> table, Columns const& heading, Format format);

/// Prints `text` and a line break; control characters other than tab and line break are escaped on a terminal only.
void printAsItIs(std::string const& text);
