// SPDX-License-Identifier: MIT
#include <Settings/Settings.h>
#include <Settings/Version.h>

#include <cstdio>

int main()
{
    std::puts(EDITOR_SETTINGS_VERSION_STRING);
    std::puts(Settings::defaultProjectPath().toUtf8().constData());
}
