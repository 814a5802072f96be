// SPDX-License-Identifier: MIT
//
// Folders to be listed, and what listing them takes at least.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace Bench {

/// A new folder below `parent`, removed with all it holds when the object goes.
class Folder {
public:
    explicit Folder(std::string const& parent);
    ~Folder();
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    std::string const& path() const { return m_path; }
    /// Makes empty files of these names, in an order that has nothing to do with theirs but is the same each time.
    void fill(std::vector<std::string> names) const;

private:
    std::string m_path;
};

/// Where files may be made: "disk", which is the folder for temporary files, and "tmpfs" where the system has one.
struct Place {
    std::string what;
    std::string path;
};

std::vector<Place> places();

/// The number of regular files that readdir lists in a folder.
long passOver(std::string const& folder);

/// An entry as the kernel gives it, with the type of <dirent.h>.
struct Entry {
    std::string_view name;
    unsigned char type;
};

/// Walks over all below the open folder `descriptor`, each folder as soon as it is met, until `visit` answers true. What
/// the answer is; the path of the entry, relative to the folder, is then in `path`.
bool walk(int descriptor, std::function<bool(Entry const&)> const& visit, std::string& path);

} // namespace Bench
