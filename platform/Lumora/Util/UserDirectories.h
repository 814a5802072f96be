// SPDX-License-Identifier: MIT
//
// Not for other libraries: the folders that the user names in user-dirs.dirs, on Linux.
#pragma once

#include <QStandardPaths>
#include <QString>

namespace Lumora {
namespace Util {

/// `QStandardPaths::writableLocation(location)`, for the movies or the music location. Qt reads user-dirs.dirs and compiles a
/// regular expression for each answer; here its answer is kept, and given again while one look at the file and the
/// environment shows what there was when Qt was asked. What the look does not show: a change through a shared memory
/// mapping of the file, which need not touch its stamps, and that the process became another user.
/// Any thread may call it while none changes the environment; static destructors may, too.
QString userDirectory(QStandardPaths::StandardLocation location);

} // namespace Util
} // namespace Lumora
