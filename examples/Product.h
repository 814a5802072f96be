// SPDX-License-Identifier: MIT
//
// The product of 01-bind-and-read, for the lessons after it.
#pragma once

#include <Settings/IProductInfo.h>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};
