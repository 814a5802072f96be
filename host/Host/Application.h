// SPDX-License-Identifier: MIT
#pragma once

#include <Host/OwnKeys.h>
#include <Settings/IProductInfo.h>
#include <Storage/LayeredStorage.h>
#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

/// What a program does once to use the settings library.
namespace Host {

/// What to do about a missing store.
enum class StorePolicy {
    create,           ///< Create it.
    leaveOutMissing,  ///< Bind an empty store that refuses changes: for programs that only read.
    leaveOutUnusable, ///< The same also for a store that cannot be opened: for programs that diagnose.
};

/// A host's side of the settings library: while the object lives, the library is bound to its product information and its
/// two stores.
///
/// The stores lie where the command line looks for them: "product-settings.sqlite" in `productDataPath()` and
///   "common-settings.sqlite" in the folder above, or both in one folder where that is given.
/// Lifetime. Create one in each process, before the first call of the library, and keep it until after the last: a call
///   without it ends the process with a line that names what is missing.
/// Threads. While it is created and destroyed, no other thread may call the library. In between any thread may call the
///   library, and any function here.
/// Errors. The constructor throws `Storage::StorageError`, which a host shows (`what` names file, reason and remedy) before it
///   ends: without its stores it would lose every change. Later trouble, such as a full disk, throws the same type from the
///   getter or setter that meets it. Besides, only `std::bad_alloc` and what the product information throws are seen.
class Application {
public:
    /// What a host may choose.
    struct Options {
        /// The folder of both stores, in place of the product's and the vendor's. A relative one is resolved once, at the start.
        std::optional<std::filesystem::path> storeFolder{};
        /// What is done about missing stores, in place of `store.createIfMissing`.
        StorePolicy policy = StorePolicy::create;
        /// How both stores are opened.
        Storage::SqliteStorage::Options store{};
        /// The keys that the host reads and writes itself, for its own use: command line and window know those of the product file.
        OwnKeys ownKeys{};
        /// Puts a store before each of both, such as one of `Studio::Session`; the library is bound to what it returns, which must
        /// not be null. It gets the name under which all programs share the store, "common" or the product's name, and the opened
        /// store, or one that holds nothing and refuses changes. Called by the constructor.
        std::function<std::shared_ptr<Storage::LayeredStorage>(std::string const& name, std::shared_ptr<ISettingsStorage> const& local)>
            share{};
        /// The only store that is opened, "common" or "product", for a program that asks nothing of the other, which is left out as
        /// a missing one is. Empty for both.
        std::string onlyStore{};
    };

    /// Opens both stores and binds the library to them and to `product`, which must not be null. Creates what is missing. Refuses to
    /// create stores where `XDG_DATA_HOME`, or without it `HOME`, is no absolute path, or where the home folder is not there. Changes no
    /// existing file. `resourcesRoot` is the folder of shipped content and need not exist; a relative one depends on the current folder at
    /// each call.
    Application(std::shared_ptr<IProductInfo> product, std::filesystem::path const& resourcesRoot);
    /// As above, with options of the caller's choice.
    Application(std::shared_ptr<IProductInfo> product, std::filesystem::path const& resourcesRoot, Options const& options);
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    /// The keys that the host declared.
    OwnKeys const& ownKeys() const { return m_ownKeys; }
    /// The options that the stores were opened with.
    Storage::SqliteStorage::Options const& storeOptions() const { return m_storeOptions; }
    /// The store of the preferences that the vendor's products share; null where it was left out.
    Storage::SqliteStorage* commonStorage() const { return m_common.opened.get(); }
    /// The store of all other preferences; null where it was left out.
    Storage::SqliteStorage* productStorage() const { return m_product.opened.get(); }
    /// What `Options::share` put before the common store; null without that.
    Storage::LayeredStorage* commonLayers() const { return m_common.layers.get(); }
    /// What `Options::share` put before the store of all other preferences; null without that.
    Storage::LayeredStorage* productLayers() const { return m_product.layers.get(); }
    /// The absolute path of the common store, also of a missing one.
    std::filesystem::path const& commonStorageFile() const { return m_common.file; }
    /// The absolute path of the product's store, also of a missing one.
    std::filesystem::path const& productStorageFile() const { return m_product.file; }
    /// Why an existing common store was left out; nullopt where it was opened or is missing.
    std::optional<Storage::StorageError> const& commonStorageError() const { return m_common.error; }
    /// Why an existing store of the product was left out; nullopt where it was opened or is missing.
    std::optional<Storage::StorageError> const& productStorageError() const { return m_product.error; }

private:
    struct Store {
        Store() = default;
        Store(std::filesystem::path const& path, std::string const& name, Options const& options, bool isAsked);
        void open(Options const& options);

        std::filesystem::path file;
        std::optional<Storage::StorageError> error;
        std::shared_ptr<Storage::SqliteStorage> opened;
        std::shared_ptr<Storage::LayeredStorage> layers;
        std::shared_ptr<ISettingsStorage> bound;
    };

    std::shared_ptr<IProductInfo> m_productInfo;
    Storage::SqliteStorage::Options m_storeOptions;
    OwnKeys m_ownKeys;
    Store m_common;
    Store m_product;
};

} // namespace Host
