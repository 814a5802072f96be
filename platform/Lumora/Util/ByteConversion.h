// SPDX-License-Identifier: MIT

/// @file
/// Conversions between Qt's byte array and the standard library's: byte for byte, of any content, NUL bytes included.
/// Pure functions: any thread may call them. Allocation failure throws `std::bad_alloc`.
#pragma once

#include <Lumora/Util/Export.h>

#include <QByteArray>

#include <vector>

namespace Lumora {
namespace Util {

/// The bytes of `bytes`; a null array gives an empty vector.
LUMORA_UTIL_EXPORT std::vector<unsigned char> QByteArrayToVectorByte(QByteArray const& bytes);

/// The bytes of `bytes`; an empty vector gives a null array. More than 2147483647 bytes throw `std::length_error`.
LUMORA_UTIL_EXPORT QByteArray VectorByteToQByteArray(std::vector<unsigned char> const& bytes);

} // namespace Util
} // namespace Lumora
