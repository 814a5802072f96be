// SPDX-License-Identifier: MIT
#include <TestKit/TemporaryHome.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <system_error>
#include <utility>
#include <vector>

#include <unistd.h>

namespace fs = std::filesystem;

namespace TestKit {

namespace {

fs::path freshFolder()
{
    std::string folder = (fs::canonical(fs::temp_directory_path()) / "home.XXXXXX").string();
    if (!::mkdtemp(folder.data()))
        throw fs::filesystem_error("cannot make a home folder for a test", folder, {errno, std::generic_category()});
    return folder;
}

std::vector<std::string> xdgVariables()
{
    std::vector<std::string> names;
    for (char** entry = ::environ; *entry; ++entry) {
        std::string const variable = *entry;
        if (variable.compare(0, 4, "XDG_") == 0)
            names.push_back(variable.substr(0, variable.find('=')));
    }
    return names;
}

} // namespace

TemporaryHome::TemporaryHome() : m_path(freshFolder())
{
    // Whatever else the session sets (desktop, seat, session folders) goes; what programs look up points into the home.
    for (std::string const& variable : xdgVariables())
        set(variable, std::nullopt);
    set("HOME", m_path.string());
    set("XDG_CONFIG_HOME", (m_path / ".config").string());
    set("XDG_DATA_HOME", (m_path / ".local/share").string());
    set("XDG_STATE_HOME", (m_path / ".local/state").string());
    set("XDG_CACHE_HOME", (m_path / ".cache").string());
    set("XDG_RUNTIME_DIR", (m_path / ".runtime").string());
    set("XDG_CONFIG_DIRS", (m_path / ".system/config").string());
    set("XDG_DATA_DIRS", (m_path / ".system/share").string());
    fs::create_directory(m_path / ".runtime");
    fs::permissions(m_path / ".runtime", fs::perms::owner_all);
}

TemporaryHome::~TemporaryHome()
{
    for (auto const& [variable, value] : std::exchange(m_earlier, {}))
        set(variable, value);
    std::error_code ignored;
    fs::remove_all(m_path, ignored);
}

fs::path TemporaryHome::write(fs::path const& relative, std::string const& text) const
{
    fs::path const file = m_path / relative;
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream)
        throw fs::filesystem_error("cannot write", file, std::make_error_code(std::errc::io_error));
    return file;
}

void TemporaryHome::set(std::string const& variable, std::optional<std::string> const& value)
{
    char const* const current = std::getenv(variable.c_str());
    m_earlier.emplace(variable, current ? std::optional<std::string>(current) : std::nullopt);
    if (value)
        ::setenv(variable.c_str(), value->c_str(), 1);
    else
        ::unsetenv(variable.c_str());
}

} // namespace TestKit
