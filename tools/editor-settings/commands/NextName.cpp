// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/values/Output.h"
#include "terminal/Escaping.h"
#include <Inspection/PathStatus.h>
#include <Inspection/ValueFormat.h>

#include <absl/strings/str_cat.h>
#include <nlohmann/json.hpp>

#include <Settings/Settings.h>

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <climits>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;
using Inspection::isUtf8;
using Inspection::PathStatus;

namespace {

enum class NameKind { audio, freeze, stabilized };

struct NextNameOptions {
    NameKind file = NameKind::audio;
    std::string source;   // The file that a freeze frame or a stabilized clip is made of; only its name counts.
    std::string format;   // Of a stabilized clip.
    bool reserve = false; // Make the file, empty, so that the name is taken.
};

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
    case NameKind::audio:
        return {"audioRecordPath", Settings::audioRecordPath(), Settings::generateAudioRecordFilePath()};
    case NameKind::freeze:
        return {"exportPath", Settings::exportPath(), Settings::generateFreezedFilePath(utf8(options.source))};
    case NameKind::stabilized:
        break;
    }
    return {"stabilizedFilePath", Settings::stabilizedFilePath(),
            Settings::generateStabilizedFilePath(utf8(options.source), utf8(options.format))};
}

// --- Reserving ---

constexpr int triesWhereTheFolderComesAndGoes = 100;

// The file name of `proposal`. Throws `UserError` where it would not lie in a usable folder.
QString checkedName(Proposal const& proposal)
{
    std::string const folder = quoted(proposal.folder.toStdString());
    PathStatus status = Inspection::writtenFolderStatus(proposal.folder);
    for (int tries = 1; !status.isUsable && tries < triesWhereTheFolderComesAndGoes; ++tries)
        status = Inspection::writtenFolderStatus(proposal.folder);
    if (!status.isUsable)
        throw UserError(absl::StrCat("nothing can be reserved in ", folder, ", which is ", proposal.setting, ": ",
                                     onOneLine(remark(status)), "; set ", proposal.setting, " to another folder"));
    QString const beginning = proposal.folder + QDir::separator();
    if (!proposal.path.startsWith(beginning))
        throw UserError(absl::StrCat(proposal.setting, " was changed meanwhile; try again"));
    QString const name = proposal.path.mid(beginning.size());
    if (name.contains(QDir::separator()) || name.contains(QChar(0)))
        throw UserError(absl::StrCat("the name ", quoted(name.toStdString()), " would not lie in ", folder,
                                     " as it is; take a format without \"/\" and NUL"));
    return name;
}

[[noreturn]] void fail(char const* what, fs::path const& path, std::error_code const& error)
{
    std::string const remedy = error == std::errc::filename_too_long ? "take a source with a shorter name"
                                                                     : "'editor-settings paths --check' tells which folders can be used";
    throw UserError(absl::StrCat("cannot make the ", what, " ", quoted(path.u8string()), " (", error.message(), "); ", remedy));
}

fs::path filePath(QString const& folder, QString const& name) { return fs::u8path((folder + QDir::separator() + name).toStdString()); }

// Creates the file, and its folder where that is missing. False where the name is taken, be it by a dangling link.
bool claims(fs::path const& file)
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
            fail("file", file, error);
    }
    fail("folder", file.parent_path(), error);
}

// Claims the first free name that has " (2)", " (3)" and so on before the extension of the taken one.
QString claimedBeside(QString const& taken, QString const& folder)
{
    QFileInfo const parts(taken);
    QString const extension = parts.suffix().isEmpty() ? QString() : QLatin1Char('.') + parts.suffix();
    QString const stem = taken.left(taken.size() - extension.size());
    for (int number = 2;; ++number)
        if (QString const name = stem + QStringLiteral(" (%1)").arg(number) + extension; claims(filePath(folder, name)))
            return name;
}

void printInstead(QString const& taken, char const* why, QString const& name)
{
    printError(absl::StrCat(quoted(taken.toStdString()), why, "; ", quoted(name.toStdString()), " is reserved instead"));
}

// Claims the first proposal that is free. The library proposes some taken names again, such as the one for "Clip (1).mov".
fs::path reserved(NextNameOptions const& options)
{
    for (QString taken;;) {
        Proposal const proposed = proposal(options);
        QString const name = checkedName(proposed);
        if (claims(filePath(proposed.folder, name))) {
            if (!taken.isNull() && taken != name)
                printInstead(taken, " was taken by someone else meanwhile", name);
            return filePath(proposed.folder, name);
        }
        if (name == taken) {
            QString const beside = claimedBeside(name, proposed.folder);
            printInstead(taken, " is there already, though the editor would propose it", beside);
            return filePath(proposed.folder, beside);
        }
        taken = name;
    }
}

// Prints the path that the library proposes, or the one that was reserved. Throws `UserError` where none can be.
void showNextName(NextNameOptions const& options, Format format)
{
    // The file exists even where nobody reads its name any more, so the error below must still be printed.
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

struct NextNameWords {
    NextNameOptions options;
    FormatChoice format;
};

Command nextNameOf(std::shared_ptr<NextNameWords> const& words, NameKind file, char const* name, char const* summary)
{
    Command command;
    command.name = name;
    command.summary = summary;
    command.stores = always(StoreUse::read);
    command.studio = StudioUse::look;
    command.run = [words, file](Invocation const&) {
        words->options.file = file;
        showNextName(words->options, words->format);
        return 0;
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfNextName()
{
    auto const words = std::make_shared<NextNameWords>();
    Option const source = Option("SOURCE", &words->options.source, "The file that it is made of; only its name counts")
                              .required()
                              .completedBy(Candidates::files);
    Command audio = nextNameOf(words, NameKind::audio, "audio", "An audio recording");
    audio.examples = {{"editor-settings next-name audio --plain", "The path on one line, whatever its folder is called."}};
    Command freeze = nextNameOf(words, NameKind::freeze, "freeze", "A freeze frame");
    freeze.options = {source};
    freeze.examples = {{"editor-settings next-name freeze holiday.mov", "The next freeze frame of that film."}};
    Command stabilized = nextNameOf(words, NameKind::stabilized, "stabilized", "A stabilized clip");
    stabilized.options = {source, Option("FORMAT", &words->options.format, "The extension, such as mp4").required()};
    stabilized.examples = {{"editor-settings next-name stabilized holiday.mov mp4", "The next stabilized clip of it."}};

    Command command;
    command.name = "next-name";
    command.group = Group::change;
    command.summary = "The name that the editor gives the next file of a kind";
    command.options = withFormat(words->format, jsonHelp,
                                 {Option("--reserve", &words->options.reserve,
                                         "Makes the file, empty, so that nobody else gets the name; the folder too, and a free number "
                                         "where needed")});
    command.examples = {
        {"editor-settings next-name audio", "The file that the next recording goes into."},
        {"editor-settings next-name --reserve freeze holiday.mov", "Makes an empty file of the next name, and prints that."}};
    command.verbs = {audio, freeze, stabilized};
    return {command};
}
