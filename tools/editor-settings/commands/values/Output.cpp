// SPDX-License-Identifier: MIT
#include "commands/values/Output.h"

#include "terminal/Escaping.h"
#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <iostream>

void printJson(nlohmann::ordered_json const& value) { std::cout << Inspection::jsonText(value, 2) << '\n'; }

std::string onOneLine(Catalogue::Value const& value)
{
    // As JSON the elements of a list are distinct, whatever they hold.
    return std::holds_alternative<QStringList>(value) ? Inspection::jsonText(Inspection::toJson(value))
                                                      : onOneLine(Inspection::text(value));
}

std::string onOneLine(std::optional<Storage::SqliteStorage::Row> const& row, std::string const& absent)
{
    if (!row)
        return absent;
    std::optional<QStringList> const list = Inspection::storedList(*row);
    return list ? onOneLine(Catalogue::Value(*list)) : onOneLine(Inspection::storedText(row->value));
}

std::string inColumn(Catalogue::Value const& value, Format format)
{
    std::string const line = onOneLine(value);
    return format == Format::people ? shortened(line, 120) : line;
}
