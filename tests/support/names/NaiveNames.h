// SPDX-License-Identifier: MIT
//
// The oracle of the generated names: what the library computes, told a second time as plainly as can be, and without
// the library. It knows letters and digits of the characters that `isKnown` accepts.
#pragma once

#include <QString>
#include <QStringList>

#include <string>

namespace oracle {

/// Whether `bytes` are UTF-8.
bool isUtf8(std::string const& bytes);

/// Whether the oracle knows which letters `character` is the same as in another case, and whether it is a digit.
bool isKnown(uint character);

/// The names in `folder` that count, where `codec` (US-ASCII, ISO-8859-1 or UTF-8) is how the names of files are read.
QStringList listing(std::string const& folder, std::string const& codec);

/// `text` with `value` in all places of the lowest placeholder.
QString filled(QString const& text, QString const& value);

/// The name of a recording among `names`, with TIME for the time.
QString recording(QStringList const& names, QString const& format);
/// The name of a freeze frame of `source`.
QString freeze(QStringList const& names, QString const& source, QString const& format);
/// The name of the stabilized form of `source`.
QString stabilized(QStringList const& names, QString const& source, QString const& format);

} // namespace oracle
