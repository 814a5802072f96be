// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/IProductInfo.h>

#include <string>

namespace TestKit {

/// Product information with answers that a test sets. Not to be changed while another thread calls the library.
struct FixedProductInfo final : IProductInfo {
    std::string vendor = "Vendor";
    std::string product = "Product";
    std::string sharedData = "Shared";
    int kind = 0;
    std::string extensions = "ext1,ext2";

    std::string vendorName() const override { return vendor; }
    std::string productName() const override { return product; }
    std::string sharedDataFolderName() const override { return sharedData; }
    int productKind() const override { return kind; }
    std::string projectFileExtensions() const override { return extensions; }
};

} // namespace TestKit
