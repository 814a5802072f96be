// SPDX-License-Identifier: MIT
#include "commands/NextName.h"

#include "commands/Output.h"
#include "terminal/Escaping.h"
#include <Inspection/PathStatus.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>

#include <Settings/Settings.h>

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Inspection::isUtf8;

namespace {

QString utf8(std::string const& word)
{
    if (!isUtf8(word))
        throw UserError(absl::StrCat(quotedBriefly(word), " is not UTF-8 without a byte order mark; give the name in UTF-8"));
    // A name can be a pattern, and a pattern that nests deep would take more stack than there is.
    if (word.size() >= PATH_MAX)
        throw UserError(absl::StrCat(quotedBriefly(word), " is longer than a path can be; give the name of a file"));
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
    PathStatus check = writtenFolderStatus(proposal.folder);
    // The folder may come and go while it is looked at.
    for (int tries = 1; !check.isUsable && tries < triesWhereTheFolderComesAndGoes; ++tries)
        check = writtenFolderStatus(proposal.folder);
    if (!check.isUsable)
        throw UserError(absl::StrCat("nothing can be reserved in ", folder, ", which is ", proposal.setting, ": ", check.remark,
                                     "; store another folder there, or mend that"));
    QString const beginning = proposal.folder + QDir::separator();
    if (!proposal.path.startsWith(beginning))
        throw UserError(absl::StrCat(proposal.setting, " was changed meanwhile; try again"));
    QString const name = proposal.path.mid(beginning.size());
    if (name.contains(QDir::separator()) || name.contains(QChar(0)))
        throw UserError(absl::StrCat("the name ", quoted(name.toStdString()), " would not lie in ", folder,
                                     " as it is; take a format without \"/\" and NUL"));
    return name;
}

[[noreturn]] void refuse(char const* what, fs::path const& path, std::error_code const& error)
{
    std::string const remedy = error == std::errc::filename_too_long ? "take a source with a shorter name"
                                                                     : "'editor-settings paths --check' tells which folders can be used";
    throw UserError(absl::StrCat("cannot make the ", what, " ", quoted(path.u8string()), " (", error.message(), "); ", remedy));
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
            refuse("file", file, error);
    }
    refuse("folder", file.parent_path(), error);
}

fs::path onDisk(QString const& folder, QString const& name) { return fs::u8path((folder + QDir::separator() + name).toStdString()); }

// Claims the first free name that has " (2)", " (3)" and so on before the extension of a taken one.
QString claimedBeside(QString const& taken, QString const& folder)
{
    QFileInfo const parts(taken);
    QString const extension = parts.suffix().isEmpty() ? QString() : QLatin1Char('.') + parts.suffix();
    QString const stem = taken.left(taken.size() - extension.size());
    for (int number = 2;; ++number)
        if (QString const name = stem + QStringLiteral(" (%1)").arg(number) + extension; claimed(onDisk(folder, name)))
            return name;
}

// Claims the first proposal that nobody has. The library proposes some taken names again, such as the one for "Clip (1).mov".
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
        why = isTheSame ? absl::StrCat(taken, " is there already, though the editor would propose it")
                        : absl::StrCat(taken, " was taken by someone else meanwhile");
        name = isTheSame ? claimedBeside(name, asked.folder) : again;
        if (isTheSame)
            break;
    }
    if (!why.empty())
        printError(absl::StrCat(why, "; ", quoted(name.toStdString()), " is reserved instead"));
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
        throw UserError(
            absl::StrCat(quoted(path), " is reserved, but standard output cannot be written; remove the file if it is not wanted"));
}
