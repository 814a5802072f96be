// SPDX-License-Identifier: MIT
#pragma once

#include <Host/Application.h>
#include <Host/ProductFile.h>

namespace Host {

/// An application whose product information is a file, so that one tool serves every product.
class ToolApplication final : public Application {
public:
    /// Throws `ProductFileError`, and what `Application` throws.
    explicit ToolApplication(std::filesystem::path const& productFile, Options const& options = {})
        : ToolApplication(std::make_shared<ProductFile>(productFile), options)
    {}

    ProductFile const& productFile() const { return *m_productFile; }

private:
    ToolApplication(std::shared_ptr<ProductFile> const& productFile, Options const& options)
        : Application(productFile, productFile->resourcesRoot(), options), m_productFile(productFile)
    {}

    std::shared_ptr<ProductFile const> m_productFile;
};

} // namespace Host
