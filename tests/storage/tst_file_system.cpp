// SPDX-License-Identifier: MIT
//
// Which file system a path lies on, by tables of mounts as systems give them, and what that means for a store.
#include <Storage/FileSystem.h>
#include <TestKit/TemporaryHome.h>

#include <support/Named.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <functional>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace {

using Storage::FileSystem;
using Storage::Suitability;

// --- Tables of mounts ---

struct Found {
    char const* meaning;
    char const* table;
    char const* path;
    char const* type;
    char const* mountPoint;
    bool isReadOnly = false;
};

class MountTable : public testing::TestWithParam<Found> {};

TEST_P(MountTable, TellsTheFileSystemOfAPath)
{
    FileSystem const found = Storage::fileSystemIn(GetParam().table, GetParam().path);
    EXPECT_EQ(found.type, GetParam().type);
    EXPECT_EQ(found.mountPoint, GetParam().mountPoint);
    EXPECT_EQ(found.isReadOnly, GetParam().isReadOnly);
}

char const usual[] = "22 1 254:0 / / rw,relatime shared:1 - ext4 /dev/vda1 rw,errors=remount-ro\n"
                     "23 22 0:21 / /proc rw,nosuid shared:2 - proc proc rw\n"
                     "24 22 0:50 / /home rw,relatime shared:30 master:4 - nfs4 server:/export/home rw,vers=4.2\n"
                     "25 24 0:51 / /home/ada/local rw,relatime - xfs /dev/sdb1 rw\n"
                     "26 22 0:52 / /media/ada/STICK rw,nosuid,nodev - vfat /dev/sdc1 rw,utf8\n"
                     "27 22 0:53 / /media/ada/My\\040Disk\\011\\012\\134x rw - fuseblk /dev/sdd1 rw,user_id=0\n"
                     "28 22 0:54 / /mnt/cd ro,nosuid - iso9660 /dev/sr0 ro\n"
                     "29 22 254:0 /srv/data /mnt/bound ro,relatime - ext4 /dev/vda1 rw\n"
                     "30 22 0:55 / /mnt/frozen rw - btrfs /dev/sde1 ro,space_cache\n"
                     "31 22 0:56 / /homes rw - cifs //server/homes rw\n"
                     "32 22 0:57 / /mnt/ssh rw - fuse.sshfs ada@server: rw,user_id=1000\n"
                     "33 22 0:58 / /mnt/bare rw - tmpfs\n";

char const stacked[] = "22 1 254:0 / / rw - ext4 /dev/vda1 rw\n"
                       "25 22 0:23 / /dev/shm rw,relatime - ramfs none rw\n"
                       "30 25 0:27 / /dev/shm rw,relatime - tmpfs tmpfs rw\n"
                       "40 22 0:30 / /a rw - xfs /dev/sda rw\n"
                       "41 40 0:31 / /a/b rw - nfs server:/b rw\n"
                       "42 40 0:32 / /a rw - btrfs /dev/sdb rw\n"
                       "50 22 0:40 / /twice rw - vfat /dev/sdx rw\n"
                       "51 22 0:41 / /twice rw - exfat /dev/sdy rw\n";

char const deep[] = "1 0 0:1 / / rw - ext4 x rw\n"
                    "2 1 0:2 / /a rw - xfs x rw\n"
                    "3 2 0:3 / /a/b rw - btrfs x rw\n"
                    "4 3 0:4 / /a/b/c rw - tmpfs x rw\n"
                    "5 4 0:5 / /a/b/c/d rw - nfs x rw\n";

