// SPDX-License-Identifier: MIT

/// @file
/// The binding of the library to its host.
#pragma once

#include <Settings/IProductInfo.h>
#include <Settings/ISettingsStorage.h>

#include <Lumora/Util/ioPath.h>

#include <memory>

/// What a host binds to the library with `Settings::init`. The references are weak: the host owns the objects and
/// keeps them alive for as long as it calls the library.
struct SettingsContext {
    std::weak_ptr<IProductInfo> productInfo;        ///< Answers questions about the product build.
    std::weak_ptr<ISettingsStorage> commonStorage;  ///< Preferences shared with the updater and with statistics collection.
    std::weak_ptr<ISettingsStorage> productStorage; ///< Every other preference of the editor.
    Lumora::ioPath resourcesRoot;                   ///< The directory below which the product's stock content lies.
};

/// The bound context: empty from load until the first `Settings::init`, which alone writes it, without
/// synchronisation. To be read, never written, by hosts.
#pragma GCC visibility push(default)
extern SettingsContext s_instance;
#pragma GCC visibility pop
