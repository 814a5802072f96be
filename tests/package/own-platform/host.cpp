// SPDX-License-Identifier: MIT
#include <Settings/Settings.h>

#include <cstdio>

int main()
{
    // The root is the platform library's: without a use of its own, the linker may leave that library to others to load.
    Settings::init({{}, {}, {}, Lumora::ioPath("resources")});
    std::puts(Settings::defaultProjectPath().toUtf8().constData());
}