INSTANTIATE_TEST_SUITE_P(
    Table, MountTable,
    testing::Values(
        Found{"Root", usual, "/", "ext4", "/"}, Found{"BelowTheRoot", usual, "/var/lib", "ext4", "/"},
        Found{"MountPointItself", usual, "/home", "nfs4", "/home"}, Found{"BelowAMountPoint", usual, "/home/ada/x", "nfs4", "/home"},
        Found{"LongestMountPointWins", usual, "/home/ada/local/x", "xfs", "/home/ada/local"},
        Found{"NameThatBeginsAlike", usual, "/home/ada/locals", "nfs4", "/home"},
        Found{"FolderThatBeginsAlike", usual, "/homes/x", "cifs", "/homes"},
        Found{"FolderThatIsNoMountPoint", usual, "/media/ada", "ext4", "/"},
        Found{"Stick", usual, "/media/ada/STICK/a", "vfat", "/media/ada/STICK"},
        Found{"EscapedMountPoint", usual, "/media/ada/My Disk\t\n\\x/y", "fuseblk", "/media/ada/My Disk\t\n\\x"},
        Found{"ReadOnlyMount", usual, "/mnt/cd/x", "iso9660", "/mnt/cd", true},
        Found{"BindMountThatIsReadOnly", usual, "/mnt/bound/x", "ext4", "/mnt/bound", true},
        Found{"FileSystemThatIsReadOnly", usual, "/mnt/frozen", "btrfs", "/mnt/frozen", true},
        Found{"OptionThatBeginsAlike", usual, "/", "ext4", "/", false},
        Found{"ProgramsFileSystem", usual, "/mnt/ssh/x", "fuse.sshfs", "/mnt/ssh"},
        Found{"LineThatEndsWithTheType", usual, "/mnt/bare", "tmpfs", "/mnt/bare"},
        Found{"OverMountedByItself", stacked, "/dev/shm/x", "tmpfs", "/dev/shm"},
        Found{"MountThatAnotherHides", stacked, "/a/b/c", "btrfs", "/a"}, Found{"TwoAtOnePlace", stacked, "/twice/x", "exfat", "/twice"},
        Found{"MountOnAMountOnAMount", deep, "/a/b/c/d/x", "nfs", "/a/b/c/d"}, Found{"EmptyTable", "", "/x", "", ""},
        Found{"NoTable", "nonsense\n\n1 2 3 4 5 6\n1 2 3 4 / 6 -\n", "/x", "", ""},
        Found{"LineThatIsCut", "22 1 254:0 / / rw - ext4 /dev/vda1 rw\n23 22 0:1 / /x rw - \n", "/x", "ext4", "/"},
        Found{"MountsInARing", "1 2 0:1 / / rw - ext4 x rw\n2 1 0:2 / / rw - xfs y rw\n", "/x", "", ""},
        Found{"RootOnItself", "1 1 0:1 / / rw - ext4 x rw\n", "/x", "ext4", "/"},
        Found{"RootAboveAnother", "1 0 0:1 / / rw - rootfs none rw\n2 1 0:2 / / rw - overlay overlay rw\n", "/x", "overlay", "/"},
        Found{"EscapeThatIsNone", "1 0 0:1 / /\\04 rw - ext4 x rw\n", "/\\04/x", "ext4", "/\\04"},
        Found{"EscapeWithAnEight", "1 0 0:1 / /\\0482 rw - ext4 x rw\n", "/\\0482/x", "ext4", "/\\0482"},
        Found{"EscapeWithALetter", "1 0 0:1 / /\\a\\0a\\04a rw - ext4 x rw\n", "/\\a\\0a\\04a/x", "ext4", "/\\a\\0a\\04a"},
        Found{"EscapeWithABlankBefore", "1 0 0:1 / /\\04!\\ rw - ext4 x rw\n", "/\\04!\\/x", "ext4", "/\\04!\\"}),
    byMeaning);

// --- The system's own table ---

class FileSystemOfAPath : public testing::Test {
protected:
    TestKit::TemporaryHome m_home;
};

TEST_F(FileSystemOfAPath, IsThatOfTheNearestFolderThatExists)
{
    EXPECT_EQ(Storage::fileSystemOf("/proc/self/status").type, "proc");
    EXPECT_EQ(Storage::fileSystemOf("/proc/self/status").mountPoint, "/proc");
    EXPECT_EQ(Storage::fileSystemOf("/sys/no/such/folder").type, "sysfs");
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::current_path("/proc");
    EXPECT_EQ(Storage::fileSystemOf("no/such/folder").type, "proc");
    std::filesystem::current_path(earlier);
    std::filesystem::create_directory_symlink("/proc", m_home.path() / "link");
    EXPECT_EQ(Storage::fileSystemOf(m_home.path() / "link/no/such").type, "proc");
    std::string const here = Storage::fileSystemOf(m_home.path()).type;
    EXPECT_NE(here, "");
    EXPECT_EQ(Storage::fileSystemOf(m_home.path() / "no/such/folder").type, here);
}

TEST_F(FileSystemOfAPath, IsThatOfAFolderThatMayNotBeEntered)
{
    std::string const here = Storage::fileSystemOf(m_home.path()).type;
    std::filesystem::create_directory(m_home.path() / "closed");
    std::filesystem::permissions(m_home.path() / "closed", std::filesystem::perms(0));
    std::filesystem::permissions(m_home.path(), std::filesystem::perms(0755));
    EXPECT_EQ(inChild([&] { return Storage::fileSystemOf(m_home.path() / "closed/below/x").type; }, true), here);
    std::filesystem::permissions(m_home.path() / "closed", std::filesystem::perms(0700));
}

