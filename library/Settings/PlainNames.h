// SPDX-License-Identifier: MIT
//
// Questions about the files of a folder that Qt answers by listing the whole folder as texts, answered in one pass over
// what the kernel lists. The answers are Qt's own, to the letter; where only Qt can tell, as with names outside ASCII,
// there is none, and the caller asks Qt.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace PlainNames {

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
std::optional<int> highestNumber(QString const& folder, QString const& filter, QString const& pattern, QString const& stem = QString());

/// The path of the first regular file in or below `folder` whose name one of the `filters` matches, as above: the first
/// as the file system lists them, each folder where it is met. Links and hidden folders are not entered. A null text
/// where there is none.
/// Nothing, as above, for the same folders, filters and systems, where there is no filter, and where a name on the way is
/// not ASCII.
std::optional<QString> firstBelow(QString const& folder, QStringList const& filters);

} // namespace PlainNames
