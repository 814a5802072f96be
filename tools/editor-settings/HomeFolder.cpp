// SPDX-License-Identifier: MIT
#include "HomeFolder.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <QUrl>

#include <algorithm>
#include <vector>

#include <pwd.h>
#include <unistd.h>

namespace {

QStringList homes()
{
    QStringList result = {QDir::homePath()};
    if (passwd const* const user = ::getpwuid(::geteuid()))
        result.append(QDir::cleanPath(QFile::decodeName(user->pw_dir)));
    for (QString const& home : QStringList(result))
        result.append(QDir(home).canonicalPath()); // empty where there is none
    result.removeAll(QString());
    return result;
}

// In bytes: the lower half of each unit first, or last.
std::string inUtf16(QString const& text, bool lowFirst)
{
    std::string bytes;
    for (QChar const unit : text)
        for (bool const low : {lowFirst, !lowFirst})
            bytes += static_cast<char>(low ? unit.cell() : unit.row());
    return bytes;
}

std::vector<std::string> const& forms()
{
    static std::vector<std::string> const all = [] {
        std::vector<std::string> result;
        for (QString const& home : homes())
            for (std::string const& form : {QFile::encodeName(home).toStdString(), home.toStdString(), inUtf16(home, true),
                                            inUtf16(home, false), QUrl::toPercentEncoding(home, "/").toStdString()})
                result.push_back(form);
        return result;
    }();
    return all;
}

} // namespace

bool tellsOfTheHome(std::string const& bytes)
{
    return std::any_of(forms().begin(), forms().end(), [&](std::string const& form) { return bytes.find(form) != std::string::npos; });
}
