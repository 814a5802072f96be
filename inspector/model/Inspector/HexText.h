// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace Inspector {

/// `bytes` for people: 16 on a line, with their offset before them and those that are printable ASCII behind them. Of more than
/// `most` bytes the first ones, and a last line that says how many follow.
QString hexText(QByteArray const& bytes, int most);

} // namespace Inspector
