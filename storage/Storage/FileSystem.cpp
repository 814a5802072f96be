// SPDX-License-Identifier: MIT
#include <Storage/FileSystem.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <vector>

#include <linux/magic.h>
#include <sys/statvfs.h>
#include <sys/vfs.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

struct Mount {
    std::string id;
    std::string parent; // the mount that it lies on
    FileSystem fileSystem;

    std::string const& point() const { return fileSystem.mountPoint.native(); }
};

// A field of the table: blanks, tabs, line breaks and backslashes stand as \ and three octal digits.
std::string unescaped(std::string const& field)
{
    auto const isOctal = [&](std::size_t at) { return at < field.size() && field[at] >= '0' && field[at] <= '7'; };
    std::string result;
    for (std::size_t at = 0; at < field.size(); ++at) {
        if (field[at] == '\\' && isOctal(at + 1) && isOctal(at + 2) && isOctal(at + 3)) {
            result += static_cast<char>(std::stoi(field.substr(at + 1, 3), nullptr, 8));
            at += 3;
        } else {
            result += field[at];
        }
    }
    return result;
}

bool holdsReadOnly(std::string const& options) { return (',' + options + ',').find(",ro,") != std::string::npos; }

// A line: id, parent, device, root, mount point, options, any number of fields up to a dash, type, source, options of the
// file system as a whole.
std::optional<Mount> mountOf(std::string const& line)
{
    std::istringstream stream(line);
    std::vector<std::string> const fields{std::istream_iterator<std::string>(stream), {}};
    if (fields.size() < 6)
        return std::nullopt;
    auto const dash = std::find(fields.begin() + 6, fields.end(), "-");
    if (fields.end() - dash < 2)
        return std::nullopt;
    std::string const superOptions = fields.end() - dash > 3 ? dash[3] : "";
    FileSystem const fileSystem = {unescaped(dash[1]), unescaped(fields[4]), holdsReadOnly(fields[5]) || holdsReadOnly(superOptions)};
    return Mount{fields[0], fields[1], fileSystem};
}

bool isWithin(fs::path const& path, fs::path const& folder)
{
    return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

std::vector<Mount> mountsOf(std::string const& table)
{
    std::vector<Mount> mounts;
    std::istringstream lines(table);
    for (std::string line; std::getline(lines, line);)
        if (std::optional<Mount> mount = mountOf(line))
            mounts.push_back(*std::move(mount));
    return mounts;
}

// The first mount along `path` that lies on `present`, or the root where that is null. The system walks so too: what
// another mount hides is never met, though its mount point may be longer.
Mount const* firstOn(Mount const* present, std::vector<Mount> const& mounts, fs::path const& path)
{
    auto const isRoot = [&](Mount const& mount) {
        return std::none_of(mounts.begin(), mounts.end(), [&](Mount const& other) { return &other != &mount && other.id == mount.parent; });
    };
    Mount const* first = nullptr;
    for (Mount const& mount : mounts) {
        bool const liesHere = present ? &mount != present && mount.parent == present->id : isRoot(mount);
        bool const isFirst = !first || mount.point().size() <= first->point().size();
        if (liesHere && isFirst && isWithin(path, mount.fileSystem.mountPoint))
            first = &mount;
    }
    return first;
}

fs::path nearestExisting(fs::path const& path)
{
    std::error_code error;
    fs::path above = fs::absolute(path, error);
    while (!above.empty() && above != above.root_path() && !fs::exists(above, error))
        above = above.parent_path();
    fs::path const real = fs::canonical(above, error);
    return error ? above : real;
}

std::string typeOf(long magic)
{
    // Those that matter for the judgement below, and the most common that are fine.
    static std::map<unsigned long, std::string> const types = {
        {NFS_SUPER_MAGIC, "nfs"},    {CIFS_SUPER_MAGIC, "cifs"},        {SMB2_SUPER_MAGIC, "smb3"}, {SMB_SUPER_MAGIC, "smbfs"},
        {AFS_FS_MAGIC, "afs"},       {CODA_SUPER_MAGIC, "coda"},        {CEPH_SUPER_MAGIC, "ceph"}, {V9FS_MAGIC, "9p"},
        {MSDOS_SUPER_MAGIC, "vfat"}, {EXFAT_SUPER_MAGIC, "exfat"},      {TMPFS_MAGIC, "tmpfs"},     {RAMFS_MAGIC, "ramfs"},
        {FUSE_SUPER_MAGIC, "fuse"},  {EXT4_SUPER_MAGIC, "ext4"},        {XFS_SUPER_MAGIC, "xfs"},   {BTRFS_SUPER_MAGIC, "btrfs"},
        {F2FS_SUPER_MAGIC, "f2fs"},  {OVERLAYFS_SUPER_MAGIC, "overlay"}};
    auto const found = types.find(static_cast<unsigned long>(magic) & 0xffffffff);
    return found == types.end() ? std::string() : found->second;
}

FileSystem askedOfTheSystem(fs::path const& path)
{
    struct statfs numbers = {};
    struct statvfs flags = {};
    if (::statfs(path.c_str(), &numbers) != 0 || ::statvfs(path.c_str(), &flags) != 0)
        return {};
    return {typeOf(static_cast<long>(numbers.f_type)), {}, (flags.f_flag & ST_RDONLY) != 0};
}

} // namespace

