// SPDX-License-Identifier: MIT
#include <Host/Application.h>

#include <Host/Home.h>
#include <Settings/Settings.h>
#include <Storage/EmptyStorage.h>

#include <stdexcept>
#include <system_error>
#include <utility>

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

// A store created below a folder that is not the user's would not be found again.
void checkHome(fs::path const& productFolder)
{
    auto const refuse = [&](std::string const& reason, char const* remedy) {
        throw Storage::StorageError(Storage::StorageError::Code::access, productFolder.string(), "keep the stores", reason, remedy);
    };
    std::string const data = qgetenv("XDG_DATA_HOME").toStdString();
    if (!data.empty() && data[0] != '/')
        refuse("XDG_DATA_HOME is '" + data + "', which is not absolute", "unset it, or set it to an absolute path");
    if (std::string const trouble = troubleWithHome(); data.empty() && !trouble.empty())
        refuse(trouble, "set HOME to your folder");
}

} // namespace

Application::Store::Store(fs::path const& path, std::string const& name, Options const& options, bool isAsked)
    : bound(std::make_shared<NoStore>())
{
    std::error_code noAnswer;
    file = fs::absolute(path, noAnswer);
    if (noAnswer)
        file = path; // there is no current directory, which the store's error names
    if (isAsked)
        open(options);
    if (options.share)
        bound = layers = options.share(name, bound);
}

void Application::Store::open(Options const& options)
{
    Storage::SqliteStorage::Options storeOptions = options.store;
    storeOptions.createIfMissing = options.policy == StorePolicy::create;
    try {
        opened = std::make_shared<Storage::SqliteStorage>(file, storeOptions);
        bound = opened;
    } catch (Storage::StorageError const& unusable) {
        if (unusable.code() == Storage::StorageError::Code::missing)
            return;
        if (options.policy != StorePolicy::leaveOutUnusable)
            throw;
        error = unusable;
    }
}

Application::Application(std::shared_ptr<IProductInfo> product, fs::path const& resourcesRoot)
    : Application(std::move(product), resourcesRoot, Options())
{}

Application::Application(std::shared_ptr<IProductInfo> product, fs::path const& resourcesRoot, Options const& options)
    : m_productInfo(std::move(product)), m_storeOptions(options.store), m_ownKeys(options.ownKeys)
{
    SettingsContext context;
    context.productInfo = m_productInfo;
    context.resourcesRoot = Lumora::ioPath(resourcesRoot.u8string());
    // The product information alone decides where the stores lie.
    Settings::init(context);
    fs::path const productFolder = options.storeFolder.value_or(fs::u8path(productDataPath().toStdString()));
    fs::path const commonFolder = options.storeFolder.value_or(productFolder.parent_path());
    if (options.policy == StorePolicy::create && !options.storeFolder)
        checkHome(productFolder);

    m_common = Store(commonFolder / "common-settings.sqlite", "common", options, options.onlyStore != "product");
    m_product = Store(productFolder / "product-settings.sqlite", m_productInfo->productName(), options, options.onlyStore != "common");
    context.commonStorage = m_common.bound;
    context.productStorage = m_product.bound;
    Settings::init(context);
}

} // namespace Host
