// SPDX-License-Identifier: MIT
//
// Start once, then ask: the smallest host. Its stores lie where the command line finds them.
#include <Host/Application.h>
#include <Settings/Settings.h>

#include <cstdio>

struct Product : IProductInfo {
    std::string vendorName() const override { return "Lumora"; }
    std::string productName() const override { return "Lumora Video Editor"; }
    std::string sharedDataFolderName() const override { return "VideoEditor"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "lumora"; }
};

int main()
try {
    Host::Application const application(std::make_shared<Product>(), "resources");

    Settings::setKeepVideoAspect(false);
    std::puts(Settings::exportPath().toUtf8().constData());
} catch (Storage::StorageError const& error) {
    std::fprintf(stderr, "%s\n", error.what()); // the file, what is wrong with it, and what to do
    return 1;
}
