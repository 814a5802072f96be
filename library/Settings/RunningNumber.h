// SPDX-License-Identifier: MIT
//
// The highest running number in a folder, as QDir, QFileInfo and QRegExp find it, in one pass that keeps no name.
#pragma once

#include <QString>

namespace RunningNumber {

/// Which names of a folder count, and where their number stands. Where `pattern` is empty, `filter` holds up to four "*",
/// no other wildcard, and characters outside ASCII only as `before` and `after` hold them.
struct Layout {
    QString filter;              ///< Wildcard for the whole name, in any case.
    QString before;              ///< Text right before the number; ends with no digit.
    QString after = QString();   ///< Text right after the number; begins with no digit.
    QString stem = QString();    ///< Text that the complete base name begins with.
    QString pattern = QString(); ///< QRegExp that replaces `before` and `after`; its first group is the number.
};

/// The highest number in the names of the files in `folder`, 0 without one; a number that does not fit an int is 0.
/// As with QDir::Files, hidden files do not count, and links count unless they are broken or lead to a folder. A folder
/// that cannot be read is empty. The folder is listed once.
int highest(QString const& folder, Layout const& layout);

/// A pattern for the text as it stands, as QRegExp::escape makes it.
QString escaped(QString const& text);

} // namespace RunningNumber
