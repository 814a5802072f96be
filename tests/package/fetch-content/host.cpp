// SPDX-License-Identifier: MIT
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
    auto const store = std::make_shared<Storage::SqliteStorage>("store.sqlite");
    Settings::init({product, store, store, Lumora::ioPath("resources")});
    Settings::setLastTarget(QStringLiteral("fetched"));
    std::puts(store->getString("lastTarget", "").c_str());
    std::puts(Settings::defaultProjectPath().toUtf8().constData());
}
