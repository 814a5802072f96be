// SPDX-License-Identifier: MIT
#pragma once

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

/// Product information from a JSON file in UTF-8: one object with exactly these fields.
///
///   vendorName, productName, sharedDataFolderName   texts that are folder names
///   productKind             a whole number
///   projectFileExtensions   an array of texts without dot or comma, the one for saving first
///   resourcesRoot           a path, relative to the folder of the product file
///
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

private:
    std::filesystem::path m_file;
    std::string m_vendorName;
    std::string m_productName;
    std::string m_sharedDataFolderName;
    int m_productKind = 0;
    std::string m_projectFileExtensions;
    std::filesystem::path m_resourcesRoot;
};

/// The product file that is installed with the program: "share/editor-settings/product.json" beside the "bin" folder
/// of the running program, in an installation as in the build tree. Throws `ProductFileError` where /proc/self/exe cannot be
/// read.
std::filesystem::path installedProductFile();

} // namespace Host
