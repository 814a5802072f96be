// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/IProductInfo.h>

#include <string>

namespace TestKit {

/// Product information with answers that a test sets. Not to be changed while another thread calls the library.
struct FixedProductInfo final : IProductInfo {
    std::string vendor = "Vendor";        ///< The answer of `vendorName`.
    std::string product = "Product";      ///< The answer of `productName`.
    std::string sharedData = "Shared";    ///< The answer of `sharedDataFolderName`.
    int kind = 0;                         ///< The answer of `productKind`.
    std::string extensions = "ext1,ext2"; ///< The answer of `projectFileExtensions`.

    std::string vendorName() const override { return vendor; }
    std::string productName() const override { return product; }
    std::string sharedDataFolderName() const override { return sharedData; }
    int productKind() const override { return kind; }
    std::string projectFileExtensions() const override { return extensions; }
};

} // namespace TestKit
