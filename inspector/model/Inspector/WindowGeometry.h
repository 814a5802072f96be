// SPDX-License-Identifier: MIT
//
// What widgets of Qt 5 and Qt 6 save of themselves, read from its bytes. The formats are Qt's own and unpublished, so only bytes that
// fit to the last one are taken for them, and none is ever written.
#pragma once

#include <QByteArray>
#include <QRect>
#include <QString>

#include <optional>
#include <vector>

namespace Inspector {

/// What a window saves of its place, version 3.0.
struct WindowGeometry {
    QRect frame;  ///< With its borders.
    QRect normal; ///< Where it was before it was maximized or full screen.
    QRect now;    ///< Without its borders.
    int screen = 0;
    int screenWidth = 0; ///< In pixels.
    bool isMaximized = false;
    bool isFullScreen = false;
};

/// nullopt for any other bytes.
std::optional<WindowGeometry> windowGeometryIn(QByteArray const& bytes);

/// What a splitter saves of its parts, version 1.
struct SplitterState {
    std::vector<int> sizes; ///< In pixels, one for each part; 0 for one that is collapsed.
    bool isVertical = false;
};

/// nullopt for any other bytes.
std::optional<SplitterState> splitterStateIn(QByteArray const& bytes);

/// What the bytes look like, on several lines; empty where they are not recognised.
QString recognised(QByteArray const& bytes);

} // namespace Inspector
