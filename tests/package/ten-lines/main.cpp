// SPDX-License-Identifier: MIT
#include <Settings/Settings.h>
#include <Storage/SqliteStorage.h>

#include <cstdio>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Maker"; }
    std::string productName() const override { return "Ten Lines"; }
    std::string sharedDataFolderName() const override { return "TenLines"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "ten"; }
};

int main()
{
    auto const product = std::make_shared<Product>();
    auto const store = std::make_shared<Storage::SqliteStorage>("settings.sqlite");
    Settings::init({product, store, store, Lumora::ioPath("resources")});
    std::puts(Settings::projectPath().toUtf8().constData());
}
