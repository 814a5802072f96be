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
    /// Where backups are kept; nullopt for "editor-settings/backups" in the user's folder for states (XDG_STATE_HOME).
    std::optional<std::filesystem::path> backupFolder{};
};

} // namespace Inspector
