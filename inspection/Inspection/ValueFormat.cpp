// SPDX-License-Identifier: MIT
#include <Inspection/ValueFormat.h>

#include "terminal/Escaping.h"
#include "terminal/Table.h"

#include <absl/strings/str_cat.h>

#include <Host/FileContent.h>
#include <Storage/Kind.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <charconv>
#include <sstream>
#include <system_error>
#include <type_traits>

#include <unistd.h>

using Catalogue::Value;

namespace {

struct TypeNames {
    char const* name;
    char const* article; // with the name, as in "is a bool"
    char const* cpp;
    Storage::Kind kind;
};

// In the order of the alternatives of Value.
constexpr std::array<TypeNames, std::variant_size_v<Value>> types = {{{"bool", "is a bool", "bool", Storage::Kind::boolean},
                                                                      {"int", "is an int", "int", Storage::Kind::integer},
                                                                      {"text", "is a text", "std::string", Storage::Kind::text},
                                                                      {"text", "is a text", "QString", Storage::Kind::text},
                                                                      {"bytes", "holds bytes", "QByteArray", Storage::Kind::bytes},
                                                                      {"list", "is a list", "QStringList", Storage::Kind::text}}};

TypeNames const& type(Value const& value) { return types[value.index()]; }

// What a word is parsed for.
struct Target {
    std::string name;
    Value like;
};

[[noreturn]] void refuse(Target const& target, std::string const& word, std::string const& accepted)
{
    throw UserError(absl::StrCat(target.name, " ", type(target.like).article, " and cannot be ", quotedBriefly(word), "; ", accepted));
}

QString decoded(Target const& target, std::string const& word)
{
    if (!isUtf8(word))
        refuse(target, word, "give text in UTF-8 without a byte order mark, as anything else would not come back unchanged");
    return QString::fromStdString(word);
}

bool parsedBool(Target const& target, std::string const& word)
{
    std::string lower = word;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char character) { return static_cast<char>(std::tolower(character)); });
    for (char const* yes : {"true", "yes", "on", "1"})
        if (lower == yes)
            return true;
    for (char const* no : {"false", "no", "off", "0"})
        if (lower == no)
            return false;
    refuse(target, word, "give true or false (or yes, no, on, off, 1, 0)");
}

int parsedInt(Target const& target, std::string const& word)
{
    int value = 0;
    char const* const first = word.data() + (word.size() > 1 && word[0] == '+' && word[1] != '-' ? 1 : 0);
    char const* const last = word.data() + word.size();
    auto const [end, error] = std::from_chars(first, last, value);
    if (error != std::errc() || end != last)
        refuse(target, word, "give a whole number from -2147483648 to 2147483647");
    return value;
}

std::string standardInput()
{
    std::string content;
    char buffer[1 << 16];
    for (ssize_t count; (count = ::read(STDIN_FILENO, buffer, sizeof buffer)) != 0;) {
        if (count > 0)
            content.append(buffer, static_cast<std::size_t>(count));
        else if (errno != EINTR)
            throw std::system_error(errno, std::generic_category());
    }
    return content;
}

std::string contentOfFile(Target const& target, std::string const& name, std::string const& remedy)
{
    try {
        return Host::fileContent(name);
    } catch (std::system_error const& error) {
        throw UserError(absl::StrCat(target.name, ": cannot read ", quoted(name), " (", error.code().message(), "); ", remedy));
    }
}

std::string contentOfInput(Target const& target)
{
    try {
        return standardInput();
    } catch (std::system_error const& error) {
        throw UserError(absl::StrCat(target.name, ": cannot read standard input (", error.code().message(), "); give it a file or a pipe"));
    }
}

QByteArray parsedBytes(Target const& target, std::string const& word)
{
    if (!word.empty() && word[0] == '@')
        return QByteArray::fromStdString(contentOfFile(target, word.substr(1), "name a file that can be read after the @"));
    // Qt decodes whatever it can; only what encodes to the same word again is taken.
    QByteArray const bytes = QByteArray::fromBase64(QByteArray::fromStdString(word));
    if (bytes.toBase64().toStdString() != word && bytes.toBase64(QByteArray::OmitTrailingEquals).toStdString() != word)
        refuse(target, word, "give the bytes in base64, or @FILE to read them from a file");
    return bytes;
}

