// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/ItemsModel.h>
#include <Inspector/Search.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

using Lines = Inspector::Lines<Inspector::Item>;

/// A line of two columns, its id and `value`.
inline std::shared_ptr<Inspector::Item const> line(std::string const& id, std::string const& value)
{
    Inspector::Item item;
    item.id = id;
    item.cells = QStringList{QString::fromStdString(id), QString::fromStdString(value)};
    item.spoken = item.cells.join(QStringLiteral(", "));
    item.searchText = Inspector::Search::textOf(item.cells, {});
    return std::make_shared<Inspector::Item const>(item);
}

/// Lines with ids of five digits, from 0 on.
inline Lines numbered(int count)
{
    Lines lines;
    for (int number = 0; number < count; ++number) {
        std::string const digits = std::to_string(number);
        lines.push_back(line(std::string(5 - digits.size(), '0') + digits, ""));
    }
    return lines;
}
