// SPDX-License-Identifier: MIT
#include <Inspection/ExportDocument.h>

#include <Inspection/PreferenceState.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_replace.h>
#include <nlohmann/json.hpp>

#include <Storage/Kind.h>

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <optional>
#include <tuple>
#include <utility>

using Catalogue::Store;
using nlohmann::json;
using nlohmann::ordered_json;

namespace Inspection {

namespace {

using Storage::Kind;

constexpr char const* formatName = "editor-settings export";
constexpr int writtenVersion = 1;
constexpr std::pair<Store, char const*> namedStores[] = {{Store::product, "product"}, {Store::common, "common"}};

char const* storeName(Store store) { return store == Store::product ? "product" : "common"; }

// The first letters of a text that may be long.
std::string shortened(std::string const& text)
{
    constexpr std::size_t most = 100;
    std::u32string const letters = QString::fromStdString(text).toStdU32String();
    return letters.size() <= most ? text : QString::fromStdU32String(letters.substr(0, most - 1)).toStdString() + "\xE2\x80\xA6";
}

// The bytes of the code point at `at`; 0 for none in UTF-8. A byte order mark is one only at the beginning of a text.
std::size_t lengthOfCodePoint(std::string const& text, std::size_t at)
{
    for (std::size_t length = 1; length <= 4; ++length)
        if (isUtf8('x' + text.substr(at, length)))
            return length;
    return 0;
}

} // namespace

std::string nameOf(std::string const& key)
{
    std::string name;
    for (std::size_t at = 0; at < key.size();) {
        std::size_t const length = lengthOfCodePoint(key, at);
        if (length == 0)
            name += "\\x" + QByteArray(1, key[at]).toHex().toStdString();
        else
            name += key[at] == '\\' ? "\\\\" : key.substr(at, length);
        at += std::max<std::size_t>(length, 1);
    }
    return name;
}

namespace {

// Without the NULs, at which what() would end.
std::string joinedNames(Place const& place)
{
    return place.empty() ? "the document" : absl::StrReplaceAll(absl::StrJoin(place, "."), {{absl::string_view("\0", 1), "\\x00"}});
}

} // namespace

DocumentError::DocumentError(Place const& place, std::string const& fault, std::string const& remedy)
    : std::runtime_error(absl::StrCat(joinedNames(place), " ", fault, "; ", remedy)), m_place(place), m_fault(fault), m_remedy(remedy)
{}

DocumentError::DocumentError(std::size_t line, std::size_t column, std::string const& fault, std::string const& remedy)
    : std::runtime_error(absl::StrCat("line ", line, ", column ", column, ": ", fault, "; ", remedy)),
      m_line(line),
      m_column(column),
      m_fault(fault),
      m_remedy(remedy)
{}

// --- Writing ---

namespace {

struct FieldsOfValue {
    ordered_json& fields;

