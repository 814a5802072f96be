// SPDX-License-Identifier: MIT
#include <Inspection/PathStatus.h>

#include <Catalogue/Catalogue.h>

#include <absl/strings/str_cat.h>

#include <QDir>

#include <array>
#include <filesystem>
#include <map>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace Inspection {
namespace {

// Separators at the end go, since the system would follow a link before them.
fs::path withoutTrailingSeparators(QString const& path)
{
    std::string text = path.toStdString();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return fs::u8path(text);
}

bool userMay(fs::path const& path, int rights) { return ::faccessat(AT_FDCWD, path.c_str(), rights, AT_EACCESS) == 0; }

PathStatus unusable(PathStatus status, PathReason reason, std::string const& detail = {})
{
    status.isUsable = false;
    status.reason = reason;
    status.detail = detail;
    return status;
}

// The checks that do not depend on whether the editor reads the path or writes there.
PathStatus pathStatus(fs::path const& path)
{
    PathStatus status;
    if (path.empty())
        return unusable(status, PathReason::empty);
    if (path.native().find('\0') != std::string::npos)
        return unusable(status, PathReason::holdsNul);
    if (!path.is_absolute())
        return unusable(status, PathReason::relative);
    std::error_code error;
    bool const isLink = fs::is_symlink(fs::symlink_status(path, error));
    fs::file_status const target = fs::status(path, error);
    status.exists = fs::exists(target);
    if (target.type() == fs::file_type::none)
        return unusable(status, PathReason::unreachable, error.message());
    if (isLink && !status.exists)
        return unusable(status, PathReason::danglingLink, fs::read_symlink(path, error).u8string());
    status.isWritable = status.exists && userMay(path, W_OK);
    return status;
}

// A missing folder can be made where the user may write to the nearest existing folder above it.
PathStatus missingFolderStatus(fs::path const& path)
{
    fs::path above = path.parent_path();
    PathStatus status = pathStatus(above);
    while (status.isUsable && !status.exists) {
        above = above.parent_path();
        status = pathStatus(above);
    }
    status.exists = false;
    status.above = above.u8string();
    if (!status.isUsable)
        return status;
    std::error_code error;
    status.isWritable = userMay(above, W_OK | X_OK);
    if (!fs::is_directory(above, error))
        return unusable(status, PathReason::notAFolder);
    if (!status.isWritable)
        return unusable(status, PathReason::notWritable);
    status.above.clear();
    status.reason = PathReason::canBeMade;
    return status;
}

// `detail` follows where the reason has one.
std::string reasonText(PathReason reason)
{
    static std::map<PathReason, char const*> const texts = {
        {PathReason::none, ""},
        {PathReason::noPath, "none found"},
        {PathReason::joined, useName(Catalogue::Use::fragment)},
        {PathReason::embedded, useName(Catalogue::Use::embedded)},
        {PathReason::empty, "empty"},
        {PathReason::holdsNul, "holds a NUL, at which the system would cut it off"},
        {PathReason::relative, "not absolute: it depends on the folder that the editor is started in"},
        {PathReason::danglingLink, "dangling link to "},
        {PathReason::unreachable, ""},
        {PathReason::notAFolder, "not a folder"},
        {PathReason::notWritable, "not writable"},
        {PathReason::notReadable, "not readable, so names are numbered as if it were empty"},
        {PathReason::homeFolder, "the home folder itself"},
        {PathReason::canBeMade, "missing; the editor can make it"},
        {PathReason::missing, "missing"},
        {PathReason::unanswered, "the system has not answered yet"},
    };
    return texts.at(reason);
}

} // namespace

PathStatus writtenFolderStatus(QString const& path)
{
    fs::path const folder = withoutTrailingSeparators(path);
    PathStatus status = pathStatus(folder);
    if (!status.isUsable)
        return status;
    if (!status.exists)
        return missingFolderStatus(folder);
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return unusable(status, PathReason::notAFolder);
    status.isWritable = userMay(folder, W_OK | X_OK);
    if (!status.isWritable)
        return unusable(status, PathReason::notWritable);
    if (!userMay(folder, R_OK))
        status.reason = PathReason::notReadable;
    else if (fs::equivalent(folder, withoutTrailingSeparators(QDir::homePath()), error))
        status.reason = PathReason::homeFolder;
    return status;
}

PathStatus readPathStatus(QString const& path)
{
    PathStatus status = pathStatus(withoutTrailingSeparators(path));
    if (status.isUsable && !status.exists)
        status.reason = PathReason::missing;
    status.isUsable = true;
    return status;
}

PathStatus statusOnDisk(QString const& path, PathUse use)
{
    return use == PathUse::written ? writtenFolderStatus(path) : readPathStatus(path);
}

// In the order of PathReason.
char const* reasonName(PathReason reason)
{
    static constexpr std::array words = {"",
                                         "no-path",
                                         "joined",
                                         "embedded",
                                         "empty",
                                         "holds-nul",
                                         "relative",
                                         "dangling-link",
                                         "unreachable",
                                         "not-a-folder",
                                         "not-writable",
                                         "not-readable",
                                         "home-folder",
                                         "can-be-made",
                                         "missing",
                                         "unanswered"};
    static_assert(words.size() == static_cast<std::size_t>(PathReason::unanswered) + 1);
    return words.at(static_cast<std::size_t>(reason));
}

std::string remark(PathStatus const& status)
{
    std::string const reason = reasonText(status.reason) + status.detail;
    if (status.above.empty())
        return reason;
    bool const isAdjective = status.reason == PathReason::notAFolder || status.reason == PathReason::notWritable;
    return absl::StrCat("missing, and ", status.above, isAdjective ? " is " : ": ", reason);
}

std::string remedy(PathStatus const& status)
{
    std::string const folder = status.above.empty() ? "it" : status.above;
    switch (status.reason) {
    case PathReason::danglingLink:
        return "make the folder that the link leads to, or remove the link";
    case PathReason::unreachable:
        return "correct the path, or the folders above it";
    case PathReason::notAFolder:
        return absl::StrCat("move ", folder, " away, as it is no folder");
    case PathReason::notWritable:
        return absl::StrCat("make ", folder, " writable: its rights, or how its disk is mounted, forbid it to this user");
    case PathReason::notReadable:
        return "make it readable for this user";
    default:
        return {};
    }
}

} // namespace Inspection
