// SPDX-License-Identifier: MIT
#include <Lumora/Util/ByteConversion.h>

std::vector<unsigned char> Lumora::Util::QByteArrayToVectorByte(QByteArray const& bytes) { return {bytes.begin(), bytes.end()}; }

QByteArray Lumora::Util::VectorByteToQByteArray(std::vector<unsigned char> const& bytes)
{
    return {reinterpret_cast<char const*>(bytes.data()), static_cast<int>(bytes.size())};
}
