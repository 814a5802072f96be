// SPDX-License-Identifier: MIT
#include "NextName.h"

#include "Text.h"

#include <Settings/Settings.h>

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

QString utf8(std::string const& word)
{
    QString const text = QString::fromStdString(word);
    if (text.toStdString() != word)
        throw Refusal(quoted(word) + " is not UTF-8 without a byte order mark; give the name in UTF-8");
    return text;
}

QString proposal(NextNameOptions const& options)
{
    switch (options.file) {
    case NewFile::audio:
        return Settings::generateAudioRecordFilePath();
    case NewFile::freeze:
        return Settings::generateFreezedFilePath(utf8(options.source));
    case NewFile::stabilized:
        return Settings::generateStabilizedFilePath(utf8(options.source), utf8(options.format));
    }
    return {};
}

// --- Numbers, where the library's own cannot be had ---

// What stands before the number in a proposed name.
QString beforeNumber(NextNameOptions const& options)
{
    switch (options.file) {
    case NewFile::audio:
        return QStringLiteral("Rec-");
    case NewFile::freeze: {
        // The stem may hold placeholders, which the library fills, so that the number may stand anywhere.
        QChar const mark(1);
        QString const stem = QFileInfo(utf8(options.source)).completeBaseName();
        QString const format = QString::fromStdString(Settings::freezedFileFormat());
        return QStringLiteral("%1 (%2).%3").arg(stem).arg(mark).arg(format).section(mark, 0, 0);
    }
    case NewFile::stabilized:
        return QFileInfo(utf8(options.source)).baseName() + QLatin1Char('-');
    }
    return {};
}

// Counts on from a proposed path that is taken.
class Counter {
public:
    Counter(QString const& path, QString const& prefix)
    {
        int const begin = path.lastIndexOf(QDir::separator() + prefix) + 1 + prefix.size();
        int end = begin + (path.mid(begin, 1) == QLatin1String("-"));
        while (end < path.size() && path[end] >= QLatin1Char('0') && path[end] <= QLatin1Char('9'))
            ++end;
        m_before = path.left(begin);
        m_number = path.mid(begin, end - begin).toLongLong();
        m_after = path.mid(end);
    }

    QString next() { return m_before + QString::number(++m_number) + m_after; }

private:
    QString m_before;
    qlonglong m_number;
    QString m_after;
};

// --- Reserving ---

std::string reason(int error) { return std::generic_category().message(error); }

void makeFolder(fs::path const& folder)
{
    std::error_code error;
    fs::create_directories(folder, error);
    if (error)
        throw Refusal("cannot make the folder " + quoted(folder.u8string()) + " (" + error.message() +
                      "); 'editor-settings paths --check' tells which folders can be used");
}

// Makes the file where nothing of that name is there, be it a link that leads nowhere. Whether it did.
bool claimed(fs::path const& file)
{
    makeFolder(file.parent_path());
    int const descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (descriptor < 0 && errno == EEXIST)
        return false;
    if (descriptor < 0)
        throw Refusal("cannot make the file " + quoted(file.u8string()) + " (" + reason(errno) + "); mend that, or choose another folder");
    ::close(descriptor);
    return true;
}

fs::path onDisk(QString const& path) { return fs::u8path(path.toStdString()); }

QString fileName(QString const& path) { return path.section(QDir::separator(), -1); }

// Claims the first proposal that nobody has. Where the library proposes a taken name a second time, it does not count
// that name, and never will: from there on the numbers are counted here.
QString reserved(NextNameOptions const& options)
{
    QString const first = proposal(options);
    QString path = first;
    std::string why;
    while (!claimed(onDisk(path))) {
        QString const again = proposal(options);
        if (again != path) {
            why = "someone else took " + quoted(fileName(first).toStdString()) + " meanwhile";
            path = again;
            continue;
        }
        why = quoted(fileName(path).toStdString()) + " is there already, though the editor would propose it";
        Counter counter(path, beforeNumber(options));
        do
            path = counter.next();
        while (!claimed(onDisk(path)));
        break;
    }
    if (!why.empty())
        std::cerr << "editor-settings: " << why << "; " << quoted(fileName(path).toStdString()) << " is reserved instead\n";
    return path;
}

} // namespace

void showNextName(NextNameOptions const& options, Format format)
{
    std::string const path = (options.reserve ? reserved(options) : proposal(options)).toStdString();
    if (format == Format::json)
        printJson({{"path", path}, {"reserved", options.reserve}});
    else
        std::cout << (format == Format::plain ? onOneLine(path) : path) << '\n';
}
