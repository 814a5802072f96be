// SPDX-License-Identifier: MIT
//
// Values of any kind and content in the stores, read through every preference, the settings under names of the editor's
// choice, and the reads of lists and fractions.
//
// An input has the kinds that are stored under the preferences in turn (b, i, s or x for bytes; anything else for
// nothing), a text, a whole number, the two halves of a fraction (stored as a text where they are no number, and not at
// all where they are empty), the two halves of its default, and a name.
#include <support/Fuzz.h>

#include <Catalogue/Catalogue.h>

#include <boost/rational.hpp>

#include <algorithm>
#include <limits>
#include <optional>

using Catalogue::Value;
using Fuzz::utf8;

namespace {

using Fraction = boost::rational<long long>;

// What is stored under each key in turn.
struct Stored {
    std::string kinds;
    std::string text;
    int number;

    char kind(std::size_t index) const { return kinds.empty() ? '-' : kinds[index % kinds.size()]; }
    std::vector<unsigned char> bytes() const { return {text.begin(), text.end()}; }
};

void store(ISettingsStorage& storage, std::string const& key, Stored const& stored, char kind)
{
    storage.remove(key);
    if (kind == 'b')
        storage.setBool(key, stored.number % 2 != 0);
    if (kind == 'i')
        storage.setInt(key, stored.number);
    if (kind == 's')
        storage.setString(key, stored.text);
    if (kind == 'x')
        storage.setBytes(key, stored.bytes());
}

QStringList elements(QString const& text)
{
    QStringList result;
    QString element;
    for (int at = 0; at <= text.size(); ++at) {
        bool const isSeparator = text.mid(at, 3) == QLatin1String("|#|");
        if (at < text.size() && !isSeparator) {
            element += text[at];
            continue;
        }
        if (!element.isEmpty())
            result.append(element);
        element.clear();
        at += isSeparator ? 2 : 0;
    }
    return result;
}

// What a read of the type of `defaultValue` gives.
Value expected(Stored const& stored, char kind, Value const& defaultValue)
{
    if (std::holds_alternative<bool>(defaultValue) && kind == 'b')
        return stored.number % 2 != 0;
    if (std::holds_alternative<int>(defaultValue) && kind == 'i')
        return stored.number;
    if (std::holds_alternative<std::string>(defaultValue) && kind == 's')
        return stored.text;
    if (std::holds_alternative<QString>(defaultValue) && kind == 's')
        return utf8(stored.text);
    if (std::holds_alternative<QStringList>(defaultValue) && kind == 's')
        return elements(utf8(stored.text));
    if (std::holds_alternative<QByteArray>(defaultValue) && kind == 'x')
        return QByteArray(stored.text.data(), static_cast<int>(stored.text.size()));
    return defaultValue;
}

void checkPreferences(Fuzz::BoundLibrary const& library, Stored const& stored)
{
    std::vector<Catalogue::Preference> const& rows = Catalogue::preferences();
    static std::vector<Value> const defaults = [&] {
        std::vector<Value> values;
        for (Catalogue::Preference const& row : rows)
            values.push_back(Catalogue::inspect(row).defaultValue);
        return values;
    }();
    for (std::size_t index = 0; index < rows.size(); ++index) {
        Catalogue::Preference const& row = rows[index];
        auto const& values = row.store == Catalogue::Store::common ? library.commonValues : library.productValues;
        store(*values, row.name, stored, stored.kind(index));
        Value const value = row.read();
        Fuzz::expect(value == expected(stored, stored.kind(index), defaults[index]), std::string(row.name) + " is not what is stored");
        row.write(value);
        // Texts that begin with a byte order mark lose one at each read.
        bool const losesMark = std::holds_alternative<QString>(value) && std::get<QString>(value).startsWith(QChar(0xFEFF));
        bool const losesMarkInList =
            std::holds_alternative<QStringList>(value) && std::get<QStringList>(value).join(QString()).startsWith(QChar(0xFEFF));
        Fuzz::expect(losesMark || losesMarkInList || row.read() == value, std::string(row.name) + " does not come back as it was written");
    }
}

// The settings under names: their keys are made from the name as it is.
void checkFamilies(Fuzz::BoundLibrary const& library, Stored const& stored, std::string const& name)
{
    std::string const read = utf8(name).toStdString();
    store(*library.productValues, "Indication/" + read, stored, stored.kind(0));
    Fuzz::expect(Value(Settings::indicationObject(utf8(name))) == expected(stored, stored.kind(0), QByteArray()), "an indication object");
    Settings::setIndicationObject(utf8(name), QByteArray("a\0b", 3));
    Fuzz::expect(library.productValues->getBytes("Indication/" + read, {}) == std::vector<unsigned char>{'a', 0, 'b'},
                 "an indication object that is set");
    library.productValues->remove("Indication/" + read);

    store(*library.productValues, "favorites_" + read, stored, stored.kind(0));
    Fuzz::expect(Value(Settings::favoriteItems(utf8(name))) == expected(stored, stored.kind(0), QStringList()), "favourites");
    library.productValues->remove("favorites_" + read);
}

// One half of a fraction as it is stored; nothing where a read falls back on the default.
std::optional<int> storeHalf(ISettingsStorage& storage, std::string const& key, std::string const& half)
{
    storage.remove(key);
    if (half.empty())
        return std::nullopt;
    bool const isNumber = half.find_first_not_of("-0123456789") == std::string::npos;
    if (!isNumber) {
        storage.setString(key, half);
        return std::nullopt;
    }
    storage.setInt(key, static_cast<int>(Fuzz::number(half)));
    return static_cast<int>(Fuzz::number(half));
}

long long low32Bits(long long value)
{
    long long const low = value & 0xFFFFFFFF;
    return low > 0x7FFFFFFF ? low - 0x100000000 : low;
}

std::optional<Fraction> readFraction(Fraction const& defaultValue)
{
    try {
        return ::read("fraction", defaultValue, false);
    } catch (boost::bad_rational const& error) {
        Fuzz::expectEqual("text of a zero denominator", std::string(error.what()), "bad rational: zero denominator");
        return std::nullopt;
    }
}

bool areInLowestTerms(long long numerator, long long denominator)
{
    while (denominator != 0) {
        long long const rest = numerator % denominator;
        numerator = denominator;
        denominator = rest;
    }
    return numerator == 1 || numerator == -1;
}

void checkFraction(Fuzz::BoundLibrary const& library, std::vector<std::string> const& halves)
{
    std::optional<int> const storedNumerator = storeHalf(*library.productValues, "fraction_N", halves[0]);
    std::optional<int> const storedDenominator = storeHalf(*library.productValues, "fraction_D", halves[1]);
    // Of such a size that the fraction itself can be made.
    long long const limit = std::numeric_limits<long long>::max();
    long long const defaultDenominator = std::clamp(Fuzz::number(halves[3]), -limit, limit);
    Fraction const defaultValue(std::clamp(Fuzz::number(halves[2]), -limit, limit), defaultDenominator == 0 ? 1 : defaultDenominator);
    long long const numerator = storedNumerator.value_or(low32Bits(defaultValue.numerator()));
    long long const denominator = storedDenominator.value_or(low32Bits(defaultValue.denominator()));

    std::optional<Fraction> const value = readFraction(defaultValue);
    Fuzz::expect(value.has_value() == (denominator != 0), "a fraction is refused just where its denominator is 0");
    if (!value)
        return;
    Fuzz::expect(value->denominator() > 0 && value->numerator() * denominator == numerator * value->denominator(), "a fraction's value");
    Fuzz::expect(areInLowestTerms(value->numerator(), value->denominator()), "a fraction in lowest terms");
    ::write("fraction", *value, false);
    Fuzz::expect(library.productValues->getInt("fraction_N", 0) == low32Bits(value->numerator()) &&
                     library.productValues->getInt("fraction_D", 0) == low32Bits(value->denominator()),
                 "a fraction as it is stored");
    // 2147483648, which is read from the smallest whole number over -1, is the one that does not fit.
    bool const fits = value->numerator() <= 0x7FFFFFFF && value->denominator() <= 0x7FFFFFFF;
    Fuzz::expect(!fits || readFraction(Fraction(1)) == value, "a fraction does not come back as it was written");
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Fuzz::BoundLibrary const library;
    std::vector<std::string> const lines = Fuzz::lines(data, size, 8);
    Stored const stored{lines[0], lines[1], static_cast<int>(Fuzz::number(lines[2]))};
    checkPreferences(library, stored);
    checkFamilies(library, stored, lines[7]);
    checkFraction(library, {lines.begin() + 3, lines.begin() + 7});
    return 0;
}
