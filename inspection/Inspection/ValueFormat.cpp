// SPDX-License-Identifier: MIT
#include <Inspection/ValueFormat.h>

#include <absl/strings/ascii.h>
#include <absl/strings/match.h>
#include <absl/strings/str_cat.h>
#include <absl/strings/str_replace.h>
#include <nlohmann/json.hpp>

#include <Host/OwnKeys.h>
#include <Storage/Kind.h>
#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <utility>

using Catalogue::Value;
using nlohmann::ordered_json;

namespace Inspection {

namespace {

struct TypeNames {
    char const* name;
    char const* cpp;
    Storage::Kind kind;
    char const* accepted;
};

constexpr char const anyText[] = "text in UTF-8 without a byte order mark";

// In the order of the alternatives of Value.
constexpr std::array<TypeNames, std::variant_size_v<Value>> typeNames = {
    {{"bool", "bool", Storage::Kind::boolean, "true or false (or yes, no, on, off, 1, 0)"},
     {"int", "int", Storage::Kind::integer, "a whole number from -2147483648 to 2147483647"},
     {"text", "std::string", Storage::Kind::text, anyText},
     {"text", "QString", Storage::Kind::text, anyText},
     {"bytes", "QByteArray", Storage::Kind::bytes, "bytes in base64, with its padding"},
     {"list", "QStringList", Storage::Kind::text, "elements of text, none empty or with the separator of stored lists"},
     {"rational", "boost::rational<long long>", Storage::Kind::integer, "a fraction such as 30000/1001, or a whole number"}}};

TypeNames const& type(Value const& value) { return typeNames[value.index()]; }

// In the order of ValueFault.
constexpr std::array acceptedForms = {
    "give true or false (or yes, no, on, off, 1, 0)",
    "give a whole number from -2147483648 to 2147483647",
    "give the bytes in base64, with its padding",
    "give text in UTF-8 without a byte order mark, as anything else would not come back unchanged",
    "an empty element is lost when the list is read back; leave it out",
    "the element holds the separator of stored lists and would come back in pieces",
    "together with the element before it, it makes up the separator of stored lists and would come back differently",
    "give a fraction such as 30000/1001, or a whole number; in lowest terms each half has at most 32 bits, and the lower one is not 0",
    "give one value",
};

bool parsedBool(std::string const& word)
{
    std::string const lower = absl::AsciiStrToLower(word);
    for (char const* yes : {"true", "yes", "on", "1"})
        if (lower == yes)
            return true;
    for (char const* no : {"false", "no", "off", "0"})
        if (lower == no)
            return false;
    throw ValueError(ValueFault::notBool, word);
}

int parsedInt(std::string const& word)
{
    int value = 0;
    char const* const first = word.data() + (word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0);
    char const* const last = word.data() + word.size();
    auto const [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last)
        throw ValueError(ValueFault::notInt, word);
    return value;
}

QString parsedText(std::string const& word)
{
    if (!isUtf8(word))
        throw ValueError(ValueFault::notUtf8, word);
    return QString::fromStdString(word);
}

QByteArray parsedBytes(std::string const& word)
{
    std::optional<std::string> const bytes = fromBase64(word);
    if (!bytes || toBase64(*bytes) != word)
        throw ValueError(ValueFault::notBase64, word);
    return QByteArray::fromStdString(*bytes);
}

QStringList parsedList(std::vector<std::string> const& words)
{
    QStringList list;
    for (std::string const& word : words) {
        QString const element = parsedText(word);
        if (element.isEmpty())
            throw ValueError(ValueFault::emptyElement, word);
        if (!Catalogue::survivesRoundTrip({element}))
            throw ValueError(ValueFault::separatorInElement, word);
        // A separator reaches from one element into the next at most, so the check of each two finds all.
        if (!list.isEmpty() && !Catalogue::survivesRoundTrip({list.last(), element}))
            throw ValueError(ValueFault::separatorAcrossElements, word);
        list.append(element);
    }
    return list;
}

Value parsedRational(std::string const& word)
{
    std::optional<Host::OwnKey::Rational> const value = Host::rationalIn(word);
    if (!value || !Host::isStorable(*value))
        throw ValueError(ValueFault::notRational, word);
    return *value;
}

struct Parser {
    std::vector<std::string> const& words;

