// SPDX-License-Identifier: MIT
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    TestKit::TemporaryHome const home;
    return RUN_ALL_TESTS();
}