FileSystem fileSystemIn(std::string const& mountTable, fs::path const& path)
{
    std::vector<Mount> const mounts = mountsOf(mountTable);
    FileSystem found;
    std::size_t steps = 0;
    for (Mount const* present = firstOn(nullptr, mounts, path); present && steps <= mounts.size(); ++steps) {
        found = present->fileSystem;
        present = firstOn(present, mounts, path);
    }
    return found;
}

FileSystem fileSystemOf(fs::path const& path)
{
    fs::path const existing = nearestExisting(path);
    std::ifstream file("/proc/self/mountinfo");
    std::string const table{std::istreambuf_iterator<char>(file), {}};
    FileSystem const found = fileSystemIn(table, existing);
    return found.type.empty() ? askedOfTheSystem(existing) : found;
}

Suitability suitabilityForStores(FileSystem const& fileSystem)
{
    static std::set<std::string> const network = {"nfs",
                                                  "nfs4",
                                                  "cifs",
                                                  "smb3",
                                                  "smbfs",
                                                  "ncpfs",
                                                  "afs",
                                                  "coda",
                                                  "ceph",
                                                  "lustre",
                                                  "glusterfs",
                                                  "beegfs",
                                                  "9p",
                                                  "davfs",
                                                  "vboxsf",
                                                  "prl_fs",
                                                  "fuse.sshfs",
                                                  "fuse.glusterfs",
                                                  "fuse.ceph",
                                                  "fuse.ceph-fuse",
                                                  "fuse.davfs2",
                                                  "fuse.curlftpfs",
                                                  "fuse.rclone",
                                                  "fuse.s3fs",
                                                  "fuse.gcsfuse",
                                                  "fuse.gvfsd-fuse",
                                                  "fuse.smbnetfs",
                                                  "fuse.vmhgfs-fuse"};
    static std::set<std::string> const withoutLinks = {"vfat", "msdos", "exfat", "fuse.exfat"};
    if (fileSystem.isReadOnly)
        return Suitability::readOnly;
    if (network.count(fileSystem.type) != 0)
        return Suitability::network;
    if (withoutLinks.count(fileSystem.type) != 0)
        return Suitability::withoutLinks;
    if (fileSystem.type == "tmpfs" || fileSystem.type == "ramfs")
        return Suitability::passing;
    bool const isOfAProgram = fileSystem.type.compare(0, 4, "fuse") == 0;
    return fileSystem.type.empty() || isOfAProgram ? Suitability::unknown : Suitability::suitable;
}

} // namespace Storage
