// SPDX-License-Identifier: MIT
#include <Inspection/RowDifference.h>

#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <Lumora/Util/ByteConversion.h>

#include <QDateTime>

#include <nlohmann/json.hpp>

using nlohmann::ordered_json;
using Storage::SqliteStorage;

namespace Inspection {

namespace {

struct StoredAsJson {
    ordered_json operator()(std::monostate) const { return nullptr; }
    ordered_json operator()(std::vector<unsigned char> const& value) const
    {
        return Inspection::toJson(Lumora::Util::VectorByteToQByteArray(value));
    }
    template <typename T>
    ordered_json operator()(T const& value) const
    {
        return Inspection::toJson(value);
    }
};

QDateTime timeIn(Qt::TimeSpec zone, std::chrono::system_clock::time_point time)
{
    auto const milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(time.time_since_epoch()).count();
    return QDateTime::fromMSecsSinceEpoch(milliseconds, zone);
}

} // namespace

ordered_json storedJson(SqliteStorage::Value const& value) { return std::visit(StoredAsJson(), value); }

ordered_json storedJson(std::optional<SqliteStorage::Row> const& row)
{
    return row ? ordered_json{{"kind", row->kind}, {"value", storedJson(row->value)}} : ordered_json();
}

std::string storedText(SqliteStorage::Value const& value)
{
    ordered_json const shown = storedJson(value);
    if (shown.is_null())
        return "(unreadable)";
    return shown.is_string() ? shown.get<std::string>() : shown.dump();
}

std::optional<QStringList> storedList(SqliteStorage::Row const& row)
{
    std::optional<KnownKey> const known = knownKey(row.key);
    auto const* const text = std::get_if<std::string>(&row.value);
    if (!text || !known || !known->isList)
        return std::nullopt;
    QStringList const list = Catalogue::listIn(*text);
    return Catalogue::storedText(list) == *text ? std::optional(list) : std::nullopt;
}

std::string onOneLine(std::optional<SqliteStorage::Row> const& row, std::string const& absent)
{
    if (!row)
        return absent;
    std::optional<QStringList> const list = storedList(*row);
    return list ? onOneLine(Catalogue::Value(*list)) : onOneLine(storedText(row->value));
}

char const* changeName(Change change)
{
    constexpr char const* names[] = {"added", "removed", "changed"};
    return names[static_cast<int>(change)];
}

std::string inLocalTime(std::chrono::system_clock::time_point time)
{
    return timeIn(Qt::LocalTime, time).toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

std::string inUtc(std::chrono::system_clock::time_point time) { return timeIn(Qt::UTC, time).toString(Qt::ISODateWithMs).toStdString(); }

} // namespace Inspection
