// SPDX-License-Identifier: MIT
//
// Questions to the library and its answers as lines of ASCII, the same for the same answer whatever the Qt.
#pragma once

#include <boost/rational.hpp>

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <set>
#include <string>

namespace Answers {

/// From now on `home` is shown as "HOME", and what Qt has to say goes to the answers instead of standard error.
void start(std::string const& home);

/// In quotes; what is no printable ASCII as its bytes.
std::string shown(std::string const& bytes);
/// In quotes; what is no printable ASCII as its code units, which may be half a pair. A null text differs from an empty one.
std::string shown(QString const& text);
std::string shown(QByteArray const& bytes);
std::string shown(QStringList const& list);
std::string shown(int number);
std::string shown(bool flag);
std::string shown(boost::rational<long long> const& fraction);

/// The digits of the time in a recording's path, as the zero of their script.
QString withoutTime(QString path);

/// A line for an answer that is already shown, and one for each thing that Qt said since the last call.
std::string lines(std::string const& question, std::string const& shownAnswer);

} // namespace Answers
