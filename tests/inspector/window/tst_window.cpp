// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>

#include <TestKit/TemporaryHome.h>

#include <QApplication>

#include <gtest/gtest.h>

#include <filesystem>

namespace {

TEST(Window, LookingMakesNoStore)
{
    ::qputenv("QT_QPA_PLATFORM", "offscreen");
    int argc = 1;
    char name[] = "window";
    char* argv[] = {name, nullptr};
    QApplication const application(argc, argv);
    TestKit::TemporaryHome const home;
    {
        Inspector::MainWindow window({home.path() / "product.json", home.path() / "stores"});
        window.show();
        QApplication::processEvents();
    }
    EXPECT_FALSE(std::filesystem::exists(home.path() / "stores"));
}

} // namespace
