// SPDX-License-Identifier: MIT
#include "terminal/Table.h"

#include "terminal/Escaping.h"

#include <absl/strings/ascii.h>

#include <algorithm>
#include <iostream>
#include <utility>

#include <unistd.h>

namespace {

std::vector<std::size_t> widthsOf(std::vector<Columns> const& table)
{
    std::vector<std::size_t> widths;
    for (Columns const& line : table) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], width(line[column].text));
    }
    return widths;
}

void printAligned(std::vector<Columns> const& table)
{
    std::vector<std::size_t> const widths = widthsOf(table);
    for (Columns const& line : table) {
        std::string aligned;
        std::string gap;
        for (std::size_t column = 0; column < line.size(); ++column) {
            std::string const text(absl::StripTrailingAsciiWhitespace(line[column].text));
            aligned += text.empty() ? text : std::exchange(gap, "") + Terminal::painted(text, line[column].style);
            gap.append(widths[column] - width(text) + 2, ' ');
        }
        std::cout << aligned << '\n';
    }
}

void printTabbed(std::vector<Columns> const& table)
{
    for (Columns const& line : table) {
        for (Cell const& cell : line)
            std::cout << (&cell == &line.front() ? "" : "\t") << cell.text;
        std::cout << '\n';
    }
}

// Without a heading row, the first column names the values.
void markHeadings(std::vector<Columns>& table, bool hasHeading)
{
    for (Columns& line : table)
        for (Cell& cell : line)
            if ((hasHeading ? &line == &table.front() : &cell == &line.front()) && cell.style == Terminal::Style::normal)
                cell.style = Terminal::Style::heading;
}

} // namespace

void printTable(std::vector<Columns> table, Columns const& heading, Format format)
{
    if (format == Format::people && !heading.empty())
        table.insert(table.begin(), heading);
    markHeadings(table, !heading.empty());
    format == Format::people&& Terminal::isLookedAt() ? printAligned(table) : printTabbed(table);
}

void printAsItIs(std::string const& text) { std::cout << (Terminal::is(STDOUT_FILENO) ? withoutControls(text, "\t\n") : text) << '\n'; }
