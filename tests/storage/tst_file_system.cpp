// SPDX-License-Identifier: MIT
//
// Whether the locks of a file system hold between machines.
#include <Storage/FileSystem.h>

#include <support/Named.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using Storage::Locality;

struct Type {
    char const* meaning;
    std::uint32_t magic;
    Locality locality;
};

class LocalityOfAType : public testing::TestWithParam<Type> {};

TEST_P(LocalityOfAType, FollowsTheSystemsNumber) { EXPECT_EQ(Storage::localityOfType(GetParam().magic), GetParam().locality); }

INSTANTIATE_TEST_SUITE_P(Table, LocalityOfAType,
                         testing::Values(Type{"Nfs", 0x00006969, Locality::network}, Type{"Smb", 0x0000517B, Locality::network},
                                         Type{"Cifs", 0xFF534D42, Locality::network}, Type{"Smb2", 0xFE534D42, Locality::network},
                                         Type{"Afs", 0x6B414653, Locality::network}, Type{"OpenAfs", 0x5346414F, Locality::network},
                                         Type{"Coda", 0x73757245, Locality::network}, Type{"Ceph", 0x00C36400, Locality::network},
                                         Type{"Plan9", 0x01021997, Locality::network}, Type{"Ncp", 0x0000564C, Locality::network},
                                         Type{"Lustre", 0x0BD00BD0, Locality::network}, Type{"Beegfs", 0x19830326, Locality::network},
                                         Type{"FolderOfAVirtualMachine", 0x786F4256, Locality::network},
                                         Type{"FolderOfAnotherVirtualMachine", 0x7C7C6673, Locality::network},
                                         Type{"Fuse", 0x65735546, Locality::unknown}, Type{"Ext4", 0x0000EF53, Locality::local},
                                         Type{"Xfs", 0x58465342, Locality::local}, Type{"Btrfs", 0x9123683E, Locality::local},
                                         Type{"Overlay", 0x794C7630, Locality::local}, Type{"Tmpfs", 0x01021994, Locality::local},
                                         Type{"OneBesideNfs", 0x0000696A, Locality::local},
                                         Type{"OneBesideFuse", 0x65735547, Locality::local}),
                         byMeaning);

TEST(LocalityOfAPath, IsLocalForAFileOfTheSystemItself) { EXPECT_EQ(Storage::localityOf("/proc/self/status"), Locality::local); }

TEST(LocalityOfAPath, OfAMissingFileIsThatOfTheNearestFolder)
{
    EXPECT_EQ(Storage::localityOf("/proc/self/missing/below"), Locality::local);
}

TEST(LocalityOfAPath, IsUnknownWhereTheSystemDoesNotTell)
{
    EXPECT_EQ(Storage::localityOf("/proc/self/status/below"), Locality::unknown);
    EXPECT_EQ(Storage::localityOf(""), Locality::unknown);
}

} // namespace
