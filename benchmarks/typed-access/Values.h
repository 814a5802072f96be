// SPDX-License-Identifier: MIT
//
// What is read and written, the same for the library and its peers.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <boost/rational.hpp>

#include <string>

namespace Values {

inline std::string const boolKey = "openOutputAfterExport";
inline std::string const intKey = "npsReadyNotificationCount";
inline std::string const stringKey = "lastUsedPresetGroup";
inline std::string const textKey = "lastAddDirectoryPath";
inline std::string const absentTextKey = "lastAddImageDirectoryPath";
inline std::string const bytesKey = "splitterTopPanelGeometry";
inline std::string const listKey = "userCustomColors";
inline std::string const rationalKey = "timelineFrameRateOfExport";

inline bool const boolean = true;
inline int const number = 4711;
/// 46 characters, as the text and its default have.
inline std::string const string = "/home/u/Videos/Lumora Video Editor/Media Files";
inline QString const text = QString::fromStdString(string);
/// As large as the state of a window's splitters.
inline QByteArray const bytes = QByteArray(200, '\x7f');
inline QStringList const list{QStringLiteral("#ff8800"), QStringLiteral("#000080"), QStringLiteral("#00ff7f"), QStringLiteral("#8b4513"),
                              QStringLiteral("#fffafa")};
inline boost::rational<long long> const rational{30000, 1001};

} // namespace Values
