// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>
#include <Storage/SqliteStorage.h>

#include <string>
#include <vector>

namespace Storage {

/// Who gave a value, of a store in which several may.
enum class Layer {
    locked, ///< The studio, which lets nobody have another.
    user,   ///< The user, on every workstation of the studio.
    local,  ///< The user, or the editor, on this workstation.
    studio, ///< The studio, for who has no other.
};

/// A store in which a key has a value in each of several layers, of which a read takes the first. For tools that show the
/// others too.
///
/// Threads: any thread may call. Errors: `StorageError`.
class LayeredStorage : public ISettingsStorage {
public:
    /// A value of one layer.
    struct LayeredRow {
        Layer layer;            ///< Whose value it is.
        SqliteStorage::Row row; ///< Of the layer `local`, which is a store of its own, only the key.
        std::string by;         ///< The login that set or locked it; empty of a local one and of one that is new in this program.
    };

    /// What the layers hold for `key`: first what a read takes, at last what everything else covers. Empty where a read gives its default.
    virtual std::vector<LayeredRow> layersOf(std::string const& key) const = 0;
    /// The keys for which a layer other than `local` holds a value, sorted.
    virtual std::vector<std::string> sharedKeys() const = 0;
};

} // namespace Storage
