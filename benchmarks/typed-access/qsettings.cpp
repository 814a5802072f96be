// SPDX-License-Identifier: MIT
//
// The same values in a QSettings of INI format. Nothing is written to the file while it is measured.
#include "Values.h"

#include <support/Bench.h>

#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace {

struct Peer {
    QTemporaryDir folder;
    QSettings settings{folder.filePath(QStringLiteral("settings.ini")), QSettings::IniFormat};
};

using Shared = std::shared_ptr<Peer>;

// Keys and values stand ready in Qt's own types.
QString const boolKey = QString::fromStdString(Values::boolKey);
QString const intKey = QString::fromStdString(Values::intKey);
QString const stringKey = QString::fromStdString(Values::stringKey);
QString const textKey = QString::fromStdString(Values::textKey);
QString const absentTextKey = QString::fromStdString(Values::absentTextKey);
QString const bytesKey = QString::fromStdString(Values::bytesKey);
QString const listKey = QString::fromStdString(Values::listKey);
QString const numeratorKey = QString::fromStdString(Values::rationalKey + "_N");
QString const denominatorKey = QString::fromStdString(Values::rationalKey + "_D");

template <typename Work>
void addRow(std::string const& row, Work work)
{
    Bench::add(row, "QSettings", work);
}

void writeRational(Peer& peer)
{
    peer.settings.setValue(numeratorKey, static_cast<int>(Values::rational.numerator()));
    peer.settings.setValue(denominatorKey, static_cast<int>(Values::rational.denominator()));
}

void addWrites(Shared const& peer)
{
    addRow("write bool", [peer] { peer->settings.setValue(boolKey, Values::boolean); });
    addRow("write int", [peer] { peer->settings.setValue(intKey, Values::number); });
    addRow("write std::string", [peer] { peer->settings.setValue(stringKey, QString::fromStdString(Values::string)); });
    addRow("write QString", [peer] { peer->settings.setValue(textKey, Values::text); });
    addRow("write QByteArray", [peer] { peer->settings.setValue(bytesKey, Values::bytes); });
    addRow("write QStringList", [peer] { peer->settings.setValue(listKey, Values::list); });
    addRow("write rational", [peer] { writeRational(*peer); });
}

void addReads(Shared const& peer)
{
    addRow("read bool", [peer] { return peer->settings.value(boolKey, false).toBool(); });
    addRow("read int", [peer] { return peer->settings.value(intKey, 0).toInt(); });
    addRow("read std::string", [peer] { return peer->settings.value(stringKey).toString().toStdString(); });
    addRow("read QString", [peer] { return peer->settings.value(textKey).toString(); });
    addRow("read absent QString", [peer] { return peer->settings.value(absentTextKey, Values::text).toString(); });
    addRow("read QByteArray", [peer] { return peer->settings.value(bytesKey).toByteArray(); });
    addRow("read QStringList", [peer] { return peer->settings.value(listKey).toStringList(); });
    addRow("read rational", [peer] {
        return boost::rational<long long>(peer->settings.value(numeratorKey, 0).toInt(), peer->settings.value(denominatorKey, 1).toInt());
    });
}

void setAll(Peer& peer)
{
    peer.settings.setValue(boolKey, Values::boolean);
    peer.settings.setValue(intKey, Values::number);
    peer.settings.setValue(stringKey, Values::text);
    peer.settings.setValue(textKey, Values::text);
    peer.settings.setValue(bytesKey, Values::bytes);
    peer.settings.setValue(listKey, Values::list);
    writeRational(peer);
}

Bench::Registration const registration([] {
    auto const peer = std::make_shared<Peer>();
    setAll(*peer);
    addReads(peer);
    addWrites(peer);
});

} // namespace
