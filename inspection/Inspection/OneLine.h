// SPDX-License-Identifier: MIT
//
// Text of any bytes as one line that is safe to show. Knows no settings.
#pragma once

#include <string>

namespace Inspection {

/// `text` escaped to one line of UTF-8: `\\`, `\t`, `\n`, `\r`, and `\xHH` for each byte of another control character, of a
/// mark of writing direction or line separator, and each byte that is not UTF-8. The escapes are unambiguous.
std::string onOneLine(std::string const& text);
/// `text` escaped for a terminal: as `onOneLine`, but backslashes and the characters in `kept` are unchanged.
std::string withoutControls(std::string const& text, std::string const& kept = {});

} // namespace Inspection
