// SPDX-License-Identifier: MIT
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>
#include <Lumora/Util/ioPath.h>

#include <filesystem>

namespace fs = std::filesystem;

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation) { return QStringLiteral("/own/place"); }
QString Lumora::Util::GetLumoraLibraryPath(QString name) { return QStringLiteral("/own/library/") + name; }

std::vector<unsigned char> Lumora::Util::QByteArrayToVectorByte(QByteArray const& bytes) { return {bytes.begin(), bytes.end()}; }
QByteArray Lumora::Util::VectorByteToQByteArray(std::vector<unsigned char> const& bytes)
{
    return {reinterpret_cast<char const*>(bytes.data()), static_cast<int>(bytes.size())};
}

Lumora::ioPath::ioPath() = default;
Lumora::ioPath::ioPath(std::string const& utf8) : m_utf8(utf8) {}
Lumora::ioPath& Lumora::ioPath::operator/=(ioPath const& right)
{
    m_utf8 = (fs::path(m_utf8) / right.m_utf8).string();
    return *this;
}
Lumora::ioPath& Lumora::ioPath::make_preferred() { return *this; }
Lumora::ioPath Lumora::ioPath::absolute_path() const { return ioPath(fs::absolute(m_utf8).string()); }
std::string Lumora::ioPath::utf8string() const { return m_utf8; }
