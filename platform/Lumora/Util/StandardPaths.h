// SPDX-License-Identifier: MIT

/// @file
/// Where the user's standard directories lie. Both functions compute a path and neither create nor check a directory.
/// Any thread may call them, also while another changes the environment with `qputenv`; `setenv` takes no such lock.
#pragma once

#include <Lumora/Util/Export.h>

#include <QStandardPaths>
#include <QString>

namespace Lumora {
/// Standard directories and conversions.
namespace Util {

/// The directory that the platform gives the user for `location`, such as "/home/u/Videos" for the movies location:
/// `QStandardPaths::writableLocation`. Absolute, "/" as separator; empty where the platform has no such location.
LUMORA_UTIL_EXPORT QString GetStandardPath(QStandardPaths::StandardLocation location);

/// The user-library folder called `name`: that folder in the movies location, such as "/home/u/Videos/Lumora Library".
LUMORA_UTIL_EXPORT QString GetLumoraLibraryPath(QString name);

} // namespace Util
} // namespace Lumora
