// SPDX-License-Identifier: MIT
#pragma once

#include <Host/Application.h>
#include <Host/ProductFile.h>

namespace Host {

/// An application whose product information is a file, so that one tool serves every product.
class ToolApplication final : public Application {
public:
    /// The file declares the own keys, in place of `options.ownKeys`. Throws `ProductFileError`, and what `Application` throws.
    explicit ToolApplication(std::filesystem::path const& productFile, Options const& options = {})
        : ToolApplication(std::make_shared<ProductFile>(productFile), options)
    {}
    /// As above, of a file that was read before.
    ToolApplication(std::shared_ptr<ProductFile> const& productFile, Options const& options)
        : Application(productFile, productFile->resourcesRoot(),
                      {options.storeFolder, options.policy, options.store, productFile->ownKeys(), options.share, options.onlyStore}),
          m_productFile(productFile)
    {}

    ProductFile const& productFile() const { return *m_productFile; }

private:
    std::shared_ptr<ProductFile const> m_productFile;
};

} // namespace Host
