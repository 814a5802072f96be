// SPDX-License-Identifier: MIT
#pragma once

#include <Host/ProductFile.h>
#include <Storage/SqliteStorage.h>

#include <filesystem>
#include <memory>
#include <optional>

namespace Host {

/// An application's side of the settings library: while the object lives, the library is bound to its product file and
/// its two stores. A model for real hosts: own the collaborators, bind them once, keep them until the last call.
///
/// The stores lie in "product-settings.sqlite" in the product's data folder and in "common-settings.sqlite" in the
/// vendor's, or both in one folder where that is given. What is missing is created.
class Application {
public:
    /// Binds the library. Throws `ProductFileError` and `Storage::StorageError`; the library is then not to be used.
    explicit Application(std::filesystem::path const& productFile, std::optional<std::filesystem::path> const& storeFolder = std::nullopt);
    Application(Application const&) = delete;
    Application& operator=(Application const&) = delete;

    ProductFile const& productFile() const { return *m_productInfo; }
    Storage::SqliteStorage& commonStorage() const { return *m_commonStorage; }
    Storage::SqliteStorage& productStorage() const { return *m_productStorage; }

private:
    std::shared_ptr<ProductFile> m_productInfo;
    std::shared_ptr<Storage::SqliteStorage> m_commonStorage;
    std::shared_ptr<Storage::SqliteStorage> m_productStorage;
};

} // namespace Host
