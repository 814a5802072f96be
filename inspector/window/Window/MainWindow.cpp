// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>

#include <Window/pane/SettingPane.h>

namespace Inspector {

MainWindow::MainWindow(Place const& place, QWidget* parent) : QMainWindow(parent), m_desk(place)
{
    setCentralWidget(new SettingPane(place, this));
}

} // namespace Inspector
