// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Constants of the product, independent of its product information.
namespace Configuration {

/// "Lumora Video Editor": the product's folder in every standard location in which the library places folders.
/// The library constructs it first. Read-only: any thread may read it.
#pragma GCC visibility push(default)
extern QString const productDataFolder;
#pragma GCC visibility pop

} // namespace Configuration
