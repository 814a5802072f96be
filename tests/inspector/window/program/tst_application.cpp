// SPDX-License-Identifier: MIT
#include <Window/start/Application.h>

#include <gtest/gtest.h>

#include <QAccessible>
#include <QStandardPaths>

#include <cstdlib>

namespace {

TEST(Application, HasNoNameInPathsAndOneForScreenReaders)
{
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    ::setenv("XDG_CACHE_HOME", "/caches", 1);
    int argc = 2;
    char program[] = "/opt/bin/editor-settings-inspector";
    char key[] = "exportPath";
    char* argv[] = {program, key, nullptr};
    auto const application = Inspector::makeApplication(argc, argv);
    EXPECT_EQ(QCoreApplication::applicationName().toStdString(), "");
    EXPECT_EQ(QStandardPaths::writableLocation(QStandardPaths::CacheLocation).toStdString(), "/caches");
    EXPECT_EQ(QCoreApplication::arguments(),
              QStringList({QStringLiteral("/opt/bin/editor-settings-inspector"), QStringLiteral("exportPath")}));
    EXPECT_EQ(QGuiApplication::desktopFileName().toStdString(), "example.lumora.editor_settings_inspector");
    QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(application.get());
    ASSERT_TRUE(root);
    EXPECT_EQ(root->text(QAccessible::Name).toStdString(), "editor-settings-inspector");
    EXPECT_EQ(root->role(), QAccessible::Application);
}

} // namespace
