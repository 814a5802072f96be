// SPDX-License-Identifier: MIT
#include <Inspector/WindowGeometry.h>

#include <QDataStream>
#include <QStringList>

namespace Inspector {

namespace {

constexpr quint32 geometryMark = 0x1D9D0CB;
constexpr qint32 splitterMark = 0xFF;
constexpr qint32 vertical = 2;

bool isReadToTheEnd(QDataStream const& stream) { return stream.status() == QDataStream::Ok && stream.atEnd(); }

// A byte that Qt writes as 0 or 1 only.
bool takesFlag(QDataStream& stream, bool& flag)
{
    quint8 byte = 0;
    stream >> byte;
    flag = byte == 1;
    return byte <= 1;
}

QString shown(QRect const& place)
{
    return QStringLiteral("%1,%2 %3\u00D7%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

QString shown(WindowGeometry const& window)
{
    QStringList const lines = {
        QStringLiteral("window geometry of Qt, version 3.0"),
        QStringLiteral("frame ") + shown(window.frame),
        QStringLiteral("normal ") + shown(window.normal),
        QStringLiteral("now ") + shown(window.now),
        QStringLiteral("screen %1 (%2 wide)").arg(window.screen).arg(window.screenWidth),
        (window.isMaximized ? QStringLiteral("maximized, ") : QStringLiteral("not maximized, ")) +
            (window.isFullScreen ? QStringLiteral("full screen") : QStringLiteral("not full screen")),
    };
    return lines.join(QLatin1Char('\n'));
}

QString shown(SplitterState const& splitter)
{
    QStringList sizes;
    for (int const size : splitter.sizes)
        sizes += QString::number(size);
    return QStringLiteral("splitter state of Qt, version 1\n%1, sizes %2")
        .arg(splitter.isVertical ? QStringLiteral("vertical") : QStringLiteral("horizontal"), sizes.join(QStringLiteral(", ")));
}

} // namespace

std::optional<WindowGeometry> windowGeometryIn(QByteArray const& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_4_0);
    quint32 mark = 0;
    quint16 major = 0;
    quint16 minor = 0;
    WindowGeometry window;
    qint32 screen = 0;
    qint32 screenWidth = 0;
    stream >> mark >> major >> minor >> window.frame >> window.normal >> screen;
    bool const areFlags = takesFlag(stream, window.isMaximized) && takesFlag(stream, window.isFullScreen);
    stream >> screenWidth >> window.now;
    window.screen = screen;
    window.screenWidth = screenWidth;
    bool const isVersion3 = mark == geometryMark && major == 3 && minor == 0;
    return isVersion3 && areFlags && isReadToTheEnd(stream) ? std::optional(window) : std::nullopt;
}

std::optional<SplitterState> splitterStateIn(QByteArray const& bytes)
{
    QDataStream stream(bytes);
    stream.setVersion(QDataStream::Qt_4_0);
    qint32 mark = 0;
    qint32 version = 0;
    quint32 count = 0;
    stream >> mark >> version >> count;
    if (mark != splitterMark || version != 1 || count > static_cast<quint32>(bytes.size()) / sizeof(qint32))
        return std::nullopt;
    SplitterState splitter;
    for (quint32 part = 0; part < count; ++part) {
        qint32 size = 0;
        stream >> size;
        splitter.sizes.push_back(size);
    }
    bool flag = false; // whether parts collapse, whether they follow the hand, and whether somebody chose that
    qint32 handleWidth = 0;
    qint32 orientation = 0;
    bool areFlags = takesFlag(stream, flag);
    stream >> handleWidth;
    areFlags = takesFlag(stream, flag) && areFlags;
    stream >> orientation;
    areFlags = takesFlag(stream, flag) && areFlags;
    splitter.isVertical = orientation == vertical;
    bool const isOrientation = orientation == 1 || orientation == vertical;
    return areFlags && isOrientation && isReadToTheEnd(stream) ? std::optional(splitter) : std::nullopt;
}

QString recognised(QByteArray const& bytes)
{
    if (std::optional<WindowGeometry> const window = windowGeometryIn(bytes))
        return shown(*window);
    std::optional<SplitterState> const splitter = splitterStateIn(bytes);
    return splitter ? shown(*splitter) : QString();
}

} // namespace Inspector
