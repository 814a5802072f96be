// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Storage {

/// The kinds of values that a store keeps.
enum class Kind { boolean, integer, text, bytes };

/// The words that stores and documents keep for the kinds, in the order of `Kind`. They are part of the file formats.
inline constexpr std::array<char const*, 4> storedWords = {"bool", "int", "string", "bytes"};

/// The stored word for `kind`.
constexpr char const* storedWord(Kind kind) { return storedWords[static_cast<std::size_t>(kind)]; }

/// The kind with the stored word `word`; nullopt for any other word, which a later version may have stored.
inline std::optional<Kind> kindFromWord(std::string_view word)
{
    for (std::size_t index = 0; index < storedWords.size(); ++index)
        if (word == storedWords[index])
            return static_cast<Kind>(index);
    return std::nullopt;
}

/// The kind of the values of type `T`, one of the four that `ISettingsStorage` takes.
template <typename T>
constexpr Kind kindOfType()
{
    if constexpr (std::is_same_v<T, bool>)
        return Kind::boolean;
    else if constexpr (std::is_same_v<T, int>)
        return Kind::integer;
    else if constexpr (std::is_same_v<T, std::string>)
        return Kind::text;
    else {
        static_assert(std::is_same_v<T, std::vector<unsigned char>>, "a store keeps no such values");
        return Kind::bytes;
    }
}

} // namespace Storage
