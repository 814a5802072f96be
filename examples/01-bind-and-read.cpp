// SPDX-License-Identifier: MIT
//
// Bind the library once, then ask it: the smallest host there is.
#include <Settings/Settings.h>
#include <Storage/SqliteStorage.h>

#include <cstdio>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};

int main()
{
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Storage::SqliteStorage>("common.sqlite");
    auto const own = std::make_shared<Storage::SqliteStorage>("product.sqlite");
    Settings::init({product, common, own, Lumora::ioPath("resources")});

    Settings::setKeepVideoAspect(false);
    std::puts(Settings::exportPath().toUtf8().constData());
}
