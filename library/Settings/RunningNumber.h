// SPDX-License-Identifier: MIT
//
// The highest number in the names of a folder, found in one pass over what the kernel lists. The answer is Qt's own, to the
// letter; where only Qt can tell, as with names outside ASCII, there is none, and the caller asks Qt.
#pragma once

#include <QString>

#include <optional>

namespace RunningNumber {

/// The highest number that the group "(\d+)" of `pattern`, a QRegExp, finds in the name of a file in `folder`; 0 without
/// one, and for a number that does not fit an int. A name counts where `filter`, a wildcard for the whole name, matches
/// it in any case and its complete base name begins with `stem`. Hidden files do not count; links count as what they
/// lead to. A folder that cannot be read holds none.
/// Nothing, as only Qt can tell, where
/// - `folder` is not an absolute path, or so long that not every name may follow it;
/// - one of the texts is not ASCII, or means more than its characters; up to four "*" in the filter and a ".*" at the end
///   of the pattern are understood;
/// - a name that may count is not ASCII, or holds a ":" while there is a `stem`;
/// - names of files are not read as UTF-8, or the system is not Linux with the GNU C library.
std::optional<int> highest(QString const& folder, QString const& filter, QString const& pattern, QString const& stem = QString());

} // namespace RunningNumber
