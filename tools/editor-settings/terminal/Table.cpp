// SPDX-License-Identifier: MIT
#include "terminal/Table.h"

#include "terminal/Terminal.h"
#include <Inspection/ValueFormat.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <utility>

#include <unistd.h>

namespace {

using Terminal::Style;

// The words that say how something is. The colour adds nothing to them.
Style styleOf(std::string const& word)
{
    static std::map<std::string, Style> const styles = {{"error", Style::bad},   {"unreadable", Style::bad}, {"other kind", Style::bad},
                                                        {"removed", Style::bad}, {"warning", Style::odd},    {"changed", Style::odd},
                                                        {"set", Style::good},    {"added", Style::good}};
    auto const found = styles.find(word);
    return found == styles.end() ? Style::normal : found->second;
}

std::string withoutBlanksAtTheEnd(std::string const& text) { return text.substr(0, text.find_last_not_of(' ') + 1); }

struct Look {
    bool hasHeading;
    std::optional<std::size_t> judging;

    Style of(std::size_t line, std::size_t column, std::string const& cell) const
    {
        if (hasHeading ? line == 0 : !judging && column == 0)
            return Style::heading;
        return column == judging ? styleOf(cell) : Style::normal;
    }
};

std::vector<std::size_t> widthsOf(std::vector<Columns> const& table)
{
    std::vector<std::size_t> widths;
    for (Columns const& line : table) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], Terminal::columns(line[column]));
    }
    return widths;
}

void printAligned(std::vector<Columns> const& table, Look const& look)
{
    std::vector<std::size_t> const widths = widthsOf(table);
    for (std::size_t line = 0; line < table.size(); ++line) {
        std::string aligned;
        std::string gap;
        for (std::size_t column = 0; column < table[line].size(); ++column) {
            std::string const cell = withoutBlanksAtTheEnd(table[line][column]);
            aligned += cell.empty() ? cell : std::exchange(gap, "") + Terminal::painted(cell, look.of(line, column, cell));
            gap.append(widths[column] - Terminal::columns(cell) + 2, ' ');
        }
        std::cout << aligned << '\n';
    }
}

} // namespace

void printTable(std::vector<Columns> table, Columns const& heading, Format format, std::optional<std::size_t> judging)
{
    if (format == Format::people && !heading.empty())
        table.insert(table.begin(), heading);
    if (format == Format::people && Terminal::isLookedAt())
        printAligned(table, {!heading.empty(), judging});
    else
        for (Columns const& line : table)
            std::cout << joined(line, "\t") << '\n';
}

void printAsItIs(std::string const& text) { std::cout << (Terminal::is(STDOUT_FILENO) ? withoutControls(text, "\t\n") : text) << '\n'; }

void printJson(nlohmann::ordered_json const& value) { std::cout << jsonText(value, 2) << '\n'; }

std::string inColumn(Catalogue::Value const& value, Format format)
{
    QStringList const* const list = format == Format::people ? std::get_if<QStringList>(&value) : nullptr;
    std::string const line = list ? onOneLine(list->join(QStringLiteral(", ")).toStdString()) : onOneLine(value);
    return format == Format::people ? shortened(line, 120) : line;
}
