// SPDX-License-Identifier: MIT
#include "Printing.h"

#include "Values.h"

#include <algorithm>
#include <iostream>

#include <unistd.h>

namespace {

void printAligned(std::vector<Columns> const& table)
{
    std::vector<std::size_t> widths;
    for (Columns const& line : table) {
        widths.resize(line.size());
        for (std::size_t column = 0; column < line.size(); ++column)
            widths[column] = std::max(widths[column], width(line[column]));
    }
    for (Columns line : table) {
        for (std::size_t column = 0; column < line.size(); ++column)
            line[column].append(widths[column] - width(line[column]), ' ');
        std::string const aligned = joined(line, "  ");
        std::cout << aligned.substr(0, aligned.find_last_not_of(' ') + 1) << '\n';
    }
}

} // namespace

void printTable(std::vector<Columns> table, Columns const& heading, Format format)
{
    if (format == Format::people) {
        if (!heading.empty())
            table.insert(table.begin(), heading);
        printAligned(table);
        return;
    }
    for (Columns const& line : table)
        std::cout << joined(line, "\t") << '\n';
}

void printAsItIs(std::string const& text) { std::cout << (::isatty(STDOUT_FILENO) == 1 ? withoutControls(text, "\t\n") : text) << '\n'; }

void printJson(nlohmann::ordered_json const& value) { std::cout << jsonText(value, 2) << '\n'; }

std::string inColumn(Catalogue::Value const& value, Format format)
{
    QStringList const* const list = format == Format::people ? std::get_if<QStringList>(&value) : nullptr;
    std::string const line = list ? onOneLine(list->join(QStringLiteral(", ")).toStdString()) : onOneLine(value);
    return format == Format::people ? shortened(line, 120) : line;
}
