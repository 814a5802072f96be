// SPDX-License-Identifier: MIT
#include <Host/Application.h>

#include <Settings/Settings.h>
#include <Storage/EmptyStorage.h>

#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace Host {

namespace {

// Stands for a store that was left out: reads return their defaults, sets throw.
class NoStore final : public Storage::EmptyStorage {
public:
    void setBool(std::string const&, bool) override { refuse(); }
    void setInt(std::string const&, int) override { refuse(); }
    void setString(std::string const&, std::string const&) override { refuse(); }
    void setBytes(std::string const&, std::vector<unsigned char> const&) override { refuse(); }

private:
    [[noreturn]] static void refuse() { throw std::logic_error("the store was left out, so it takes no value"); }
};

} // namespace

Application::Store::Store(fs::path const& path, StorePolicy policy, Storage::SqliteStorage::Options options)
    : bound(std::make_shared<NoStore>())
{
    std::error_code noAnswer;
    file = fs::absolute(path, noAnswer);
    if (noAnswer)
        file = path; // there is no current directory, which the store's error names
    options.createIfMissing = policy == StorePolicy::create;
    try {
        opened = std::make_shared<Storage::SqliteStorage>(file, options);
        bound = opened;
    } catch (Storage::StorageError const& unusable) {
        if (unusable.code() == Storage::StorageError::Code::missing)
            return;
        if (policy != StorePolicy::leaveOutUnusable)
            throw;
        error = unusable;
    }
}

Application::Application(fs::path const& productFile, std::optional<fs::path> const& storeFolder, StorePolicy policy,
                         Storage::SqliteStorage::Options const& storeOptions)
    : m_productInfo(std::make_shared<ProductFile>(productFile)), m_storeOptions(storeOptions)
{
    SettingsContext context;
    context.productInfo = m_productInfo;
    context.resourcesRoot = Lumora::ioPath(m_productInfo->resourcesRoot().u8string());
    // The product information alone decides where the stores lie.
    Settings::init(context);
    fs::path const productFolder = storeFolder.value_or(fs::u8path(productDataPath().toStdString()));
    fs::path const commonFolder = storeFolder.value_or(productFolder.parent_path());

    m_common = Store(commonFolder / "common-settings.sqlite", policy, storeOptions);
    m_product = Store(productFolder / "product-settings.sqlite", policy, storeOptions);
    context.commonStorage = m_common.bound;
    context.productStorage = m_product.bound;
    Settings::init(context);
}

} // namespace Host
