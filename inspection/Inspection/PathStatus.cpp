// SPDX-License-Identifier: MIT
#include <Inspection/PathStatus.h>

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <QDir>

#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// Without separators at the end, behind which a link would be followed.
fs::path bare(QString const& path)
{
    std::string text = path.toStdString();
    while (text.size() > 1 && text.back() == '/')
        text.pop_back();
    return fs::u8path(text);
}

bool userMay(fs::path const& path, int rights) { return ::faccessat(AT_FDCWD, path.c_str(), rights, AT_EACCESS) == 0; }

PathStatus unusable(PathStatus check, std::string const& remark)
{
    check.isUsable = false;
    check.remark = remark;
    return check;
}

// What both kinds have in common: nothing, a relative path, a link that leads nowhere, a path that cannot be followed.
PathStatus checkPath(fs::path const& path)
{
    PathStatus check;
    if (path.empty())
        return unusable(check, "empty");
    if (path.native().find('\0') != std::string::npos)
        return unusable(check, "holds a NUL, at which the system would cut it off");
    if (!path.is_absolute())
        return unusable(check, "not absolute: it depends on the folder that the editor is started in");
    std::error_code linkError;
    std::error_code targetError;
    fs::file_status const link = fs::symlink_status(path, linkError);
    fs::file_status const target = fs::status(path, targetError);
    check.exists = fs::exists(target);
    if (link.type() == fs::file_type::none)
        return unusable(check, linkError.message());
    if (target.type() == fs::file_type::none)
        return unusable(check, targetError.message());
    if (fs::is_symlink(link) && !check.exists)
        return unusable(check, absl::StrCat("dangling link to ", onOneLine(fs::read_symlink(path, linkError).u8string())));
    check.isWritable = check.exists && userMay(path, W_OK);
    return check;
}

// Whether a missing folder can be made: the nearest folder above that there is must let the user.
PathStatus checkMissing(fs::path const& path)
{
    fs::path above = path.parent_path();
    PathStatus check = checkPath(above);
    while (check.isUsable && !check.exists) {
        above = above.parent_path();
        check = checkPath(above);
    }
    check.exists = false;
    std::string const name = onOneLine(above.u8string());
    if (!check.isUsable)
        return unusable(check, absl::StrCat("missing, and ", name, ": ", check.remark));
    std::error_code error;
    check.isWritable = userMay(above, W_OK | X_OK);
    if (!fs::is_directory(above, error))
        return unusable(check, absl::StrCat("missing, and ", name, " is not a folder"));
    if (!check.isWritable)
        return unusable(check, absl::StrCat("missing, and ", name, " is not writable"));
    check.remark = "missing; the editor can make it";
    return check;
}

} // namespace

PathStatus writtenFolderStatus(QString const& path)
{
    fs::path const folder = bare(path);
    PathStatus check = checkPath(folder);
    if (!check.isUsable)
        return check;
    if (!check.exists)
        return checkMissing(folder);
    std::error_code error;
    if (!fs::is_directory(folder, error))
        return unusable(check, "not a folder");
    check.isWritable = userMay(folder, W_OK | X_OK);
    if (!check.isWritable)
        return unusable(check, "not writable");
    if (!userMay(folder, R_OK))
        check.remark = "not readable, so names are numbered as if it were empty";
    else if (fs::equivalent(folder, bare(QDir::homePath()), error))
        check.remark = "the home folder itself";
    return check;
}

PathStatus readPathStatus(QString const& path)
{
    PathStatus check = checkPath(bare(path));
    if (check.isUsable && !check.exists)
        check.remark = "missing";
    return check;
}
