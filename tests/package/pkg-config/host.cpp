// SPDX-License-Identifier: MIT
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
{
    Host::Application const application(std::make_shared<Product>(), "resources");
    Settings::setLastTarget(QStringLiteral("pkg-config"));
    std::puts(application.productStorage()->getString("lastTarget", "").c_str());
    std::puts(Settings::defaultProjectPath().toUtf8().constData());
}