QStringList parsedList(Target const& target, std::vector<std::string> const& words)
{
    QStringList list;
    for (std::string const& word : words) {
        QString const element = decoded(target, word);
        if (element.isEmpty())
            refuse(target, word, "an empty element is lost when the list is read back; leave it out (--empty stores an empty list)");
        if (!Catalogue::survivesRoundTrip({element}))
            refuse(target, word, "the element holds the separator of stored lists and would come back in pieces");
        // No separator reaches further than from one element into the next, so two of them tell.
        if (!list.isEmpty() && !Catalogue::survivesRoundTrip({list.last(), element}))
            refuse(target, word,
                   "together with the element before it, it makes up the separator of stored lists and would come back "
                   "otherwise");
        list.append(element);
    }
    return list;
}

std::string const& onlyWord(Target const& target, std::vector<std::string> const& words)
{
    if (words.size() != 1)
        throw UserError(absl::StrCat(target.name, " takes one value, not ", words.size(), "; ",
                                     words.empty() ? "--empty is for lists" : "put quotes around a value with blanks"));
    return words.front();
}

template <typename T>
T parsedAs(Target const& target, std::vector<std::string> const& words)
{
    if constexpr (std::is_same_v<T, QStringList>)
        return parsedList(target, words);
    else if constexpr (std::is_same_v<T, bool>)
        return parsedBool(target, onlyWord(target, words));
    else if constexpr (std::is_same_v<T, int>)
        return parsedInt(target, onlyWord(target, words));
    else if constexpr (std::is_same_v<T, QByteArray>)
        return parsedBytes(target, onlyWord(target, words));
    else if constexpr (std::is_same_v<T, QString>)
        return decoded(target, onlyWord(target, words));
    else
        return decoded(target, onlyWord(target, words)).toStdString();
}

} // namespace

std::string typeName(Value const& value) { return type(value).name; }
std::string cppTypeName(Value const& value) { return type(value).cpp; }
std::string storedKind(Value const& value) { return Storage::storedWord(type(value).kind); }

Value parsed(std::string const& name, Value const& like, std::vector<std::string> const& words)
{
    Target const target = {name, like};
    return std::visit([&](auto const& typed) -> Value { return parsedAs<std::decay_t<decltype(typed)>>(target, words); }, like);
}

Value parsedFile(std::string const& name, Value const& like, std::string const& file)
{
    Target const target = {name, like};
    std::string const content = file == "-" ? contentOfInput(target) : contentOfFile(target, file, "name a file that can be read");
    if (std::holds_alternative<QByteArray>(like))
        return QByteArray::fromStdString(content);
    if (!std::holds_alternative<QStringList>(like))
        return parsed(name, like, {content});
    std::vector<std::string> elements;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);)
        elements.push_back(line);
    return parsed(name, like, elements);
}

namespace {

struct AsText {
    std::string operator()(bool value) const { return value ? "true" : "false"; }
    std::string operator()(int value) const { return std::to_string(value); }
    std::string operator()(std::string const& value) const { return value; }
    std::string operator()(QString const& value) const { return value.toStdString(); }
    std::string operator()(QByteArray const& value) const { return value.toBase64().toStdString(); }
    std::string operator()(QStringList const& value) const { return value.join(QLatin1Char('\n')).toStdString(); }
};

struct AsJson {
    nlohmann::ordered_json operator()(bool value) const { return value; }
    nlohmann::ordered_json operator()(int value) const { return value; }
    nlohmann::ordered_json operator()(QStringList const& value) const
    {
        auto elements = nlohmann::ordered_json::array();
        for (QString const& element : value)
            elements.push_back(element.toStdString());
        return elements;
    }
    template <typename Textual>
    nlohmann::ordered_json operator()(Textual const& value) const
    {
        return AsText()(value);
    }
};

} // namespace

std::string text(Value const& value) { return std::visit(AsText(), value); }

nlohmann::ordered_json toJson(Value const& value) { return std::visit(AsJson(), value); }

std::string onOneLine(Value const& value)
{
    // The elements of a list are told apart whatever they hold.
    return std::holds_alternative<QStringList>(value) ? jsonText(toJson(value)) : onOneLine(text(value));
}
