// SPDX-License-Identifier: MIT
#pragma once

#include <Host/OwnKeys.h>
#include <Settings/IProductInfo.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace Host {

/// A product file that cannot be used. The text names the file, what is wrong and what to do, in UTF-8.
class ProductFileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Product information from a JSON file in UTF-8: one object with these fields, each once.
///
///   vendorName, productName, sharedDataFolderName   texts that are folder names
///   productKind             a whole number
///   projectFileExtensions   an array of texts without dot or comma, the one for saving first
///   resourcesRoot           a path, relative to the folder of the product file
///   studio                  a text: the connection to the server with the studio's settings, as libpq takes it, without a
///                           password; may be left out
///   ownKeys                 an array of the host's own keys; may be left out
///
/// Each own key is an object:
///
///   key, or prefix          a text: one key, or what the keys begin with
///   kind                    "bool", "int", "string", "bytes", "list", "rational" or "folder"
///   store                   "product" or "common"
///   class                   "roaming", "local", "personal" or "transient"
///   purpose                 a text on one line: what it is for
///   default                 what a read returns for an absent key: true or false, a number, a text, an array of texts,
///                           a fraction as "30000/1001"; without it the kind's empty value
///   accepts                 for a string or a list, the only words that the host can use, as an array; may be left out
///   range                   for an int, the least and the greatest that the host can use, as an array; may be left out
///
/// The file is a regular file, or a link to one, of at most 1 MiB; whatever else stands in its place is refused without waiting.
/// The file is read once; any thread may ask.
class ProductFile final : public IProductInfo {
public:
    /// Reads `file`. Throws `ProductFileError`.
    explicit ProductFile(std::filesystem::path const& file);

    std::string vendorName() const override { return m_vendorName; }
    std::string productName() const override { return m_productName; }
    std::string sharedDataFolderName() const override { return m_sharedDataFolderName; }
    int productKind() const override { return m_productKind; }
    std::string projectFileExtensions() const override { return m_projectFileExtensions; }

    /// The path as the constructor got it.
    std::filesystem::path const& file() const { return m_file; }
    /// The root of the product's resources, as an absolute path.
    std::filesystem::path const& resourcesRoot() const { return m_resourcesRoot; }
    /// The connection to the studio's server; empty where there is none.
    std::string const& studio() const { return m_studio; }
    /// The keys that the file declares. Whether the library has one of them is not checked here.
    OwnKeys const& ownKeys() const { return m_ownKeys; }

private:
    std::filesystem::path m_file;
    std::string m_vendorName;
    std::string m_productName;
    std::string m_sharedDataFolderName;
    int m_productKind = 0;
    std::string m_projectFileExtensions;
    std::filesystem::path m_resourcesRoot;
    std::string m_studio;
    OwnKeys m_ownKeys;
};

/// The folder with the folder "bin" of the running program, in an installation as in the build tree. Throws `ProductFileError`
/// where /proc/self/exe cannot be read.
std::filesystem::path installationPrefix();

/// The product file that is installed with the program: "share/editor-settings/product.json" in `installationPrefix()`. Throws as
/// that does.
std::filesystem::path installedProductFile();

} // namespace Host
