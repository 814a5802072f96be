// SPDX-License-Identifier: MIT
#include <Lumora/Util/ByteConversion.h>

#include <limits>
#include <stdexcept>

std::vector<unsigned char> Lumora::Util::QByteArrayToVectorByte(QByteArray const& bytes) { return {bytes.begin(), bytes.end()}; }

QByteArray Lumora::Util::VectorByteToQByteArray(std::vector<unsigned char> const& bytes)
{
    if (bytes.empty())
        return QByteArray(); // null also where the vector has spare capacity, and with that a pointer
    if (bytes.size() > std::numeric_limits<int>::max())
        throw std::length_error("VectorByteToQByteArray: more than 2147483647 bytes");
    return {reinterpret_cast<char const*>(bytes.data()), static_cast<int>(bytes.size())};
}
