// SPDX-License-Identifier: MIT
#include <Inspector/HexText.h>

#include <QStringList>

namespace Inspector {

namespace {

constexpr int perLine = 16;

QChar shown(char byte) { return byte >= ' ' && byte <= '~' ? QLatin1Char(byte) : QLatin1Char('.'); }

QString line(int offset, QByteArray const& bytes)
{
    QString text;
    for (char const byte : bytes)
        text += shown(byte);
    QString const hex = QString::fromLatin1(bytes.toHex(' ')).leftJustified(3 * perLine - 1);
    return QStringLiteral("%1  %2  ").arg(offset, 4, 16, QLatin1Char('0')).arg(hex) + text;
}

} // namespace

QString hexText(QByteArray const& bytes, int most)
{
    QByteArray const first = bytes.left(most);
    QStringList lines;
    for (int offset = 0; offset < first.size(); offset += perLine)
        lines += line(offset, first.mid(offset, perLine));
    if (bytes.size() > most)
        lines += QStringLiteral("and %1 bytes more").arg(bytes.size() - most);
    return lines.join(QLatin1Char('\n'));
}

} // namespace Inspector
