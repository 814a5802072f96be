// SPDX-License-Identifier: MIT
#include "RealName.h"

#include <climits>
#include <cstdlib>
#include <system_error>

namespace fs = std::filesystem;

namespace Storage {

// The system's function is far faster, but knows existing files only.
fs::path realName(fs::path const& file)
{
    char real[PATH_MAX];
    if (::realpath(file.c_str(), real))
        return real;
    std::error_code error;
    fs::path const name = fs::weakly_canonical(file, error);
    return error ? file : name;
}

} // namespace Storage
