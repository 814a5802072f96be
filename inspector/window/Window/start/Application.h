// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>

#include <memory>

namespace Inspector {

/// The application object of a window onto the stores. QStandardPaths puts the name of the application into folders of caches, where
/// an editor's is another one, so this one has no name. The screen reader and the window manager get the program's name nevertheless.
///
/// `argc` and `argv` must outlive it, and hold a name at least.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv);

} // namespace Inspector