    void operator()(std::monostate) const { fields["redacted"] = true; }
    void operator()(bool value) const { fields["value"] = value; }
    void operator()(int value) const { fields["value"] = value; }
    void operator()(std::string const& value) const
    {
        if (!isUtf8(value))
            fields["encoding"] = "base64";
        fields["value"] = isUtf8(value) ? value : toBase64(value);
    }
    void operator()(std::vector<unsigned char> const& value) const { fields["value"] = toBase64(std::string(value.begin(), value.end())); }
};

std::string lineOf(Entry const& entry)
{
    std::string const dataClass = classOf(entry.key);
    ordered_json fields = {{"kind", Storage::storedWord(entry.kind)},
                           {"class", dataClass.empty() ? ordered_json() : ordered_json(dataClass)}};
    std::visit(FieldsOfValue{fields}, entry.value);
    std::string text;
    for (auto const& field : fields.items())
        text += (text.empty() ? "{" : ", ") + jsonText(field.key()) + ": " + jsonText(field.value());
    return jsonText(nameOf(entry.key)) + ": " + text + '}';
}

} // namespace

ordered_json fieldsOf(std::string const& kind, Storage::SqliteStorage::Value const& value)
{
    ordered_json fields = {{"kind", kind}};
    std::visit(FieldsOfValue{fields}, value);
    return fields;
}

std::string written(Document const& document)
{
    std::string text = "{\n  \"format\": " + jsonText(formatName) + ",\n  \"version\": " + std::to_string(writtenVersion) +
                       ",\n  \"made\": " + jsonText(document.made) + ",\n  \"product\": " + jsonText(document.product) +
                       ",\n  \"stores\": {";
    for (auto const& [store, name] : namedStores) {
        text += std::string(store == namedStores[0].first ? "" : ",") + "\n    " + jsonText(name) + ": {";
        bool isFirst = true;
        for (Entry const& entry : document.entries)
            if (entry.store == store)
                text += std::string(std::exchange(isFirst, false) ? "" : ",") + "\n      " + lineOf(entry);
        text += isFirst ? "}" : "\n    }";
    }
    return text + "\n  }\n}\n";
}

// --- Reading ---

namespace {

char const* const standsTwice = "stands there twice";
char const* const keepOne = "keep one of the two";
std::string const takeAnExport = "give a file that 'editor-settings export' made";

// An error at the last of the first `count` bytes.
DocumentError errorAt(std::string const& bytes, std::size_t count, std::string const& fault, std::string const& remedy)
{
    std::size_t const last = std::min(std::max<std::size_t>(count, 1) - 1, bytes.size());
    std::string const before = bytes.substr(0, last);
    std::size_t const lineEnd = before.rfind('\n');
    std::size_t const begin = lineEnd == std::string::npos ? 0 : lineEnd + 1;
    auto const line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
    return {line, last - begin + 1, fault, remedy};
}

std::string summary(json const& value)
{
    if (value.is_object() || value.is_array())
        return value.is_object() ? "an object" : "an array";
    return shortened(jsonText(value));
}

[[noreturn]] void refuseValue(Place const& place, json const& value, std::string const& accepted)
{
    throw DocumentError(place, "is " + summary(value), "give " + accepted);
}

Place placeOf(Entry const& entry) { return {"stores", storeName(entry.store), nameOf(entry.key)}; }

Place below(Place place, std::string const& name)
{
    place.push_back(name);
    return place;
}

// One object of the document, and its place.
class Fields {
public:
    Fields(json const& object, Place place) : m_object(object), m_place(std::move(place))
    {
        if (!object.is_object())
            refuseValue(m_place, object, "an object, between { and }");
    }

    Place place(std::string const& name) const { return below(m_place, name); }
    Place const& place() const { return m_place; }

    void checkNames(std::vector<std::string> const& names) const
    {
        for (auto const& field : m_object.items())
            if (std::find(names.begin(), names.end(), field.key()) == names.end())
                throw DocumentError(place(field.key()), "means nothing", "remove it: what stands there is " + absl::StrJoin(names, ", "));
    }

    json const* find(char const* name) const
    {
        auto const found = m_object.find(name);
        return found == m_object.end() ? nullptr : &*found;
    }

    json const& at(char const* name) const
    {
        if (json const* const value = find(name))
            return *value;
        throw DocumentError(place(name), "is missing", takeAnExport);
    }

    std::string text(char const* name) const { return textOf(at(name), name); }

    // For what readers only need; nothing where it is missing.
    std::string optionalText(char const* name) const
    {
        json const* const value = find(name);
        return value ? textOf(*value, name) : std::string();
    }

private:
    std::string textOf(json const& value, char const* name) const
    {
        if (!value.is_string())
            refuseValue(place(name), value, "a text, in quotes");
        return value.get<std::string>();
    }