    Value operator()(bool) const { return parsedBool(onlyWord()); }
    Value operator()(int) const { return parsedInt(onlyWord()); }
    Value operator()(std::string const&) const { return parsedText(onlyWord()).toStdString(); }
    Value operator()(QString const&) const { return parsedText(onlyWord()); }
    Value operator()(QByteArray const&) const { return parsedBytes(onlyWord()); }
    Value operator()(QStringList const&) const { return parsedList(words); }
    Value operator()(Host::OwnKey::Rational const&) const { return parsedRational(onlyWord()); }

    std::string const& onlyWord() const
    {
        if (words.size() != 1)
            throw ValueError(ValueFault::wordCount);
        return words.front();
    }
};

// DEL, C1, and the marks of writing direction and line separators: terminals obey them.
bool isObeyed(unsigned character)
{
    return (character >= 0x7f && character < 0xa0) || character == 0x61c || character == 0x200e || character == 0x200f ||
           (character >= 0x2028 && character <= 0x202e) || (character >= 0x2066 && character <= 0x2069);
}

struct AsText {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int value) const { return std::to_string(value); }
    std::string operator()(std::string const& value) const { return value; }
    std::string operator()(QString const& value) const { return value.toStdString(); }
    std::string operator()(QByteArray const& value) const { return toBase64(value.toStdString()); }
    std::string operator()(QStringList const& value) const { return value.join(QLatin1Char('\n')).toStdString(); }
    std::string operator()(Host::OwnKey::Rational const& value) const { return absl::StrCat(value.numerator(), "/", value.denominator()); }
};

struct AsJson {
    ordered_json operator()(bool value) const { return value; }
    ordered_json operator()(int value) const { return value; }
    ordered_json operator()(QStringList const& value) const
    {
        auto elements = ordered_json::array();
        for (QString const& element : value)
            elements.push_back(element.toStdString());
        return elements;
    }
    template <typename Textual>
    ordered_json operator()(Textual const& value) const
    {
        return AsText()(value);
    }
};

} // namespace

ValueError::ValueError(ValueFault fault, std::string refusedWord)
    : std::invalid_argument(acceptedForms.at(static_cast<std::size_t>(fault))), reason(fault), word(std::move(refusedWord))
{}

std::string typeName(Value const& value) { return type(value).name; }
std::string acceptedForm(Value const& like) { return type(like).accepted; }
std::string cppTypeName(Value const& value) { return type(value).cpp; }
Storage::Kind storedKind(Value const& value) { return type(value).kind; }

Value parsed(Value const& like, std::vector<std::string> const& words) { return std::visit(Parser{words}, like); }

std::string text(Value const& value) { return std::visit(AsText(), value); }

ordered_json toJson(Value const& value) { return std::visit(AsJson(), value); }

std::string jsonText(ordered_json const& value, int indent)
{
    std::string const text = value.dump(indent, ' ', false, ordered_json::error_handler_t::replace);
    // The dump escapes ASCII's control characters but DEL.
    QString result;
    QString const characters = QString::fromStdString(text);
    for (QChar const character : characters)
        result +=
            isObeyed(character.unicode()) ? QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0')) : QString(character);
    return result.toStdString();
}

std::string onOneLine(Value const& value)
{
    // As JSON the elements of a list are distinct, whatever they hold.
    return std::holds_alternative<QStringList>(value) ? jsonText(toJson(value)) : onOneLine(text(value));
}

std::string toBase64(std::string const& bytes) { return QByteArray::fromStdString(bytes).toBase64().toStdString(); }

std::optional<std::string> fromBase64(std::string const& text)
{
    // Qt skips what it cannot decode, so only what encodes to the same text again is taken.
    QByteArray const bytes = QByteArray::fromBase64(QByteArray::fromStdString(text));
    if (bytes.toBase64().toStdString() != text && bytes.toBase64(QByteArray::OmitTrailingEquals).toStdString() != text)
        return std::nullopt;
    return bytes.toStdString();
}

std::string shellWord(std::string const& text) { return absl::StrCat("'", absl::StrReplaceAll(text, {{"'", "'\\''"}}), "'"); }

std::string typedWord(std::string const& text)
{
    auto const isPlain = [](char character) {
        return absl::ascii_isalnum(static_cast<unsigned char>(character)) || absl::StrContains("_-./", character);
    };
    return !text.empty() && std::all_of(text.begin(), text.end(), isPlain) ? text : shellWord(text);
}

bool isUtf8(std::string const& text) { return QString::fromStdString(text).toStdString() == text; }

} // namespace Inspection
