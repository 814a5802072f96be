// SPDX-License-Identifier: MIT
#pragma once

#include <Host/ProductFile.h>
#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace Host {

/// What to do about a missing store.
enum class StorePolicy {
    create,           ///< Create it.
    leaveOutMissing,  ///< Bind an empty store that refuses changes: for programs that only read.
    leaveOutUnusable, ///< The same also for a store that cannot be opened: for programs that diagnose.
};

/// An application's side of the settings library: while the object lives, the library is bound to its product file and
/// its two stores. A model for hosts: own the collaborators, bind them once, keep them until the last call.
///
/// The stores lie in "product-settings.sqlite" in the product's data folder and in "common-settings.sqlite" in the
/// vendor's, or both in one folder where that is given.
class Application {
public:
    /// Binds the library. Throws `ProductFileError` and `Storage::StorageError`; the library is then not to be used.
    /// `policy` decides about missing stores in place of `storeOptions`.
    explicit Application(std::filesystem::path const& productFile, std::optional<std::filesystem::path> const& storeFolder = std::nullopt,
                         StorePolicy policy = StorePolicy::create, Storage::SqliteStorage::Options const& storeOptions = {});
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    ProductFile const& productFile() const { return *m_productInfo; }
    /// The options that the stores were opened with.
    Storage::SqliteStorage::Options const& storeOptions() const { return m_storeOptions; }
    /// The store, or null where it was left out.
    Storage::SqliteStorage* commonStorage() const { return m_common.opened.get(); }
    Storage::SqliteStorage* productStorage() const { return m_product.opened.get(); }
    /// The absolute path of the store, also of a missing one.
    std::filesystem::path const& commonStorageFile() const { return m_common.file; }
    std::filesystem::path const& productStorageFile() const { return m_product.file; }
    /// Why an existing store was left out; nullopt where it was opened or is missing.
    std::optional<Storage::StorageError> const& commonStorageError() const { return m_common.error; }
    std::optional<Storage::StorageError> const& productStorageError() const { return m_product.error; }

private:
    struct Store {
        Store() = default;
        Store(std::filesystem::path const& path, StorePolicy policy, Storage::SqliteStorage::Options options);

        std::filesystem::path file;
        std::optional<Storage::StorageError> error;
        std::shared_ptr<Storage::SqliteStorage> opened;
        std::shared_ptr<ISettingsStorage> bound;
    };

    std::shared_ptr<ProductFile> m_productInfo;
    Storage::SqliteStorage::Options m_storeOptions;
    Store m_common;
    Store m_product;
};

} // namespace Host
