// SPDX-License-Identifier: MIT
#include <Host/FileContent.h>
#include <Host/ProductFields.h>

#include <QString>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <sstream>
#include <utility>

using nlohmann::json;

namespace Host {

namespace {

constexpr std::size_t mostBytes = std::size_t{1} << 20;
constexpr std::size_t deepest = 4; // the accepted words of a declared key

std::string inJson(json const& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

// A fault of the text; the line is 0 where the sentence names it.
struct Fault {
    std::size_t line;
    std::string what;
};

// Builds the value, with the lines of its parts. Each level of nesting takes its part of the stack, also when a value is printed
// in an error.
class Builder final : public nlohmann::json_sax<json> {
public:
    Builder(std::string const& content, json& root, std::map<Place, std::size_t>& lines)
        : m_content(content), m_stream(content), m_root(root), m_lines(lines)
    {
        json::sax_parse(m_stream, this);
    }

    bool null() override { return put(nullptr), true; }
    bool boolean(bool value) override { return put(value), true; }
    bool number_integer(number_integer_t value) override { return put(value), true; }
    bool number_unsigned(number_unsigned_t value) override { return put(value), true; }
    bool number_float(number_float_t value, string_t const& /*text*/) override { return put(value), true; }
    bool string(string_t& value) override { return put(std::move(value)), true; }
    bool binary(binary_t& /*value*/) override { return true; } // JSON knows none
    bool start_object(std::size_t /*size*/) override { return open(json::object()); }
    bool start_array(std::size_t /*size*/) override { return open(json::array()); }
    bool end_object() override { return close(); }
    bool end_array() override { return close(); }

    bool key(string_t& name) override
    {
        if (m_open.back()->contains(name))
            throw Fault{line(), "has the field " + inJson(name) + " twice; keep one of the two"};
        m_place.back() = name;
        m_lines[m_place] = line();
        return true;
    }

    bool parse_error(std::size_t /*position*/, std::string const& /*token*/, nlohmann::detail::exception const& error) override
    {
        // The parser's text begins with a code in brackets. It names the line, but for a number.
        std::string const what = error.what();
        bool const hasLine = what.find(" at line ") != std::string::npos;
        throw Fault{hasLine ? 0 : line(), "is not JSON: " + what.substr(what.find("] ") + 2)};
    }

private:
    json& put(json value)
    {
        if (m_open.empty())
            return m_root = std::move(value);
        json& container = *m_open.back();
        if (container.is_object())
            return container[m_place.back()] = std::move(value);
        m_place.back() = std::to_string(container.size());
        m_lines[m_place] = line();
        container.push_back(std::move(value));
        return container.back();
    }

    bool open(json value)
    {
        if (m_open.size() == deepest)
            throw Fault{line(), "is nested too deeply; its fields are texts, numbers, arrays of texts, and declared keys"};
        m_open.push_back(&put(std::move(value)));
        m_place.emplace_back();
        return true;
    }

    bool close()
    {
        m_open.pop_back();
        m_place.pop_back();
        return true;
    }

    // The line of what the parser read last. It has seen the byte behind a number, which may end the line.
    std::size_t line()
    {
        auto const end = static_cast<std::size_t>(m_stream.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::in)) - 1;
        m_line += static_cast<std::size_t>(std::count(m_content.data() + m_counted, m_content.data() + end, '\n'));
        m_counted = end;
        return m_line;
    }

    std::string const& m_content;
    std::istringstream m_stream; // tells how far the parser is
    json& m_root;
    std::map<Place, std::size_t>& m_lines;
    std::vector<json*> m_open; // the objects and arrays that are not at their end, outermost first
    Place m_place;             // in each of them, the name or the number of what was read last
    std::size_t m_counted = 0;
    std::size_t m_line = 1;
};

bool isWhole(json const& value)
{
    return value.is_number_integer() && !(value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<int>::max()) &&
           value.get<std::int64_t>() >= std::numeric_limits<int>::min() && value.get<std::int64_t>() <= std::numeric_limits<int>::max();
}

std::string listed(std::vector<std::string> const& words)
{
    std::string all;
    for (std::string const& word : words)
        all += (all.empty() ? "" : ", ") + word;
    return all;
}

} // namespace

// --- The file ---

ProductText::ProductText(std::filesystem::path const& file) : m_file(file)
{
    std::string content;
    try {
        content = boundedFileContent(file, mostBytes);
    } catch (std::runtime_error const& error) {
        refuse({}, std::string("cannot be read (") + error.what() + "); check its name and rights, or name another product file");
    }
    if (content.find('\0') != std::string::npos) // the parser would take it as the end
        refuse({}, "is not JSON: it holds a NUL");
    try {
        Builder(content, m_root, m_lines);
    } catch (Fault const& fault) {
        m_lines[{}] = fault.line;
        refuse({}, fault.what);
    }
}

json const& ProductText::at(Place const& place) const
{
    json const* value = &m_root;
    for (std::string const& step : place)
        value = value->is_array() ? &value->at(std::stoul(step)) : &value->at(step);
    return *value;
}

std::string ProductText::where(Place const& place) const
{
    auto const found = m_lines.find(place);
    std::size_t const line = found == m_lines.end() ? 0 : found->second;
    return QString::fromStdString("product file " + m_file.u8string()).toStdString() +
           (line == 0 ? "" : " (line " + std::to_string(line) + ')');
}

// What stands in the file need not be UTF-8.
void ProductText::refuse(Place const& place, std::string const& what) const
{
    throw ProductFileError(QString::fromStdString(where(place) + ' ' + what).toStdString());
}

// --- An object ---

Fields::Fields(ProductText const& text, Place place, std::vector<std::string> names)
    : m_text(text), m_place(std::move(place)), m_names(std::move(names))
{
    json const& object = m_text.at(m_place);
    if (!object.is_object())
        refuse(m_place.empty() ? "is not a JSON object; write the fields between { and }"
                               : "has " + inJson(object) + " where a key is declared; write its fields between { and }");
    for (auto const& [name, value] : object.items())
        if (std::find(m_names.begin(), m_names.end(), name) == m_names.end())
            m_text.refuse(placeOf(name), "has a field " + inJson(name) + " that means nothing; " + allNames());
}

bool Fields::has(std::string const& name) const { return m_text.at(m_place).contains(name); }

bool Fields::boolean(std::string const& name) const
{
    if (!field(name).is_boolean())
        refuse(name, "true or false");
    return field(name).get<bool>();
}

int Fields::number(std::string const& name) const
{
    if (!isWhole(field(name)))
        refuse(name, "a whole number from -2147483648 to 2147483647");
    return field(name).get<int>();
}

std::string Fields::text(std::string const& name) const
{
    if (!field(name).is_string())
        refuse(name, "a text");
    return field(name).get<std::string>();
}

std::string Fields::path(std::string const& name) const
{
    std::string const value = text(name);
    if (value.find('\0') != std::string::npos)
        refuse(name, "a path");
    return value;
}

std::string Fields::folderName(std::string const& name) const
{
    std::string const value = text(name);
    if (value.empty() || value == "." || value == ".." || value.find_first_of(std::string("/\0", 2)) != std::string::npos)
        refuse(name, "the name of a folder: not empty, not \".\" or \"..\", without \"/\"");
    return value;
}

std::vector<std::string> Fields::texts(std::string const& name, std::string const& accepted) const
{
    json const& value = field(name);
    if (!value.is_array() || !std::all_of(value.begin(), value.end(), [](json const& element) { return element.is_string(); }))
        refuse(name, accepted);
    return value.get<std::vector<std::string>>();
}

std::size_t Fields::oneOf(std::string const& name, std::vector<std::string> const& words) const
{
    std::string const word = field(name).is_string() ? text(name) : "";
    auto const found = std::find(words.begin(), words.end(), word);
    if (found == words.end())
        refuse(name, "one of " + listed(words));
    return static_cast<std::size_t>(found - words.begin());
}

std::pair<int, int> Fields::range(std::string const& name) const
{
    json const& value = field(name);
    if (!value.is_array() || value.size() != 2 || !isWhole(value[0]) || !isWhole(value[1]))
        refuse(name, "an array of two whole numbers, the least and the greatest");
    return {value[0].get<int>(), value[1].get<int>()};
}

void Fields::refuse(std::string const& what) const { m_text.refuse(m_place, what); }

void Fields::refuse(std::string const& name, std::string const& accepted) const
{
    m_text.refuse(placeOf(name), "has the value " + inJson(field(name)) + " in field \"" + name + "\", which takes " + accepted);
}

json const& Fields::field(std::string const& name) const
{
    json const& object = m_text.at(m_place);
    if (!object.contains(name))
        refuse("has no field \"" + name + "\"; " + allNames());
    return object.at(name);
}

Place Fields::placeOf(std::string const& name) const
{
    Place place = m_place;
    place.push_back(name);
    return place;
}

std::string Fields::allNames() const
{
    return (m_place.empty() ? "the fields are " : "the fields of a declared key are ") + listed(m_names);
}

} // namespace Host
