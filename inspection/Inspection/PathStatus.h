// SPDX-License-Identifier: MIT
//
// What a path leads to on disk, as the user who asks may use it. Nothing is made or changed to find out.
#pragma once

#include <QString>

#include <functional>
#include <string>

namespace Inspection {

/// Why a path cannot be used, or what is odd about it.
enum class PathReason {
    none,
    noPath,   ///< The library finds none.
    joined,   ///< The editor joins it to a folder, so it is no place by itself.
    embedded, ///< It lies inside the editor's program.
    empty,
    holdsNul,
    relative,
    danglingLink, ///< `detail` is the link's target.
    unreachable,  ///< The system cannot follow the path; `detail` is its error text.
    notAFolder,
    notWritable,
    notReadable,
    homeFolder,
    canBeMade, ///< A missing folder that the user may make.
    missing,
    unanswered, ///< Nothing is known yet: the system takes its time.
};

/// The state of one path.
struct PathStatus {
    bool exists = false;
    bool isWritable = false; ///< Of a missing folder: whether it can be made.
    bool isUsable = true;    ///< False where the editor writes there and cannot.
    PathReason reason = PathReason::none;
    std::string detail; ///< Raw bytes from the system, where `reason` has any.
    std::string above;  ///< The nearest existing folder above a missing one, in raw bytes, where `reason` is about that.
};

/// The status of a folder that the editor writes to.
PathStatus writtenFolderStatus(QString const& path);
/// The status of a file or folder that the editor reads.
PathStatus readPathStatus(QString const& path);

/// What a path is for.
enum class PathUse { written, read };
/// Finds the status of a path, on disk or from what is known of it.
using PathLook = std::function<PathStatus(QString const& path, PathUse use)>;
/// Asks the system, which may take minutes to answer for a folder on a network that is gone.
PathStatus statusOnDisk(QString const& path, PathUse use);

/// The word for scripts, which no version changes, such as "dangling-link"; empty for `none`.
char const* reasonName(PathReason reason);
/// `status.reason` in words, with paths in raw bytes; empty for `none`.
std::string remark(PathStatus const& status);
/// What makes a folder usable where it is, such as "remove the link"; empty where only another path helps.
std::string remedy(PathStatus const& status);

} // namespace Inspection
