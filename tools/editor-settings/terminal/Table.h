// SPDX-License-Identifier: MIT
//
// Answers on standard output: aligned for people, tab-separated for scripts, or as JSON.
#pragma once

#include "terminal/Terminal.h"

#include <cstddef>
#include <string>
#include <vector>

enum class Format { people, plain, json };

/// A cell of a table: one line of text, and how it is painted where colours are wanted. The colour adds nothing to the text.
struct Cell {
    // NOLINTNEXTLINE(google-explicit-constructor): most cells are text alone
    Cell(std::string line, Terminal::Style look = Terminal::Style::normal) : text(std::move(line)), style(look) {}
    // NOLINTNEXTLINE(google-explicit-constructor): likewise
    Cell(char const* line) : text(line) {}

    std::string text;
    Terminal::Style style = Terminal::Style::normal;
};

using Columns = std::vector<Cell>;

/// Prints `table` below `heading`: aligned on a terminal, else with a tab between two cells. Scripts get no heading.
void printTable(std::vector<Columns> table, Columns const& heading, Format format);

/// Prints `text` and a line break: as it is for a program that reads it, but without what a terminal would obey where
/// standard output is one.
void printAsItIs(std::string const& text);
