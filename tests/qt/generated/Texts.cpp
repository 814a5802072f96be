// SPDX-License-Identifier: MIT
#include <generated/Subjects.h>

#include <Catalogue/Catalogue.h>

#include <climits>

namespace {

using namespace std::string_literals; // texts with a NUL

Texts const texts = {"a",
                     "B",
                     "z",
                     "0",
                     "|#|",
                     "|",
                     "#",
                     "/",
                     "%1",
                     "%2",
                     "%L1",
                     " ",
                     "\n",
                     "\r\n",
                     "\0"s,
                     "\x7F",
                     "\xEF\xBB\xBF",
                     u8"\u00C9",
                     u8"\u0130",
                     u8"\u1E9E",
                     u8"\u03A3",
                     u8"\u01C5",
                     u8"\uFB01",
                     u8"e\u0301",
                     u8"\u05D0",
                     u8"\uFFFD",
                     u8"\uFFFF",
                     u8"\U00010400",
                     u8"\U0001F3AC",
                     u8"\U0010FFFF",
                     "\xFF",
                     "\xC0\x80",
                     "\xC3",
                     "\xE2\x82",
                     "\xED\xA0\x80",
                     "\xF0\x9F",
                     "\xF4\x90\x80\x80",
                     "\xF8\x88\x80\x80\x80"};

std::string anyBytes(Chance& chance)
{
    if (!chance.oneIn(4))
        return chance.some(texts, 6);
    std::string result;
    for (std::size_t count = chance.below(12); count > 0; --count)
        result += static_cast<char>(chance.below(256));
    return result;
}

QString anyText(Chance& chance)
{
    // The ends of the ranges that have meanings of their own, surrogates among them.
    std::vector<unsigned> const ends = {0, 'a', 'Z', 0xC9, 0x130, 0x3A3, 0xD800, 0xDBFF, 0xDC00, 0xDFFF, 0xFEFF, 0xFFFE, 0xFFFF};
    QString result;
    for (std::size_t count = chance.below(6); count > 0; --count) {
        bool const isEnd = chance.oneIn(2);
        result += QChar(static_cast<ushort>(isEnd ? chance.of(ends) : chance.below(0x10000)));
    }
    return result;
}

} // namespace

void askTexts(Block& block)
{
    std::string const bytes = anyBytes(block.chance);
    QString const text = anyText(block.chance);
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, {}});
    block.store->text = bytes;
    block.store->format = bytes;
    block.product->extensions = bytes;
    std::string const given = " of " + Answers::shown(bytes);
    QString const decoded = read("key", QString(), false);
    block.ask("text" + given, decoded);
    write("key", decoded, false);
    block.askShown("encoded" + given, block.store->takeWritten());
    block.ask("list" + given, read("key", QStringList(), false));
    block.ask("extensions" + given, Settings::projectFileOpenFilter());
    block.store->text = "missing";
    block.ask("lower case" + given, Answers::withoutTime(Settings::generateAudioRecordFilePath()));
    write("key", text, false);
    block.askShown("encoded " + Answers::shown(text), block.store->takeWritten());
    Settings::indicationObject(text);
    block.ask("key of " + Answers::shown(text), block.store->lastKey());
}

namespace {

std::vector<int> const numbers = {0, 1, -1, 2, 60, 1000, INT_MAX, INT_MIN};

template <typename T>
void askReadAndWrite(Block& block, T const& defaultValue)
{
    try {
        T const value = read("key", defaultValue, true);
        block.ask("read", value);
        write("key", value, true);
        block.askShown("written", block.store->takeWritten());
    } catch (boost::bad_rational const&) {
        block.askShown("read", "no fraction");
    }
}

void askPreference(Block& block)
{
    Catalogue::Preference const& preference = block.chance.of(Catalogue::preferences());
    Catalogue::Value const value = preference.read();
    std::visit([&](auto const& answer) { block.ask(preference.name, answer); }, value);
    preference.write(value);
    block.askShown(std::string(preference.name) + " written", block.store->takeWritten());
}

} // namespace

void askValues(Block& block)
{
    Chance& chance = block.chance;
    block.store->boolean = chance.oneIn(2);
    block.store->text = anyBytes(chance);
    block.store->format = block.store->text;
    int const number = chance.oneIn(2) ? chance.of(numbers) : static_cast<int>(chance.any());
    block.store->numbers = {number, chance.of(numbers)};
    block.product->kind = static_cast<int>(chance.below(2));
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, {}});
    block.note("stored " + Answers::shown(block.store->text) + ' ' + Answers::shown(number));
    for (int count = 0; count < 4; ++count)
        askPreference(block);
    askReadAndWrite(block, QStringList());
    askReadAndWrite(block, boost::rational<long long>(1, 2));
    QString const member = anyText(chance);
    Catalogue::Family const& family = chance.of(Catalogue::families());
    std::visit([&](auto const& answer) { block.ask(family.name, answer); }, family.read(member));
    block.ask("key of " + Answers::shown(member), block.store->lastKey());
}
