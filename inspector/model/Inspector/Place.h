// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

namespace Inspector {

/// Which stores, as the command line finds them.
struct Place {
    std::filesystem::path productFile;                  ///< What `--product` names.
    std::optional<std::filesystem::path> storeFolder{}; ///< What `--home` names; nullopt for the folders of the product.
    bool allowsNetworkFileSystem = false;               ///< As `--allow-network`.
};

} // namespace Inspector
