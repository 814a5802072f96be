// SPDX-License-Identifier: MIT
//
// The document that an import reads: an accepted one survives the round trip and holds nothing that a store refuses; a
// refused one has an error with a fault and a remedy in printable text.
#include <support/Fuzz.h>
#include <support/names/NaiveNames.h>

#include <Inspection/ExportDocument.h>

#include <algorithm>
#include <tuple>

using Catalogue::Store;
using Fuzz::expect;
using Inspection::Document;
using Inspection::Entry;

namespace {

bool isSame(Entry const& left, Entry const& right)
{
    return std::tie(left.store, left.key, left.kind, left.value) == std::tie(right.store, right.key, right.kind, right.value);
}

// The alternative of a value of each kind; a redacted one has none.
void checkKind(Entry const& entry)
{
    using Storage::Kind;
    constexpr Kind kinds[] = {Kind::boolean, Kind::integer, Kind::text, Kind::bytes};
    std::size_t const index = entry.value.index();
    expect(index == 0 || entry.kind == kinds[index - 1], "a value is of its kind");
}

void checkTaken(Document const& document)
{
    for (std::size_t index = 0; index < document.entries.size(); ++index) {
        Entry const& entry = document.entries[index];
        checkKind(entry);
        expect(entry.key.find('\0') == std::string::npos, "a key holds no NUL");
        if (index == 0)
            continue;
        Entry const& before = document.entries[index - 1];
        expect(std::tie(before.store, before.key) < std::tie(entry.store, entry.key), "entries are sorted, and none stands there twice");
    }
}

void checkWrittenAgain(Document const& document)
{
    std::string const bytes = Inspection::written(document);
    expect(oracle::isUtf8(bytes), "a document is UTF-8");
    for (char const byte : bytes)
        expect(byte == '\n' || (static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7f), "a document holds no control character");
    Document const again = Inspection::readDocument(bytes);
    Fuzz::expectEqual("made", again.made, document.made);
    Fuzz::expectEqual("product", again.product, document.product);
    expect(again.entries.size() == document.entries.size(), "no entry is lost");
    for (std::size_t index = 0; index < document.entries.size(); ++index)
        if (!isSame(again.entries[index], document.entries[index]))
            Fuzz::finding("an entry comes back", {document.entries[index].key, again.entries[index].key});
    Fuzz::expectEqual("written again", Inspection::written(again), bytes);
}

void checkText(std::string const& text)
{
    if (text.empty() || !oracle::isUtf8(text) || text.size() > 2000)
        Fuzz::finding("a text of modest length in UTF-8", {text});
    for (char const byte : text)
        if (static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f)
            Fuzz::finding("a text without control characters", {text});
}

void checkRefused(Inspection::DocumentError const& error)
{
    checkText(error.fault());
    checkText(error.remedy());
    expect(error.line() == 0 || error.place().empty(), "an error has a line or a place");
}

// A key that passes is one that the library reads, as what it is, from the store in which it stands.
void checkKeysOf(Document const& document)
{
    try {
        checkKeys(document, false);
    } catch (Inspection::DocumentError const& error) {
        checkRefused(error);
        return;
    }
    for (Entry const& entry : document.entries) {
        std::string const indication = "Indication/";
        std::string const favorites = "favorites_";
        Catalogue::Preference const* const row = Catalogue::findPreference(entry.key);
        if (row)
            expect(row->store == entry.store && !std::string(Catalogue::dataClassName(row->dataClass)).empty(),
                   "a preference in its store");
        else if (entry.key.compare(0, indication.size(), indication) == 0)
            expect(entry.kind == Storage::Kind::bytes && entry.store == Store::product, "an indication");
        else
            expect(entry.key.compare(0, favorites.size(), favorites) == 0 && entry.kind == Storage::Kind::text &&
                       entry.store == Store::product,
                   "a list of favourites");
    }
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Fuzz::BoundLibrary const library;
    try {
        Document const document = Inspection::readDocument(std::string(data, data + size));
        checkTaken(document);
        checkWrittenAgain(document);
        checkKeysOf(document);
    } catch (Inspection::DocumentError const& error) {
        checkRefused(error);
    }
    return 0;
}
