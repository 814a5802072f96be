// SPDX-License-Identifier: MIT
#pragma once

#include <Lumora/Util/Export.h>

#include <string>

namespace Lumora {

/// A path as a value: UTF-8 text and nothing else. Copying copies the text. Distinct objects may be used from
/// different threads. Allocation failure throws `std::bad_alloc`.
class LUMORA_UTIL_EXPORT ioPath {
public:
    /// The empty path.
    ioPath();
    /// The path with the text `utf8`, held as given: neither cleaned nor checked.
    explicit ioPath(std::string const& utf8);

    /// Joins with one separator between the two sides; an absolute `right` replaces the whole path.
    ioPath& operator/=(ioPath const& right);
    /// Turns separators into the platform's preferred one (on POSIX systems there is nothing to turn).
    ioPath& make_preferred();
    /// This path resolved against the current directory. Symbolic links and ".." stay as they are.
    /// Throws `std::filesystem::filesystem_error` where a relative path finds no current directory.
    ioPath absolute_path() const;

    /// The text, in UTF-8.
    std::string utf8string() const;

private:
    std::string m_utf8;
};

} // namespace Lumora
