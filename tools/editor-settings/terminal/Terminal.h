// SPDX-License-Identifier: MIT
//
// Properties of the terminal, and colours for it.
#pragma once

#include <cstddef>
#include <string>

namespace Terminal {

/// Whether the file descriptor `stream` is a terminal.
bool is(int stream);
/// Whether `stream` is a terminal that obeys escape sequences: TERM is set, and not to "dumb".
bool isCapable(int stream);

/// The width of the terminal `stream`; 0 when it is unknown.
std::size_t columns(int stream);

enum class Colors {
    automatic, ///< On a capable terminal, unless NO_COLOR is set to anything.
    always,
    never,
};

/// Sets the mode for the rest of the run; the initial mode is `automatic`.
void chooseColors(Colors colors);

enum class Style {
    normal,
    heading,
    good,
    odd,
    bad,
};

/// Whether standard output is formatted for a reader: it is a terminal, or the mode is `always`.
bool isLookedAt();

/// `text` with the codes of `style` when standard output is coloured; an empty `text` is unchanged.
std::string painted(std::string const& text, Style style);

} // namespace Terminal
