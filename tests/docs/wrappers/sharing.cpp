// SPDX-License-Identifier: MIT
//
// A host that shares settings: what the guide's block uses, and the block.
#include <Host/Application.h>
#include <Settings/Settings.h>
#include <Studio/Session.h>

#include <cstdio>
#include <set>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};

@1@
