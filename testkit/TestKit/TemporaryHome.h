// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>

namespace TestKit {

/// A home folder of a test's own: HOME and every XDG variable point into a fresh folder, which is removed with all it
/// holds when the object is destroyed; the variables then have their earlier values again. No code under test can reach the
/// user's own settings meanwhile. Changes the environment, so no other thread may be running.
class TemporaryHome {
public:
    /// Throws `std::filesystem::filesystem_error` where no folder can be made.
    TemporaryHome();
    ~TemporaryHome();
    TemporaryHome(TemporaryHome const&) = delete;
    TemporaryHome& operator=(TemporaryHome const&) = delete;

    /// The value of HOME: absolute and without symbolic links.
    std::filesystem::path const& path() const { return m_path; }

    /// Writes `text` to the file `relative` below the home folder, making the folders above it, and returns its path.
    std::filesystem::path write(std::filesystem::path const& relative, std::string const& text) const;

private:
    void set(std::string const& variable, std::optional<std::string> const& value);

    std::filesystem::path m_path;
    std::map<std::string, std::optional<std::string>> m_earlier;
};

} // namespace TestKit
