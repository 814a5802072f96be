// SPDX-License-Identifier: MIT
#include <Lumora/Util/StandardPaths.h>

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation location) { return QStandardPaths::writableLocation(location); }

// Asks GetStandardPath rather than Qt, so that a host which replaces that one function moves the user library with it.
QString Lumora::Util::GetLumoraLibraryPath(QString name)
{
    return GetStandardPath(QStandardPaths::MoviesLocation) + QLatin1Char('/') + name;
}
