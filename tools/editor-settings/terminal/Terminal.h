// SPDX-License-Identifier: MIT
//
// The terminal that an answer is read on, where there is one.
#pragma once

#include <cstddef>
#include <string>

namespace Terminal {

/// Whether the stream with the number `stream` is a terminal.
bool is(int stream);
/// As `is`, and it does what it is told: TERM names it, and not as "dumb".
bool isCapable(int stream);

struct Size {
    std::size_t rows = 0; ///< 0 where the terminal does not tell.
    std::size_t columns = 0;
};

/// The size of the terminal that `stream` is.
Size size(int stream);

/// The columns that `text`, in UTF-8, takes on a terminal: two for a wide letter, none for a mark on the letter before it.
std::size_t columns(std::string const& text);

enum class Colors {
    automatic, ///< On a capable terminal, unless NO_COLOR is set to anything.
    always,
    never,
};

/// Decides for the rest of the run; `automatic` holds until then.
void chooseColors(Colors colors);

enum class Style {
    normal,
    heading,
    good,
    odd,
    bad,
};

/// Whether somebody looks at standard output: it is a terminal, or colours are wanted anyway.
bool isLookedAt();

/// `text` for standard output, in colour where that is chosen.
std::string painted(std::string const& text, Style style);

} // namespace Terminal
