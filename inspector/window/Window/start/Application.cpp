// SPDX-License-Identifier: MIT
#include <Window/start/Application.h>

#include <QAccessible>
#include <QAccessibleObject>

#include <utility>

namespace Inspector {

namespace {

/// The root of all that a screen reader gets.
class Root : public QAccessibleApplication {
public:
    QString text(QAccessible::Text which) const override
    {
        return which == QAccessible::Name ? QStringLiteral("editor-settings-inspector") : QAccessibleApplication::text(which);
    }
};

QAccessibleInterface* rootOf(QString const&, QObject* object) { return object && object == qApp ? new Root : nullptr; }

} // namespace

// An empty name that is set later counts as none, and the program's file takes its place.
std::unique_ptr<QApplication> makeApplication(int& argc, char** argv)
{
    char noName[] = "";
    char* const program = std::exchange(argv[0], noName);
    auto application = std::make_unique<QApplication>(argc, argv);
    argv[0] = program; // X11's WM_CLASS is made of it when the first window is
    QGuiApplication::setDesktopFileName(QStringLiteral("example.lumora.editor_settings_inspector"));
    QAccessible::installFactory(rootOf);
    return application;
}

} // namespace Inspector
