// SPDX-License-Identifier: MIT
#include <Host/Home.h>

#include <QDir>
#include <QFileInfo>

std::string Host::troubleWithHome()
{
    std::string const home = qgetenv("HOME").toStdString();
    if (home.empty())
        return "HOME is not set, so / is taken for the home folder";
    if (home[0] != '/')
        return "HOME is '" + home + "', which depends on the folder that a program is started in";
    QFileInfo const folder(QDir::homePath());
    if (folder.isDir())
        return {};
    return "HOME is '" + home + (folder.exists() ? "', which is not a folder" : "', which is not there");
}

std::string Host::ignoreRelativeDataFolder()
{
    std::string const folder = qgetenv("XDG_DATA_HOME").toStdString();
    bool const isRelative = qEnvironmentVariableIsSet("XDG_DATA_HOME") && folder.compare(0, 1, "/") != 0;
    if (isRelative)
        qunsetenv("XDG_DATA_HOME");
    return isRelative ? folder : std::string();
}
