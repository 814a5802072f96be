// SPDX-License-Identifier: MIT
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    TestKit::TemporaryHome const home;
    // What the command line looks up before the home folder.
    ::unsetenv("EDITOR_SETTINGS_HOME");
    ::unsetenv("EDITOR_SETTINGS_PRODUCT");
    return RUN_ALL_TESTS();
}
