// SPDX-License-Identifier: MIT
#include <Storage/FileSystem.h>

#include <algorithm>
#include <cerrno>
#include <iterator>

#include <linux/magic.h>
#include <sys/vfs.h>

namespace Storage {

Locality localityOfType(std::uint32_t magic)
{
    // The numbers stand here where the system's headers have no name for them.
    static constexpr std::uint32_t network[] = {
        NFS_SUPER_MAGIC, SMB_SUPER_MAGIC,  CIFS_SUPER_MAGIC, SMB2_SUPER_MAGIC, AFS_SUPER_MAGIC,
        AFS_FS_MAGIC,    CODA_SUPER_MAGIC, CEPH_SUPER_MAGIC, V9FS_MAGIC,
        0x0000564C, // ncpfs
        0x0BD00BD0, // lustre
        0x19830326, // beegfs
        0x786F4256, // vboxsf
        0x7C7C6673, // prl_fs
    };
    if (magic == FUSE_SUPER_MAGIC)
        return Locality::unknown;
    return std::find(std::begin(network), std::end(network), magic) == std::end(network) ? Locality::local : Locality::network;
}

Locality localityOf(std::filesystem::path path)
{
    struct statfs status = {};
    while (::statfs(path.c_str(), &status) != 0) {
        if (errno != ENOENT || !path.has_relative_path())
            return Locality::unknown;
        path = path.parent_path();
    }
    return localityOfType(static_cast<std::uint32_t>(status.f_type));
}

} // namespace Storage
