// SPDX-License-Identifier: MIT
//
// Values of preferences to and from words, text and JSON.
#pragma once

#include <Catalogue/Catalogue.h>
#include <Inspection/OneLine.h>
#include <Storage/Kind.h>

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace Inspection {

/// Why words are refused as a value.
enum class ValueFault {
    notBool,
    notInt,
    notBase64,
    notUtf8,                 ///< Also text that begins with a byte order mark.
    emptyElement,            ///< A list loses it when it is read.
    separatorInElement,      ///< A list splits it when it is read.
    separatorAcrossElements, ///< The end of one element and the begin of the next make up the separator.
    notRational,             ///< Also one that does not fit a store, which keeps 32 bits of each half.
    wordCount,               ///< No word, or several, for a value that is no list.
};

/// Words that are no value of the wanted type; `what()` tells a user what is accepted.
class ValueError : public std::invalid_argument {
public:
    explicit ValueError(ValueFault fault, std::string refusedWord = {});

    ValueFault reason;
    std::string word; ///< The refused word, byte for byte; empty for `ValueFault::wordCount`.
};

/// The type of a value: "bool", "int", "text", "bytes", "list" or "rational".
std::string typeName(Catalogue::Value const& value);
/// What a word for a value of the type of `like` may be: "true or false (or yes, no, on, off, 1, 0)" and the like.
std::string acceptedForm(Catalogue::Value const& like);
/// The type in the library's interface, such as "QString".
std::string cppTypeName(Catalogue::Value const& value);
/// The kind that the stores keep such a value as, of a rational each half.
Storage::Kind storedKind(Catalogue::Value const& value);

/// The value of the type of `like` in `words`: bytes in base64 with its padding, an element of a list in each word. Throws `ValueError`.
Catalogue::Value parsed(Catalogue::Value const& like, std::vector<std::string> const& words);

/// The value as UTF-8: bytes in base64, the elements of a list each on a line.
std::string text(Catalogue::Value const& value);
/// The value as JSON: bytes as a base64 text, lists as arrays.
nlohmann::ordered_json toJson(Catalogue::Value const& value);

/// The value on one line: a list as a JSON array, any other value as its escaped text.
std::string onOneLine(Catalogue::Value const& value);

/// `value` as JSON text without raw control characters and marks of writing direction. Bytes that are not UTF-8 become replacement
/// characters.
std::string jsonText(nlohmann::ordered_json const& value, int indent = -1);

/// `bytes` in base64, with padding.
std::string toBase64(std::string const& bytes);
/// The bytes of `text`; nullopt unless it is canonical base64, with or without padding.
std::optional<std::string> fromBase64(std::string const& text);

/// `text` as one word of a shell's command, byte for byte.
std::string shellWord(std::string const& text);
/// Likewise, as people type it: in quotes only where the shell needs them.
std::string typedWord(std::string const& text);

/// Whether `text` survives the round trip through the library's texts: UTF-8 that begins with no byte order mark.
bool isUtf8(std::string const& text);

} // namespace Inspection