// In a namespace of the test's own, where a process may make one.
std::string withMounts(std::function<std::string()> const& work)
{
    return inChild([&]() -> std::string {
        if (::unshare(::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0 ||
            ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
            return "cannot mount";
        return work();
    });
}

TEST_F(FileSystemOfAPath, FollowsWhatIsMountedNow)
{
    std::filesystem::path const point = m_home.path() / "a b\\c";
    std::filesystem::create_directories(point / "below");
    std::string const answer = withMounts([&]() -> std::string {
        if (::mount("tmpfs", point.c_str(), "tmpfs", 0, "size=64k") != 0)
            return "cannot mount";
        std::string told = Storage::fileSystemOf(point / "x").type + ' ' + Storage::fileSystemOf(point / "x").mountPoint.string();
        ::mount("none", point.c_str(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr);
        return told + (Storage::fileSystemOf(point).isReadOnly ? " read-only" : " writable");
    });
    if (answer == "cannot mount")
        GTEST_SKIP() << "this process may not mount a file system";
    EXPECT_EQ(answer, "tmpfs " + point.string() + " read-only");
}

TEST_F(FileSystemOfAPath, IsAskedOfTheSystemWhereThereIsNoTable)
{
    std::filesystem::create_directory(m_home.path() / "memory");
    std::string const answer = withMounts([&]() -> std::string {
        std::string const table = "/proc/" + std::to_string(::getpid()) + "/mountinfo";
        if (::mount("tmpfs", (m_home.path() / "memory").c_str(), "tmpfs", MS_RDONLY, "size=64k") != 0 ||
            ::mount("/dev/null", table.c_str(), nullptr, MS_BIND, nullptr) != 0)
            return "cannot mount";
        FileSystem const found = Storage::fileSystemOf(m_home.path() / "memory");
        FileSystem const other = Storage::fileSystemOf("/proc");
        return found.type + (found.isReadOnly ? " read-only" : " writable") + found.mountPoint.string() + '|' + other.type +
               (other.isReadOnly ? " read-only" : " writable");
    });
    if (answer == "cannot mount")
        GTEST_SKIP() << "this process may not mount a file system";
    EXPECT_EQ(answer, "tmpfs read-only| writable");
}

// --- What it means for a store ---

TEST(NetworkFileSystem, IsKnownByEachOfItsNames)
{
    for (char const* type : {"nfs",
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
                             "fuse.ceph",
                             "fuse.davfs2",
                             "fuse.rclone",
                             "fuse.s3fs",
                             "fuse.ceph-fuse",
                             "fuse.curlftpfs",
                             "fuse.gcsfuse",
                             "fuse.gvfsd-fuse",
                             "fuse.smbnetfs",
                             "fuse.vmhgfs-fuse",
                             "fuse.glusterfs"})
        EXPECT_EQ(Storage::suitabilityForStores({type, "/h", false}), Suitability::network) << type;
}

struct Judged {
    char const* meaning;
    FileSystem fileSystem;
    Suitability suitability;
};

class Judgement : public testing::TestWithParam<Judged> {};

TEST_P(Judgement, IsByTypeAndOptions) { EXPECT_EQ(Storage::suitabilityForStores(GetParam().fileSystem), GetParam().suitability); }

INSTANTIATE_TEST_SUITE_P(
    Table, Judgement,
    testing::Values(
        Judged{"Ext4", {"ext4", "/", false}, Suitability::suitable}, Judged{"Btrfs", {"btrfs", "/", false}, Suitability::suitable},
        Judged{"Overlay", {"overlay", "/", false}, Suitability::suitable}, Judged{"Nfs", {"nfs", "/h", false}, Suitability::network},
        Judged{"Nfs4", {"nfs4", "/h", false}, Suitability::network}, Judged{"Cifs", {"cifs", "/h", false}, Suitability::network},
        Judged{"Smb3", {"smb3", "/h", false}, Suitability::network}, Judged{"Smbfs", {"smbfs", "/h", false}, Suitability::network},
        Judged{"Afs", {"afs", "/h", false}, Suitability::network}, Judged{"Ceph", {"ceph", "/h", false}, Suitability::network},
        Judged{"Sshfs", {"fuse.sshfs", "/h", false}, Suitability::network}, Judged{"Plan9", {"9p", "/h", false}, Suitability::network},
        Judged{"Lustre", {"lustre", "/h", false}, Suitability::network},
        Judged{"Gluster", {"fuse.glusterfs", "/h", false}, Suitability::network},
        Judged{"Davfs", {"fuse.davfs2", "/h", false}, Suitability::network},
        Judged{"Vfat", {"vfat", "/h", false}, Suitability::withoutLinks},
        Judged{"Msdos", {"msdos", "/h", false}, Suitability::withoutLinks},
        Judged{"Exfat", {"exfat", "/h", false}, Suitability::withoutLinks},
        Judged{"ExfatByAProgram", {"fuse.exfat", "/h", false}, Suitability::withoutLinks},
        Judged{"Tmpfs", {"tmpfs", "/h", false}, Suitability::passing}, Judged{"Ramfs", {"ramfs", "/h", false}, Suitability::passing},
        Judged{"Fuse", {"fuse", "/h", false}, Suitability::unknown}, Judged{"OtherFuse", {"fuse.other", "/h", false}, Suitability::unknown},
        Judged{"Fuseblk", {"fuseblk", "/h", false}, Suitability::unknown}, Judged{"Nameless", {"", "", false}, Suitability::unknown},
        Judged{"ReadOnlyExt4", {"ext4", "/", true}, Suitability::readOnly},
        Judged{"ReadOnlyNfs", {"nfs", "/", true}, Suitability::readOnly}),
    byMeaning);

} // namespace
