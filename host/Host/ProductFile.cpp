// SPDX-License-Identifier: MIT
#include <Host/ProductFields.h>
#include <Host/ProductFile.h>

#include <QByteArray>
#include <QStringList>

#include <system_error>

namespace fs = std::filesystem;

namespace Host {

namespace {

std::vector<std::string> const productNames = {
    "vendorName", "productName", "sharedDataFolderName", "productKind", "projectFileExtensions", "resourcesRoot", "studio", "ownKeys"};

std::string extensions(Fields const& fields)
{
    constexpr char const name[] = "projectFileExtensions";
    std::string const accepted = "an array of texts, none empty, without \".\" and \",\"";
    std::string joined;
    for (std::string const& extension : fields.texts(name, accepted)) {
        if (extension.empty() || extension.find_first_of(".,") != std::string::npos)
            fields.refuse(name, accepted);
        joined += (joined.empty() ? "" : ",") + extension;
    }
    return joined;
}

// Whether a connection has a password among its pairs, or before the host of its URI.
bool holdsPassword(std::string const& connection)
{
    if (connection.find("password") != std::string::npos)
        return true;
    std::size_t const scheme = connection.find("://");
    if (scheme == std::string::npos)
        return false;
    std::size_t const begin = scheme + 3;
    std::string const authority = connection.substr(begin, connection.find_first_of("/?", begin) - begin);
    return authority.substr(0, authority.find('@') + 1).find(':') != std::string::npos; // without '@' the sum is 0
}

// Everybody may read the file. The error does not show the password again.
std::string studioIn(Fields const& fields)
{
    std::string const connection = fields.text("studio");
    if (holdsPassword(connection))
        fields.refuse("has a password in field \"studio\"; keep it in ~/.pgpass of each user");
    return connection;
}

// --- Own keys ---

std::vector<std::string> const ownKeyNames = {"key", "prefix", "kind", "store", "class", "purpose", "default", "accepts", "range"};

// The words for the kinds: those that a store keeps, then those that the library makes of them.
enum Kind { boolean, integer, text, bytes, list, rational, folder };
std::vector<std::string> const kinds = {"bool", "int", "string", "bytes", "list", "rational", "folder"};

OwnKey::Value emptyValue(Kind kind)
{
    std::vector<OwnKey::Value> const empty = {false, 0, std::string(), QByteArray(), QStringList(), OwnKey::Rational(), std::string()};
    return empty.at(kind);
}

QStringList listIn(std::vector<std::string> const& elements)
{
    QStringList result;
    for (std::string const& element : elements)
        result.append(QString::fromStdString(element));
    return result;
}

OwnKey::Value defaultIn(Fields const& fields, Kind kind)
{
    constexpr char const name[] = "default";
    switch (kind) {
    case boolean:
        return fields.boolean(name);
    case integer:
        return fields.number(name);
    case list:
        return listIn(fields.texts(name, "an array of texts"));
    case rational:
        if (std::optional<OwnKey::Rational> const value = rationalIn(fields.text(name)))
            return *value;
        fields.refuse(name, "a fraction such as \"30000/1001\"");
    case bytes:
        fields.refuse(name, "nothing for bytes, as a read ignores their default: leave it out");
    case folder:
        return fields.path(name);
    case text:
        break;
    }
    return fields.text(name);
}

OwnKey ownKeyIn(Fields const& fields)
{
    OwnKey result;
    result.isPrefix = fields.has("prefix");
    if (result.isPrefix == fields.has("key"))
        fields.refuse("declares a key with both a \"key\" and a \"prefix\", or with neither; give one of the two");
    result.key = fields.text(result.isPrefix ? "prefix" : "key");
    auto const kind = static_cast<Kind>(fields.oneOf("kind", kinds));
    result.isFolder = kind == folder;
    result.defaultValue = fields.has("default") ? defaultIn(fields, kind) : emptyValue(kind);
    result.isCommon = fields.oneOf("store", {"product", "common"}) == 1;
    result.dataClass = static_cast<OwnKey::Class>(fields.oneOf("class", {"roaming", "local", "personal", "transient"}));
    result.purpose = fields.text("purpose");
    if (fields.has("accepts"))
        result.accepts = fields.texts("accepts", "an array of texts");
    if (fields.has("range"))
        result.range = fields.range("range");
    result.where = fields.where();
    return result;
}

OwnKeys ownKeysIn(ProductText const& text)
{
    std::vector<OwnKey> declared;
    for (std::size_t number = 0; number < text.at({"ownKeys"}).size(); ++number)
        declared.push_back(ownKeyIn(Fields(text, {"ownKeys", std::to_string(number)}, ownKeyNames)));
    try {
        return OwnKeys(std::move(declared));
    } catch (OwnKeyError const& error) {
        throw ProductFileError(error.what());
    }
}

} // namespace

ProductFile::ProductFile(fs::path const& file) : m_file(file)
{
    ProductText const text(file);
    Fields const fields(text, {}, productNames);
    m_vendorName = fields.folderName("vendorName");
    m_productName = fields.folderName("productName");
    m_sharedDataFolderName = fields.folderName("sharedDataFolderName");
    m_productKind = fields.number("productKind");
    m_projectFileExtensions = extensions(fields);
    m_resourcesRoot = fs::absolute(file).parent_path() / fs::u8path(fields.path("resourcesRoot"));
    if (fields.has("studio"))
        m_studio = studioIn(fields);
    if (fields.has("ownKeys")) {
        if (!text.at({"ownKeys"}).is_array())
            fields.refuse("ownKeys", "an array of declared keys");
        m_ownKeys = ownKeysIn(text);
    }
}

fs::path installationPrefix()
{
    std::error_code error;
    fs::path const program = fs::read_symlink("/proc/self/exe", error);
    if (error)
        throw ProductFileError("the program cannot tell where it is installed, as it cannot read /proc/self/exe: " + error.message());
    return program.parent_path().parent_path();
}

fs::path installedProductFile() { return installationPrefix() / PRODUCT_FILE_BELOW_PREFIX; }

} // namespace Host