    json const& m_object;
    Place m_place;
};

int hexadecimal(char digit)
{
    static std::string const digits = "0123456789abcdef";
    std::size_t const value = digits.find(digit);
    return value == std::string::npos ? -1 : static_cast<int>(value);
}

// The key that a name stands for. Each has one name only, so that none can stand there twice.
std::string keyOf(std::string const& name, Place const& place)
{
    std::string key;
    for (std::size_t at = 0; at < name.size(); ++at) {
        if (name[at] != '\\') {
            key += name[at];
        } else if (name.compare(at, 2, "\\\\") == 0) {
            key += name[at++];
        } else if (name.size() - at >= 4 && name[at + 1] == 'x' && hexadecimal(name[at + 2]) >= 0 && hexadecimal(name[at + 3]) >= 0) {
            key += static_cast<char>(hexadecimal(name[at + 2]) * 16 + hexadecimal(name[at + 3]));
            at += 3;
        } else {
            break;
        }
    }
    if (nameOf(key) != name)
        throw DocumentError(place,
                            "is not how a key is written: a backslash is doubled, and only a byte that is not UTF-8 stands as \\xHH, in "
                            "small letters",
                            "write it so");
    if (key.find('\0') != std::string::npos)
        throw DocumentError(place, "holds a NUL, which no key can", "remove it");
    return key;
}

bool boolOf(json const& value, Place const& place)
{
    if (!value.is_boolean())
        refuseValue(place, value, "true or false");
    return value.get<bool>();
}

int intOf(json const& value, Place const& place)
{
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    bool const fits = value.is_number_unsigned() ? value.get<std::uint64_t>() <= static_cast<std::uint64_t>(largest)
                                                 : value.is_number_integer() && value.get<std::int64_t>() >= smallest;
    if (!fits)
        refuseValue(place, value, "a whole number from -2147483648 to 2147483647");
    return value.get<int>();
}

std::string bytesOf(std::string const& text, Place const& place)
{
    std::optional<std::string> bytes = fromBase64(text);
    if (!bytes)
        refuseValue(place, text, "bytes in base64");
    return *std::move(bytes);
}

std::string stringOf(Fields const& fields)
{
    std::string const text = fields.text("value");
    if (!fields.find("encoding"))
        return text;
    if (json const& encoding = fields.at("encoding"); encoding != "base64")
        refuseValue(fields.place("encoding"), encoding, "\"base64\", or leave the field out");
    return bytesOf(text, fields.place("value"));
}

Kind kindOf(Fields const& fields)
{
    std::string const word = fields.text("kind");
    std::optional<Kind> const kind = Storage::kindFromWord(word);
    if (!kind)
        refuseValue(fields.place("kind"), word, "bool, int, string or bytes");
    return *kind;
}

Storage::SqliteStorage::Value valueOf(Kind kind, Fields const& fields)
{
    Place const place = fields.place("value");
    if (kind != Kind::text && fields.find("encoding"))
        throw DocumentError(fields.place("encoding"), "is for the kind string only", "remove it");
    if (kind == Kind::boolean)
        return boolOf(fields.at("value"), place);
    if (kind == Kind::integer)
        return intOf(fields.at("value"), place);
    if (kind == Kind::text)
        return stringOf(fields);
    std::string const bytes = bytesOf(fields.text("value"), place);
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

void checkRedacted(Fields const& fields)
{
    for (char const* name : {"value", "encoding"})
        if (fields.find(name))
            throw DocumentError(fields.place(name), "stands beside \"redacted\"", "keep one of the two");
    if (fields.at("redacted") != true)
        refuseValue(fields.place("redacted"), fields.at("redacted"), "true, or a value in its place");
}

Entry entryOf(Store store, std::string const& name, Fields const& fields)
{
    fields.checkNames({"kind", "class", "encoding", "value", "redacted"});
    std::string key = keyOf(name, fields.place());
    Entry entry = {store, kindOf(fields), std::move(key), {}};
    if (json const* const dataClass = fields.find("class"); dataClass && !dataClass->is_null())
        fields.text("class"); // for readers only
    if (fields.find("redacted"))
        checkRedacted(fields);
    else
        entry.value = valueOf(entry.kind, fields);
    return entry;
}

// Builds the value of a document from what the parser finds, and so sees what the finished value no longer tells: names
// that stand twice. Each entry is taken out of the value at its end, as the value of a large document would take dozens of
// times its size. Nothing grows with the depth of the document but a counter, as a deep value could not even be destroyed
// without a deep stack; documents hold no arrays, so one is passed over.
class Builder final : public nlohmann::json_sax<json> {
public:
    explicit Builder(std::string const& bytes) : m_bytes(bytes) {}

    // What remains beside the entries.
    json takeRest() { return std::move(m_root); }
    // In the order of the document.
    std::deque<Entry> takeEntries() { return std::move(m_entries); }
    // The first fault of an entry.
    std::optional<DocumentError> const& fault() const { return m_fault; }

    bool null() override { return add(nullptr); }
    bool boolean(bool value) override { return add(value); }
    bool number_integer(number_integer_t value) override { return add(value); }
    bool number_unsigned(number_unsigned_t value) override { return add(value); }
    bool number_float(number_float_t value, string_t const& /*text*/) override { return add(value); }
    bool string(string_t& value) override { return add(std::move(value)); }
    bool binary(binary_t& /*value*/) override { return true; } // JSON knows none

    bool start_object(std::size_t /*size*/) override
    {
        if (m_passedOver == 0 && m_open.size() == deepest)
            throw DocumentError(m_names, "is nested too deeply", takeAnExport);
        if (m_passedOver == 0)
            m_open.push_back(&place(json::object()));
        else
            ++m_passedOver;
        m_names.resize(m_open.size());
        return true;
    }

    bool key(string_t& name) override
    {
        if (m_passedOver > 0)
            return true;
        m_names.back() = name;
        if (m_open.back()->contains(name))
            throw DocumentError(m_names, standsTwice, keepOne);
        return true;
    }

    bool end_object() override
    {
        if (m_passedOver > 0)
            return end_array();
        std::optional<Store> const store = storeOfEntry();
        json const* const fields = m_open.back();
        m_open.pop_back();
        m_names.pop_back();
        if (store) {
            takeEntry(*store, *fields);
            m_open.back()->erase(m_names.back());
        }
        return true;
    }

    bool start_array(std::size_t /*size*/) override
    {
        if (m_passedOver == 0)
            place(json::array());
        ++m_passedOver;
        return true;
    }

    bool end_array() override
    {
        --m_passedOver;
        return true;
    }

    bool parse_error(std::size_t position, std::string const& /*token*/, nlohmann::detail::exception const& error) override
    {
        // The parser's text begins with a code in brackets and a place, and ends with what was read last, at any length.
        std::string what = error.what();
        std::size_t const begin = what.find(": syntax error ");
        what = begin == std::string::npos ? "a number is too large" : what.substr(begin + 2);
        what = what.substr(0, what.find("; last read: "));
        throw errorAt(m_bytes, position, what, "correct it there, or export the file again");
    }

private:
    static constexpr std::size_t deepest = 8; // twice as much as documents have

    // The store of the entry that is the innermost open object; nullopt where that is no entry.
    std::optional<Store> storeOfEntry() const
    {
        if (m_open.size() == 4 && m_names[0] == "stores")
            for (auto const& [store, name] : namedStores)
                if (m_names[1] == name)
                    return store;
        return std::nullopt;
    }

    // Faults of the whole document come first: another version may allow such an entry.
    void takeEntry(Store store, json const& fields)
    {
        try {
            if (!m_fault)
                m_entries.push_back(entryOf(store, m_names.back(), Fields(fields, m_names)));
        } catch (DocumentError const& error) {
            m_fault = error;
        }
    }

    bool add(json value)
    {
        if (m_passedOver == 0)
            place(std::move(value));
        return true;
    }

    json& place(json value)
    {
        json& target = m_open.empty() ? m_root : (*m_open.back())[m_names.back()];
        target = std::move(value);
        return target;
    }

    std::string const& m_bytes;
    json m_root;
    std::deque<Entry> m_entries;
    std::optional<DocumentError> m_fault;
    std::vector<json*> m_open;        // the objects that are not at their end, outermost first
    std::vector<std::string> m_names; // in each of them, the name that was read last
    std::size_t m_passedOver = 0;     // arrays, and what is in them, that are not at their end
};

void checkBytes(std::string const& bytes)
{
    if (bytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
        throw errorAt(bytes, 1, "a byte order mark stands before the text", "save the file as UTF-8 without it");
    if (bytes.compare(0, 16, "SQLite format 3", 16) == 0)
        throw DocumentError({}, "is a database", "where 'editor-settings backup' made it, 'editor-settings restore' takes it");
    // The parser would take it for the end, whatever follows.
    if (std::size_t const nul = bytes.find('\0'); nul != std::string::npos)
        throw errorAt(bytes, nul + 1, "a NUL stands there, which no text holds", "save the file as UTF-8, or export it again");
}

void checkHeader(Fields const& document)
{
    json const* const format = document.find("format");
    if (!format || *format != formatName)
        throw DocumentError({"format"}, absl::StrCat("is ", format ? summary(*format) : "missing", ", so this is no export of settings"),
                            takeAnExport);
    json const& version = document.at("version");
    if (version.is_number_unsigned() && version > writtenVersion)
        throw DocumentError(
            {"version"},
            absl::StrCat("is ", summary(version), ", and this program reads up to ", writtenVersion, ": a newer one wrote the file"),
            "update this program");
    if (version != writtenVersion || !version.is_number_integer())
        refuseValue({"version"}, version, std::to_string(writtenVersion));
    document.checkNames({"format", "version", "made", "product", "stores"});
}

} // namespace

namespace {

// What a store holds there beside entries.
void checkRest(Fields const& document)
{
    Fields const all(document.at("stores"), {"stores"});
    all.checkNames({"product", "common"});
    for (auto const& [store, name] : namedStores)
        if (json const* const rest = all.find(name)) {
            Fields const keys(*rest, all.place(name));
            for (auto const& entry : rest->items())
                refuseValue(keys.place(entry.key()), entry.value(), "an object, between { and }");
        }
}

std::deque<Entry> sorted(std::deque<Entry> entries)
{
    auto const place = [](Entry const& entry) { return std::tie(entry.store, entry.key); };
    std::sort(entries.begin(), entries.end(), [&](Entry const& left, Entry const& right) { return place(left) < place(right); });
    auto const twice = std::adjacent_find(entries.begin(), entries.end(),
                                          [&](Entry const& left, Entry const& right) { return place(left) == place(right); });
    if (twice != entries.end())
        throw DocumentError(placeOf(*twice), standsTwice, keepOne);
    return entries;
}

} // namespace

Document readDocument(std::string const& bytes)
{
    checkBytes(bytes);
    Builder builder(bytes);
    json::sax_parse(bytes, &builder);
    json const rest = builder.takeRest();
    Fields const fields(rest, {});
    checkHeader(fields);
    checkRest(fields);
    if (builder.fault())
        throw DocumentError(*builder.fault());
    return {fields.optionalText("made"), fields.optionalText("product"), sorted(builder.takeEntries())};
}

void checkKeys(Document const& document, bool withUnknown)
{
    for (Entry const& entry : document.entries) {
        std::optional<KnownKey> const known = knownKey(entry.key);
        if (!known && withUnknown)
            continue;
        if (!known && isReserved(entry.key))
            throw DocumentError(placeOf(entry), "is reserved: the editor neither reads nor writes it", "remove it, or give --with-unknown");
        if (!known)
            throw UnknownKeyError(placeOf(entry), "is no preference of the editor",
                                  "correct or remove it, or give --with-unknown to take such keys as they are");
        if (known->store != entry.store)
            throw DocumentError(placeOf(entry), "is kept in the other store",
                                absl::StrCat("move it to stores.", Catalogue::name(known->store)));
        if (known->kind != entry.kind)
            throw DocumentError(below(placeOf(entry), "kind"),
                                absl::StrCat("is \"", Storage::storedWord(entry.kind), "\", which the editor would not read"),
                                absl::StrCat("give a value of kind \"", Storage::storedWord(known->kind), "\""));
        if (known->part == Host::OwnKeys::Part::denominator && entry.value == Storage::SqliteStorage::Value(0))
            throw DocumentError(below(placeOf(entry), "value"), "is 0, which no rational has below its line", "give another number");
    }
}

} // namespace Inspection
