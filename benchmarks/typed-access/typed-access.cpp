// SPDX-License-Identifier: MIT
//
// Reads and writes of each type through the library, on a store that does next to nothing. The floor is what a caller
// could do without the library: lock the weak reference, make the store's call, and convert the value with Qt's and the
// platform library's own functions.
#include "Floor.h"
#include "Values.h"

#include <support/Bench.h>
#include <support/BoundLibrary.h>

#include <Lumora/Util/ByteConversion.h>

using Bench::inProductStorage;

namespace {

struct Surroundings {
    Bench::BoundLibrary library;
    std::weak_ptr<ISettingsStorage> store{library.productValues};

    Surroundings()
    {
        Floor::store = store;
        write(Values::boolKey, Values::boolean, inProductStorage);
        write(Values::intKey, Values::number, inProductStorage);
        write(Values::stringKey, Values::string, inProductStorage);
        write(Values::textKey, Values::text, inProductStorage);
        write(Values::bytesKey, Values::bytes, inProductStorage);
        write(Values::listKey, Values::list, inProductStorage);
        write(Values::rationalKey, Values::rational, inProductStorage);
    }
};

using Shared = std::shared_ptr<Surroundings>;

// One row. `stored` makes the store's calls with everything at hand, so that what the store allocates can be left out.
template <typename Library, typename Floor, typename Stored>
void addRow(std::string const& row, Library library, Floor floor, Stored stored)
{
    auto const prepare = [=](benchmark::State& state) {
        long long const ofTheStore = Bench::allocationsOf(stored).count;
        state.counters["allocations"] = static_cast<double>(Bench::allocationsOf(library).count - ofTheStore);
        state.counters["floor allocations"] = static_cast<double>(Bench::allocationsOf(floor).count - ofTheStore);
    };
    constexpr int calls = 200; // some microseconds, beside which the clock does not count
    Bench::addByTurns(row, prepare, library, floor, calls)->Iterations(Bench::isShort() ? 1 : 1000);
}

// For values that the store takes as they are. Written out, the lock and the call stand where the value is wanted, which
// saves the call of a function.
template <typename Library, typename Floor, typename WrittenOut>
void addPlainRow(std::string const& row, Library library, Floor floor, WrittenOut writtenOut)
{
    addRow(row, library, floor, floor);
    Bench::add(row, "written out", writtenOut);
}

QString const separator = QStringLiteral("|#|");

void addReads(Shared const& all)
{
    static std::string const noString;
    static QString const noText;
    static std::vector<unsigned char> const noBytes;
    addPlainRow(
        "read bool", [] { return read(Values::boolKey, false, inProductStorage); }, [] { return Floor::getBool(Values::boolKey, false); },
        [all] { return all->store.lock()->getBool(Values::boolKey, false); });
    addPlainRow(
        "read int", [] { return read(Values::intKey, 0, inProductStorage); }, [] { return Floor::getInt(Values::intKey, 0); },
        [all] { return all->store.lock()->getInt(Values::intKey, 0); });
    addPlainRow(
        "read std::string", [] { return read(Values::stringKey, noString, inProductStorage); },
        [] { return Floor::getString(Values::stringKey, noString); },
        [all] { return all->store.lock()->getString(Values::stringKey, noString); });
    addRow(
        "read QString", [all] { return read(Values::textKey, noText, inProductStorage); },
        [all] { return QString::fromStdString(all->store.lock()->getString(Values::textKey, noText.toStdString())); },
        [all] { return all->store.lock()->getString(Values::textKey, noString); });
    addRow(
        "read absent QString", [all] { return read(Values::absentTextKey, Values::text, inProductStorage); },
        [all] { return QString::fromStdString(all->store.lock()->getString(Values::absentTextKey, Values::text.toStdString())); },
        [all] { return all->store.lock()->getString(Values::absentTextKey, Values::string); });
    addRow(
        "read QByteArray", [all] { return read(Values::bytesKey, QByteArray(), inProductStorage); },
        [all] { return Lumora::Util::VectorByteToQByteArray(all->store.lock()->getBytes(Values::bytesKey, {})); },
        [all] { return all->store.lock()->getBytes(Values::bytesKey, noBytes); });
    addRow(
        "read QStringList", [all] { return read(Values::listKey, QStringList(), inProductStorage); },
        [all] {
            return QString::fromStdString(all->store.lock()->getString(Values::listKey, noString)).split(separator, Qt::SkipEmptyParts);
        },
        [all] { return all->store.lock()->getString(Values::listKey, noString); });
    addRow(
        "read rational", [all] { return read(Values::rationalKey, boost::rational<long long>(), inProductStorage); },
        [all] {
            int const numerator = all->store.lock()->getInt(Values::rationalKey + "_N", 0);
            int const denominator = all->store.lock()->getInt(Values::rationalKey + "_D", 1);
            return boost::rational<long long>(numerator, denominator);
        },
        [all] { return all->store.lock()->getInt(Values::intKey, 0); });
}

void addWrites(Shared const& all)
{
    addPlainRow(
        "write bool", [] { write(Values::boolKey, Values::boolean, inProductStorage); },
        [] { Floor::setBool(Values::boolKey, Values::boolean); }, [all] { all->store.lock()->setBool(Values::boolKey, Values::boolean); });
    addPlainRow(
        "write int", [] { write(Values::intKey, Values::number, inProductStorage); }, [] { Floor::setInt(Values::intKey, Values::number); },
        [all] { all->store.lock()->setInt(Values::intKey, Values::number); });
    addPlainRow(
        "write std::string", [] { write(Values::stringKey, Values::string, inProductStorage); },
        [] { Floor::setString(Values::stringKey, Values::string); },
        [all] { all->store.lock()->setString(Values::stringKey, Values::string); });
    addRow(
        "write QString", [all] { write(Values::textKey, Values::text, inProductStorage); },
        [all] { all->store.lock()->setString(Values::textKey, Values::text.toStdString()); },
        [all] { all->store.lock()->setString(Values::textKey, Values::string); });
    addRow(
        "write QByteArray", [all] { write(Values::bytesKey, Values::bytes, inProductStorage); },
        [all] { all->store.lock()->setBytes(Values::bytesKey, Lumora::Util::QByteArrayToVectorByte(Values::bytes)); },
        [all, ready = Lumora::Util::QByteArrayToVectorByte(Values::bytes)] { all->store.lock()->setBytes(Values::bytesKey, ready); });
    addRow(
        "write QStringList", [all] { write(Values::listKey, Values::list, inProductStorage); },
        [all] { all->store.lock()->setString(Values::listKey, Values::list.join(separator).toStdString()); },
        [all, ready = Values::list.join(separator).toStdString()] { all->store.lock()->setString(Values::listKey, ready); });
    addRow(
        "write rational", [all] { write(Values::rationalKey, Values::rational, inProductStorage); },
        [all] {
            all->store.lock()->setInt(Values::rationalKey + "_N", static_cast<int>(Values::rational.numerator()));
            all->store.lock()->setInt(Values::rationalKey + "_D", static_cast<int>(Values::rational.denominator()));
        },
        [all] { all->store.lock()->setInt(Values::intKey, Values::number); });
}

// A library that answers something else is not worth measuring.
void requireAnswers()
{
    Bench::require(read(Values::listKey, QStringList(), inProductStorage) == Values::list, "another list");
    Bench::require(read(Values::rationalKey, boost::rational<long long>(), inProductStorage) == Values::rational, "another fraction");
    Bench::require(read(Values::textKey, QString(), inProductStorage) == Values::text, "another text");
    Bench::require(read(Values::absentTextKey, Values::text, inProductStorage) == Values::text, "another default");
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    requireAnswers();
    addReads(all);
    addWrites(all);
});

} // namespace
