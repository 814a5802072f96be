// SPDX-License-Identifier: MIT
#include "NextName.h"

#include "FolderCheck.h"
#include "Text.h"
#include "Translation.h"

#include <Settings/Settings.h>

#include <QDir>
#include <QFileInfo>
#include <QRegExp>

#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

QString utf8(std::string const& word)
{
    if (!isUtf8(word))
        throw Refusal(Text::of("%1 is not UTF-8 without a byte order mark; give the name in UTF-8", quotedBriefly(word)));
    // A name can be a pattern, and a pattern that nests deep would take more stack than there is.
    if (word.size() >= PATH_MAX)
        throw Refusal(Text::of("%1 is longer than a path can be; give the name of a file", quotedBriefly(word)));
    return QString::fromStdString(word);
}

// The folder setting that the name goes into, and the path that the library proposes.
struct Proposal {
    char const* setting;
    QString folder;
    QString path;
};

Proposal proposal(NextNameOptions const& options)
{
    switch (options.file) {
    case NewFile::audio:
        return {"audioRecordPath", Settings::audioRecordPath(), Settings::generateAudioRecordFilePath()};
    case NewFile::freeze:
        return {"exportPath", Settings::exportPath(), Settings::generateFreezedFilePath(utf8(options.source))};
    case NewFile::stabilized:
        break;
    }
    return {"stabilizedFilePath", Settings::stabilizedFilePath(),
            Settings::generateStabilizedFilePath(utf8(options.source), utf8(options.format))};
}

// --- Reserving ---

constexpr int triesWhereTheFolderComesAndGoes = 100;

// The proposed name. Throws where it would not lie in a folder that can be used.
QString checkedName(Proposal const& proposal)
{
    std::string const folder = quoted(proposal.folder.toStdString());
    FolderCheck check = checkFolderToWrite(proposal.folder);
    // The folder may come and go while it is looked at.
    for (int tries = 1; !check.isUsable && tries < triesWhereTheFolderComesAndGoes; ++tries)
        check = checkFolderToWrite(proposal.folder);
    if (!check.isUsable)
        throw Refusal(Text::of("nothing can be reserved in %1, which is %2: %3; store another folder there, or mend that", folder,
                               proposal.setting, check.remark));
    QString const beginning = proposal.folder + QDir::separator();
    if (!proposal.path.startsWith(beginning))
        throw Refusal(Text::of("%1 was changed meanwhile; try again", proposal.setting));
    QString const name = proposal.path.mid(beginning.size());
    if (name.contains(QDir::separator()) || name.contains(QChar(0)))
        throw Refusal(
            Text::of("the name %1 would not lie in %2 as it is; take a format without \"/\" and NUL", quoted(name.toStdString()), folder));
    return name;
}

// `what` has places for the path, for the reason and for the remedy.
[[noreturn]] void refuse(char const* what, fs::path const& path, std::error_code const& error)
{
    std::string const remedy = error == std::errc::filename_too_long
                                   ? Text::of("take a source with a shorter name")
                                   : Text::of("'editor-settings paths --check' tells which folders can be used");
    throw Refusal(Text::of(what, quoted(path.u8string()), error.message(), remedy));
}

// Makes the file where nothing of that name is there, be it a link that leads nowhere. Whether it did.
bool claimed(fs::path const& file)
{
    std::error_code error;
    for (int tries = 0; tries < triesWhereTheFolderComesAndGoes; ++tries) {
        fs::create_directories(file.parent_path(), error);
        if (error)
            continue;
        int const descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            ::close(descriptor);
            return true;
        }
        if (errno == EEXIST)
            return false;
        error = {errno, std::generic_category()};
        if (error != std::errc::no_such_file_or_directory)
            refuse(Text::mark("cannot make the file %1 (%2); %3"), file, error);
    }
    refuse(Text::mark("cannot make the folder %1 (%2); %3"), file.parent_path(), error);
}

fs::path onDisk(QString const& folder, QString const& name) { return fs::u8path((folder + QDir::separator() + name).toStdString()); }

// The name that the library would give with another number in the place of that of `proposed`.
QString nameWith(NextNameOptions const& options, QString const& proposed, qlonglong number)
{
    switch (options.file) {
    case NewFile::audio:
        // The time is the proposed one.
        return QString(proposed).replace(QRegExp(QStringLiteral("^Rec--?[0-9]+")), QStringLiteral("Rec-") + QString::number(number));
    case NewFile::freeze:
        return QStringLiteral("%1 (%2).%3")
            .arg(QFileInfo(utf8(options.source)).completeBaseName())
            .arg(number)
            .arg(QString::fromStdString(Settings::freezedFileFormat()));
    case NewFile::stabilized:
        break;
    }
    return QStringLiteral("%1-%2.%3").arg(QFileInfo(utf8(options.source)).baseName(), QString::number(number), utf8(options.format));
}

// The number of a proposed name: the one of those within it that makes the same name. 0 where none does.
qlonglong numberOf(NextNameOptions const& options, QString const& proposed)
{
    QRegExp number(QStringLiteral("-?[0-9]+"));
    for (int at = number.indexIn(proposed); at >= 0; at = number.indexIn(proposed, at + 1))
        if (nameWith(options, proposed, number.cap().toLongLong()) == proposed)
            return number.cap().toLongLong();
    return 0;
}

// Claims the first name after a taken one that is free. The library does not count the taken one, and never will.
QString claimedAfter(QString const& taken, QString const& folder, NextNameOptions const& options)
{
    qlonglong number = numberOf(options, taken);
    QString name;
    do
        name = nameWith(options, taken, ++number);
    while (!claimed(onDisk(folder, name)));
    return name;
}

// Claims the first proposal that nobody has. Where the library proposes a taken name a second time, the numbers are
// counted on from there.
fs::path reserved(NextNameOptions const& options)
{
    Proposal asked = proposal(options);
    QString name = checkedName(asked);
    std::string why;
    while (!claimed(onDisk(asked.folder, name))) {
        asked = proposal(options);
        QString const again = checkedName(asked);
        bool const isTheSame = again == name;
        std::string const taken = quoted(name.toStdString());
        why = isTheSame ? Text::of("%1 is there already, though the editor would propose it", taken)
                        : Text::of("%1 was taken by someone else meanwhile", taken);
        name = isTheSame ? claimedAfter(name, asked.folder, options) : again;
        if (isTheSame)
            break;
    }
    if (!why.empty())
        tell(Text::of("%1; %2 is reserved instead", why, quoted(name.toStdString())));
    return onDisk(asked.folder, name);
}

} // namespace

void showNextName(NextNameOptions const& options, Format format)
{
    // Whoever reads the name may be gone; that a file was made is told nevertheless.
    if (options.reserve)
        std::signal(SIGPIPE, SIG_IGN);
    std::string const path = options.reserve ? reserved(options).u8string() : proposal(options).path.toStdString();
    if (format == Format::json)
        printJson({{"path", path}, {"reserved", options.reserve}});
    else
        printAsItIs(format == Format::plain ? onOneLine(path) : path);
    if (options.reserve && !std::cout.flush())
        throw Refusal(Text::of("%1 is reserved, but standard output cannot be written; remove the file if it is not wanted", quoted(path)));
}
