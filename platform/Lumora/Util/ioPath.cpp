// SPDX-License-Identifier: MIT
#include <Lumora/Util/ioPath.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace Lumora {

ioPath::ioPath() = default;

ioPath::ioPath(std::string const& utf8) : m_utf8(utf8) {}

ioPath& ioPath::operator/=(ioPath const& right)
{
    m_utf8 = (fs::u8path(m_utf8) / fs::u8path(right.m_utf8)).u8string();
    return *this;
}

ioPath& ioPath::make_preferred()
{
    m_utf8 = fs::u8path(m_utf8).make_preferred().u8string();
    return *this;
}

ioPath ioPath::absolute_path() const
{
    fs::path const path = fs::u8path(m_utf8);
    // An absolute path needs no current directory, which may have been removed.
    return path.is_absolute() ? *this : ioPath((fs::current_path() / path).u8string());
}

std::string ioPath::utf8string() const { return m_utf8; }

} // namespace Lumora
