// SPDX-License-Identifier: MIT
#include "commands/HomeFolder.h"

#include <Inspection/checks/FolderChecks.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStringList>

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
    QStringList const named = result;
    for (QString const& home : named)
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

// In the one spelling of the many that URLs, JSON, shells and joined paths have: %XX decoded, in small letters, without
// backslashes, each separator once.
std::string plain(std::string const& text)
{
    std::string result;
    QByteArray const lower = QByteArray::fromPercentEncoding(QByteArray::fromStdString(text)).toLower();
    for (char const byte : lower) {
        std::size_t const size = result.size();
        if (byte == '/' && size >= 2 && result.compare(size - 2, 2, "/.") == 0)
            result.pop_back();
        bool const isRepeated = byte == '/' && !result.empty() && result.back() == '/';
        if (byte != '\\' && !isRepeated)
            result += byte;
    }
    return result;
}

struct Forms {
    std::vector<std::string> asTheyAre;
    std::vector<std::string> plain;
};

Forms const& forms()
{
    static Forms const all = [] {
        Forms result;
        QStringList const folders = homes();
        for (QString const& home : folders) {
            for (std::string const& form : {QFile::encodeName(home).toStdString(), inUtf16(home, true), inUtf16(home, false)})
                result.asTheyAre.push_back(form);
            result.plain.push_back(plain(home.toStdString()));
        }
        return result;
    }();
    return all;
}

bool holdsOneOf(std::string const& bytes, std::vector<std::string> const& parts)
{
    return std::any_of(parts.begin(), parts.end(), [&](std::string const& part) { return bytes.find(part) != std::string::npos; });
}

} // namespace

bool tellsOfTheHome(std::string const& bytes) { return holdsOneOf(bytes, forms().asTheyAre) || holdsOneOf(plain(bytes), forms().plain); }

std::string troubleWithTheHome()
{
    Inspection::Findings const findings = Inspection::checkHome();
    return findings.empty() ? std::string() : findings.front().what;
}
