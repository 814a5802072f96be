// SPDX-License-Identifier: MIT
//
// Reads and writes of each type through the library, on a store that does next to nothing. The floor is what a caller
// could do without the library: lock the weak reference, make the store's call, and convert what the store does not
// hold, with as few allocations as there can be. The floor may know what the library may not: that texts are ASCII.
#include "Floor.h"
#include "Values.h"

#include <support/Bench.h>
#include <support/BoundLibrary.h>

#include <algorithm>

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

std::string ascii(QString const& text)
{
    std::string result(static_cast<std::size_t>(text.size()), '\0');
    std::transform(text.begin(), text.end(), result.begin(), [](QChar character) { return character.toLatin1(); });
    return result;
}

QString latin(char const* begin, std::size_t size) { return QString::fromLatin1(begin, static_cast<int>(size)); }

QByteArray qtBytes(std::vector<unsigned char> const& bytes)
{
    return {reinterpret_cast<char const*>(bytes.data()), static_cast<int>(bytes.size())};
}

std::vector<unsigned char> storedBytes(QByteArray const& bytes) { return {bytes.begin(), bytes.end()}; }

std::string const separator = "|#|";

std::string joined(QStringList const& list)
{
    std::string result;
    result.reserve(256);
    for (QString const& element : list) {
        if (!result.empty())
            result += separator;
        std::transform(element.begin(), element.end(), std::back_inserter(result), [](QChar character) { return character.toLatin1(); });
    }
    return result;
}

// Decoded in one piece, as a mark of byte order counts at the start alone.
QStringList parts(std::string const& utf8)
{
    QString const text = latin(utf8.data(), utf8.size());
    static QString const between = QString::fromStdString(separator);
    QStringList result;
    result.reserve(8);
    for (int begin = 0; begin < text.size();) {
        int const found = text.indexOf(between, begin);
        int const end = found < 0 ? text.size() : found;
        if (end > begin)
            result.push_back(text.mid(begin, end - begin));
        begin = end + between.size();
    }
    return result;
}

// Both halves' keys from one text.
template <typename Call>
void callWithHalves(std::string const& key, Call const& call)
{
    std::string half;
    half.reserve(key.size() + 2);
    half.append(key).append("_N");
    call(half);
    half.back() = 'D';
    call(half);
}

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
        [all] {
            std::string const stored = all->store.lock()->getString(Values::textKey, ascii(noText));
            return latin(stored.data(), stored.size());
        },
        [all] { return all->store.lock()->getString(Values::textKey, noString); });
    addRow(
        "read absent QString", [all] { return read(Values::absentTextKey, Values::text, inProductStorage); },
        [all] {
            std::string const fallback = ascii(Values::text);
            std::string const stored = all->store.lock()->getString(Values::absentTextKey, fallback);
            return stored == fallback ? Values::text : latin(stored.data(), stored.size());
        },
        [all] { return all->store.lock()->getString(Values::absentTextKey, Values::string); });
    addRow(
        "read QByteArray", [all] { return read(Values::bytesKey, QByteArray(), inProductStorage); },
        [all] { return qtBytes(all->store.lock()->getBytes(Values::bytesKey, {})); },
        [all] { return all->store.lock()->getBytes(Values::bytesKey, noBytes); });
    addRow(
        "read QStringList", [all] { return read(Values::listKey, QStringList(), inProductStorage); },
        [all] { return parts(all->store.lock()->getString(Values::listKey, noString)); },
        [all] { return all->store.lock()->getString(Values::listKey, noString); });
    addRow(
        "read rational", [all] { return read(Values::rationalKey, boost::rational<long long>(), inProductStorage); },
        [all] {
            int halves[] = {0, 1};
            int* next = halves;
            callWithHalves(Values::rationalKey, [&](std::string const& key) {
                *next = all->store.lock()->getInt(key, *next);
                ++next;
            });
            return boost::rational<long long>(halves[0], halves[1]);
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
        [all] { all->store.lock()->setString(Values::textKey, ascii(Values::text)); },
        [all] { all->store.lock()->setString(Values::textKey, Values::string); });
    addRow(
        "write QByteArray", [all] { write(Values::bytesKey, Values::bytes, inProductStorage); },
        [all] { all->store.lock()->setBytes(Values::bytesKey, storedBytes(Values::bytes)); },
        [all, ready = storedBytes(Values::bytes)] { all->store.lock()->setBytes(Values::bytesKey, ready); });
    addRow(
        "write QStringList", [all] { write(Values::listKey, Values::list, inProductStorage); },
        [all] { all->store.lock()->setString(Values::listKey, joined(Values::list)); },
        [all, ready = joined(Values::list)] { all->store.lock()->setString(Values::listKey, ready); });
    addRow(
        "write rational", [all] { write(Values::rationalKey, Values::rational, inProductStorage); },
        [all] {
            long long halves[] = {Values::rational.numerator(), Values::rational.denominator()};
            long long const* next = halves;
            callWithHalves(Values::rationalKey, [&](std::string const& key) { all->store.lock()->setInt(key, static_cast<int>(*next++)); });
        },
        [all] { all->store.lock()->setInt(Values::intKey, Values::number); });
}

// Library and floor must agree, or their times say nothing of one another.
void requireEqualAnswers(Shared const& all)
{
    Bench::require(parts(all->library.productValues->getString(Values::listKey, {})) == Values::list, "the floor splits a list otherwise");
    Bench::require(read(Values::listKey, QStringList(), inProductStorage) == Values::list, "the library splits a list otherwise");
    Bench::require(read(Values::rationalKey, boost::rational<long long>(), inProductStorage) == Values::rational, "another fraction");
    Bench::require(read(Values::textKey, QString(), inProductStorage) == Values::text, "another text");
    Bench::require(read(Values::absentTextKey, Values::text, inProductStorage) == Values::text, "another default");
    Bench::require(joined(Values::list) == all->library.productValues->getString(Values::listKey, {}), "the floor joins a list otherwise");
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    requireEqualAnswers(all);
    addReads(all);
    addWrites(all);
});

} // namespace
