// SPDX-License-Identifier: MIT
//
// The same values in a KConfig of one file. Nothing is written to the file while it is measured.
#include "Values.h"

#include <support/Bench.h>

#include <KConfig>
#include <KConfigGroup>

#include <QTemporaryDir>

#include <memory>

namespace {

struct Peer {
    QTemporaryDir folder;
    KConfig config{folder.filePath(QStringLiteral("settings")), KConfig::SimpleConfig};
    KConfigGroup group{&config, "Settings"};
};

using Shared = std::shared_ptr<Peer>;

// Its keys are C strings.
char const* const boolKey = Values::boolKey.c_str();
char const* const intKey = Values::intKey.c_str();
char const* const stringKey = Values::stringKey.c_str();
char const* const textKey = Values::textKey.c_str();
char const* const absentTextKey = Values::absentTextKey.c_str();
char const* const bytesKey = Values::bytesKey.c_str();
char const* const listKey = Values::listKey.c_str();
std::string const numeratorKey = Values::rationalKey + "_N";
std::string const denominatorKey = Values::rationalKey + "_D";

template <typename Work>
void addRow(std::string const& row, Work work)
{
    Bench::add(row, "KConfig", work);
}

void writeRational(KConfigGroup& group)
{
    group.writeEntry(numeratorKey.c_str(), static_cast<int>(Values::rational.numerator()));
    group.writeEntry(denominatorKey.c_str(), static_cast<int>(Values::rational.denominator()));
}

void addWrites(Shared const& peer)
{
    addRow("write bool", [peer] { peer->group.writeEntry(boolKey, Values::boolean); });
    addRow("write int", [peer] { peer->group.writeEntry(intKey, Values::number); });
    addRow("write std::string", [peer] { peer->group.writeEntry(stringKey, QByteArray::fromStdString(Values::string)); });
    addRow("write QString", [peer] { peer->group.writeEntry(textKey, Values::text); });
    addRow("write QByteArray", [peer] { peer->group.writeEntry(bytesKey, Values::bytes); });
    addRow("write QStringList", [peer] { peer->group.writeEntry(listKey, Values::list); });
    addRow("write rational", [peer] { writeRational(peer->group); });
}

void addReads(Shared const& peer)
{
    addRow("read bool", [peer] { return peer->group.readEntry(boolKey, false); });
    addRow("read int", [peer] { return peer->group.readEntry(intKey, 0); });
    addRow("read std::string", [peer] { return peer->group.readEntry(stringKey, QByteArray()).toStdString(); });
    addRow("read QString", [peer] { return peer->group.readEntry(textKey, QString()); });
    addRow("read absent QString", [peer] { return peer->group.readEntry(absentTextKey, Values::text); });
    addRow("read QByteArray", [peer] { return peer->group.readEntry(bytesKey, QByteArray()); });
    addRow("read QStringList", [peer] { return peer->group.readEntry(listKey, QStringList()); });
    addRow("read rational", [peer] {
        return boost::rational<long long>(peer->group.readEntry(numeratorKey.c_str(), 0), peer->group.readEntry(denominatorKey.c_str(), 1));
    });
}

void setAll(KConfigGroup& group)
{
    group.writeEntry(boolKey, Values::boolean);
    group.writeEntry(intKey, Values::number);
    group.writeEntry(stringKey, Values::text);
    group.writeEntry(textKey, Values::text);
    group.writeEntry(bytesKey, Values::bytes);
    group.writeEntry(listKey, Values::list);
    writeRational(group);
}

Bench::Registration const registration([] {
    auto const peer = std::make_shared<Peer>();
    setAll(peer->group);
    addReads(peer);
    addWrites(peer);
});

} // namespace
