// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Describes the product build to the settings library. The host implements and owns the object; the library holds a weak
/// reference and locks it for one call at a time.
///
/// Threads: the library calls on the thread that called the library, also on several at once.
/// Text: UTF-8. An embedded NUL does not end it. An empty answer becomes an empty path component.
/// Errors: an exception reaches the caller of the library function unchanged.
class IProductInfo {
public:
    virtual ~IProductInfo() = default;

    /// The maker's folder name below the generic data location, such as "Lumora".
    virtual std::string vendorName() const = 0;
    /// The product's name, not translated, such as "Lumora Video Editor"; also its folder name below the vendor's.
    virtual std::string productName() const = 0;
    /// The name of the folder below "SharedData" that the maker's products share.
    virtual std::string sharedDataFolderName() const = 0;
    /// The kind of product. With 1 the user library is named after the product folder, and the export target history stays
    /// in process memory. All other values mean the same.
    virtual int productKind() const = 0;
    /// The extensions of project files, without a dot, separated by commas; the first is the one used for saving.
    virtual std::string projectFileExtensions() const = 0;
};
