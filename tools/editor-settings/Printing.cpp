// SPDX-License-Identifier: MIT
#include "Printing.h"

#include "Values.h"

#include <algorithm>
#include <iostream>

namespace {

// Code points rather than bytes, so that columns line up in every script whose letters are one column wide.
std::size_t width(std::string const& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

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

void printJson(nlohmann::ordered_json const& value)
{
    std::cout << value.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

std::string inColumn(Catalogue::Value const& value, Format format)
{
    constexpr std::size_t enough = 120;
    QStringList const* const list = format == Format::people ? std::get_if<QStringList>(&value) : nullptr;
    std::string const line = list ? onOneLine(list->join(QStringLiteral(", ")).toStdString()) : onOneLine(value);
    if (format != Format::people || width(line) <= enough)
        return line;
    std::size_t end = 0;
    for (std::size_t letters = 0; letters < enough - 1; ++end)
        letters += (line[end + 1] & 0xC0) != 0x80;
    return line.substr(0, end) + "\xE2\x80\xA6";
}
