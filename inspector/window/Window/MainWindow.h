// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>
#include <Inspector/Place.h>

#include <QMainWindow>

namespace Inspector {

/// The window onto the stores of `place`. It opens read-only.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Place const& place, QWidget* parent = nullptr);

private:
    Desk m_desk;
};

} // namespace Inspector
