// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What is fixed for the product, whatever its product information says.
namespace Configuration {

/// "Lumora Video Editor": the product's folder in every standard location that the library places folders in.
/// It exists before every other object of the library and is read-only: any thread may read it.
#pragma GCC visibility push(default)
extern QString const productDataFolder;
#pragma GCC visibility pop

} // namespace Configuration
