// SPDX-License-Identifier: MIT
#include <Host/FileContent.h>
#include <Host/ProductFile.h>

#include <QString>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <system_error>

namespace fs = std::filesystem;
using nlohmann::json;

namespace Host {

namespace {

char const* const fieldNames[] = {"vendorName",  "productName",           "sharedDataFolderName",
                                  "productKind", "projectFileExtensions", "resourcesRoot"};

// The object in the file; its errors name the file and the field.
class Fields {
public:
    explicit Fields(fs::path const& file) : m_file(file), m_object(parsed())
    {
        if (!m_object.is_object())
            refuse("is not a JSON object; write the fields between { and }");
        for (auto const& field : m_object.items())
            if (std::find(std::begin(fieldNames), std::end(fieldNames), field.key()) == std::end(fieldNames))
                refuse("has a field " + inJson(field.key()) + " that means nothing; the fields are " + allNames());
    }

    std::string text(char const* name) const
    {
        json const& value = field(name);
        if (!value.is_string())
            refuseField(name, "a text");
        return value.get<std::string>();
    }

    std::string path(char const* name) const
    {
        std::string const value = text(name);
        if (value.find('\0') != std::string::npos)
            refuseField(name, "a path");
        return value;
    }

    std::string folderName(char const* name) const
    {
        std::string const value = text(name);
        if (value.empty() || value == "." || value == ".." || value.find_first_of(std::string("/\0", 2)) != std::string::npos)
            refuseField(name, "the name of a folder: not empty, not \".\" or \"..\", without \"/\"");
        return value;
    }

    int number(char const* name) const
    {
        json const& value = field(name);
        bool const fits =
            value.is_number_integer() && !(value.is_number_unsigned() && value.get<std::uint64_t>() > std::numeric_limits<int>::max()) &&
            value.get<std::int64_t>() >= std::numeric_limits<int>::min() && value.get<std::int64_t>() <= std::numeric_limits<int>::max();
        if (!fits)
            refuseField(name, "a whole number from -2147483648 to 2147483647");
        return value.get<int>();
    }

    std::string extensions(char const* name) const
    {
        std::string joined;
        json const& value = field(name);
        if (!value.is_array())
            refuseExtensions(name);
        for (json const& extension : value) {
            if (!extension.is_string())
                refuseExtensions(name);
            std::string const text = extension.get<std::string>();
            if (text.empty() || text.find_first_of(".,") != std::string::npos)
                refuseExtensions(name);
            joined += (joined.empty() ? "" : ",") + text;
        }
        return joined;
    }

private:
    json parsed() const
    {
        // Each level of nesting takes its part of the stack, also when a value is printed in an error.
        auto const isFlat = [this](int depth, json::parse_event_t, json const&) {
            if (depth > 3)
                refuse("is nested too deeply; it takes one object of texts, a number and an array of texts");
            return true;
        };
        try {
            std::string const content = fileContent(m_file);
            if (content.find('\0') != std::string::npos) // the parser would take it as the end
                refuse("is not JSON: it holds a NUL");
            return json::parse(content, isFlat);
        } catch (std::system_error const& error) {
            refuse("cannot be read (" + error.code().message() + "); check its name and rights, or name another product file");
        } catch (json::exception const& error) {
            // The parser's text begins with a code in brackets.
            std::string const what = error.what();
            refuse("is not JSON: " + what.substr(what.find("] ") + 2));
        }
    }

    json const& field(char const* name) const
    {
        auto const found = m_object.find(name);
        if (found == m_object.end())
            refuse("has no field \"" + std::string(name) + "\"; the fields are " + allNames());
        return *found;
    }

    static std::string allNames()
    {
        std::string names;
        for (char const* name : fieldNames)
            names += (names.empty() ? "" : ", ") + std::string(name);
        return names;
    }

    static std::string inJson(json const& value) { return value.dump(-1, ' ', false, json::error_handler_t::replace); }

    // The content and the name of the file need not be UTF-8.
    [[noreturn]] void refuse(std::string const& what) const
    {
        throw ProductFileError(QString::fromStdString("product file " + m_file.u8string() + ' ' + what).toStdString());
    }

    [[noreturn]] void refuseField(char const* name, std::string const& accepted) const
    {
        refuse("has the value " + inJson(field(name)) + " in field \"" + name + "\", which takes " + accepted);
    }

    [[noreturn]] void refuseExtensions(char const* name) const
    {
        refuseField(name, "an array of texts, none empty, without \".\" and \",\"");
    }

    fs::path m_file;
    json m_object;
};

} // namespace

ProductFile::ProductFile(fs::path const& file) : m_file(file)
{
    Fields const fields(file);
    m_vendorName = fields.folderName("vendorName");
    m_productName = fields.folderName("productName");
    m_sharedDataFolderName = fields.folderName("sharedDataFolderName");
    m_productKind = fields.number("productKind");
    m_projectFileExtensions = fields.extensions("projectFileExtensions");
    m_resourcesRoot = fs::absolute(file).parent_path() / fs::u8path(fields.path("resourcesRoot"));
}

fs::path installedProductFile()
{
    std::error_code error;
    fs::path const program = fs::read_symlink("/proc/self/exe", error);
    if (error)
        throw ProductFileError("the program cannot tell where it is installed, as it cannot read /proc/self/exe: " + error.message());
    return program.parent_path().parent_path() / PRODUCT_FILE_BELOW_PREFIX;
}

} // namespace Host
