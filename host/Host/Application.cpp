// SPDX-License-Identifier: MIT
#include <Host/Application.h>

#include <Settings/Settings.h>

namespace fs = std::filesystem;

namespace Host {

Application::Application(fs::path const& productFile, std::optional<fs::path> const& storeFolder)
    : m_productInfo(std::make_shared<ProductFile>(productFile))
{
    SettingsContext context;
    context.productInfo = m_productInfo;
    context.resourcesRoot = Lumora::ioPath(m_productInfo->resourcesRoot().u8string());
    // The product information alone is enough to ask where the stores lie.
    Settings::init(context);
    fs::path const productFolder = storeFolder.value_or(fs::u8path(productDataPath().toStdString()));
    fs::path const commonFolder = storeFolder.value_or(productFolder.parent_path());

    m_commonStorage = std::make_shared<Storage::SqliteStorage>(commonFolder / "common-settings.sqlite");
    m_productStorage = std::make_shared<Storage::SqliteStorage>(productFolder / "product-settings.sqlite");
    context.commonStorage = m_commonStorage;
    context.productStorage = m_productStorage;
    Settings::init(context);
}

} // namespace Host
