// SPDX-License-Identifier: MIT
#include <Notifier/Notifier.h>

#include "Worker.h"

#include <QMetaMethod>
#include <QPointer>

#include <algorithm>

namespace Notifier {

namespace {

std::vector<QString> namesOf(std::vector<Notifier::Store> const& stores)
{
    std::vector<QString> names;
    for (Notifier::Store const& store : stores)
        names.push_back(store.name);
    return names;
}

std::vector<WatchedStore> filesOf(std::vector<Notifier::Store> const& stores)
{
    std::vector<WatchedStore> files;
    for (Notifier::Store const& store : stores)
        files.push_back({std::filesystem::absolute(store.file), store.options});
    return files;
}

} // namespace

Notifier::Notifier(std::vector<Store> const& stores, QObject* parent) : QObject(parent), m_names(namesOf(stores))
{
    auto const inThread = [this](void (Notifier::*work)()) {
        return [this, work] {
            QMetaObject::invokeMethod(
                this, [this, work] { (this->*work)(); }, Qt::QueuedConnection);
        };
    };
    m_worker = std::make_unique<Worker>(filesOf(stores), inThread(&Notifier::deliver), inThread(&Notifier::checkReceivers));
}

Notifier::~Notifier() = default;

void Notifier::watch(QString const& key)
{
    m_worker->choose([&](Selection& selection) { selection.keys.insert(key.toStdString()); });
}

void Notifier::watchPrefix(QString const& prefix)
{
    m_worker->choose([&](Selection& selection) { selection.prefixes.insert(prefix.toStdString()); });
}

void Notifier::report(QString const& store, QString const& key)
{
    auto const named = std::find(m_names.begin(), m_names.end(), store);
    if (named != m_names.end())
        m_worker->report(static_cast<std::size_t>(named - m_names.begin()), key.toStdString());
}

void Notifier::connectNotify(QMetaMethod const& signal)
{
    if (signal == QMetaMethod::fromSignal(&Notifier::changed) || signal == QMetaMethod::fromSignal(&Notifier::rowChanged))
        m_worker->setHeard(true);
}

// No function of QObject may be called here, so the receivers that are left are counted later.
void Notifier::disconnectNotify(QMetaMethod const&) { m_worker->requestCheck(); }

bool Notifier::hasReceivers() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&Notifier::changed)) ||
           isSignalConnected(QMetaMethod::fromSignal(&Notifier::rowChanged));
}

// Asked a second time, as another thread may have connected a receiver in between.
void Notifier::checkReceivers()
{
    if (hasReceivers())
        return;
    m_worker->setHeard(false);
    if (hasReceivers())
        m_worker->setHeard(true);
}

// Each signal may be the last, as its receivers may destroy this object.
void Notifier::deliver()
{
    QPointer<Notifier> const self(this);
    News const news = m_worker->takeNews();
    std::vector<QString> const names = m_names;
    if (news.isWatching)
        Q_EMIT watching();
    for (auto const& [store, message] : news.errors)
        if (self)
            Q_EMIT failed(names[store], QString::fromStdString(message));
    for (auto const& [row, byThisProcess] : news.changes) {
        QString const key = QString::fromStdString(row.second);
        if (self)
            Q_EMIT changed(key);
        if (self)
            Q_EMIT rowChanged(names[row.first], key, byThisProcess);
    }
}

} // namespace Notifier
