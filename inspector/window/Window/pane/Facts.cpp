// SPDX-License-Identifier: MIT
#include <Window/pane/Facts.h>

#include <Inspection/RowDifference.h>
#include <Inspection/ValueFormat.h>

#include <QCoreApplication>

#include <algorithm>

using Inspection::State;

namespace Inspector {

namespace {

struct PaneWords {
    Q_DECLARE_TR_FUNCTIONS(Inspector::SettingPane)
};

QString oneLine(std::string const& text) { return QString::fromStdString(Inspection::onOneLine(text)); }

StoreView const& storeOf(Setting const& setting, Snapshot const& snapshot)
{
    return setting.store == Catalogue::Store::product ? snapshot.product : snapshot.common;
}

QString meaning(Setting const& setting)
{
    if (!setting.state)
        return PaneWords::tr("the store cannot be read");
    switch (*setting.state) {
    case State::setToDefault:
        return PaneWords::tr("unset, it will follow the default");
    case State::unreadable:
        return PaneWords::tr("a value of a later version, or one that its kind does not allow");
    case State::undeclared:
        return PaneWords::tr("this version does not ask for it");
    default:
        return {};
    }
}

// A row whose value no read returns.
QString storedRow(Storage::SqliteStorage::Row const& row)
{
    return PaneWords::tr("stored: %1 (%2)").arg(oneLine(Inspection::storedText(row.value)), oneLine(row.kind));
}

} // namespace

bool isUndeclared(Setting const& setting) { return setting.cells[Setting::classColumn].isEmpty(); }

QString kindFacts(Setting const& setting)
{
    bool const hasOwnKind = isUndeclared(setting) && !setting.rows.empty();
    QStringList facts = {hasOwnKind ? oneLine(setting.rows.front().kind) : oneLine(Inspection::typeName(setting.value)),
                         setting.cells[Setting::classColumn], setting.cells[Setting::storeColumn]};
    facts.removeAll({});
    return facts.join(QStringLiteral(" \u00B7 "));
}

QString stateFacts(Setting const& setting, Snapshot const& snapshot)
{
    QString const since = setting.cells[Setting::changedColumn];
    QStringList lines = {setting.cells[Setting::stateColumn] + (since.isEmpty() ? QString() : PaneWords::tr(", since %1").arg(since)),
                         meaning(setting)};
    if (setting.state == State::otherKind && !setting.isHidden)
        for (Storage::SqliteStorage::Row const& row : setting.rows)
            lines += storedRow(row);
    for (Inspection::LayerFact const& fact : setting.layers)
        lines += QStringLiteral("%1: %2").arg(oneLine(fact.what), oneLine(fact.text));
    for (std::shared_ptr<Finding const> const& finding : snapshot.findings)
        if (finding->key == setting.key && finding->found.severity != Inspection::Severity::note)
            lines += QStringLiteral("\u26A0 ") + finding->cells[2];
    lines.removeAll({});
    return lines.join(QLatin1Char('\n'));
}

QString defaultFacts(Setting const& setting)
{
    if (isUndeclared(setting))
        return {};
    QString const value = setting.cells[Setting::defaultColumn];
    QString const text = value.isEmpty() ? PaneWords::tr("(empty)") : value;
    return setting.computedBy.empty() ? text : PaneWords::tr("%1\ncomputed by %2() at each read").arg(text, oneLine(setting.computedBy));
}

QString originFacts(Setting const& setting, Snapshot const& snapshot)
{
    QStringList lines;
    if (std::string const& file = storeOf(setting, snapshot).file;
        !file.empty() && setting.cells[Setting::storeColumn] == oneLine(name(setting.store)))
        lines += PaneWords::tr("%1 store %2").arg(QString::fromStdString(name(setting.store)), oneLine(file));
    for (std::shared_ptr<Location const> const& location : snapshot.locations)
        if (!setting.computedBy.empty() && location->id == setting.computedBy)
            for (std::string const& decision : location->decidedBy)
                lines += PaneWords::tr("default: %1").arg(oneLine(decision));
    return lines.join(QLatin1Char('\n'));
}

QString valueNow(Setting const& setting)
{
    QString const value = setting.shownValue.isEmpty() ? PaneWords::tr("(empty)") : setting.shownValue;
    return setting.rows.empty() ? PaneWords::tr("%1 (the default)").arg(value) : value;
}

QString whyStoreIsFixed(Setting const& setting, Snapshot const& snapshot)
{
    std::optional<Storage::StorageError> const& error = storeOf(setting, snapshot).error;
    bool const isInTheWay = error && error->code() != Storage::StorageError::Code::busy; // that passes
    return isInTheWay ? oneLine(error->what()) : QString();
}

QString whyFixed(Setting const& setting, Snapshot const& snapshot)
{
    if (QString const reason = whyStoreIsFixed(setting, snapshot); !reason.isEmpty())
        return reason;
    if (!setting.state)
        return PaneWords::tr("its store cannot be read");
    if (isUndeclared(setting))
        return setting.state == State::unreadable ? PaneWords::tr("this version cannot read it") : QString();
    return setting.whyFixed;
}

} // namespace Inspector
