// SPDX-License-Identifier: MIT
//
// The verb about names of files that the editor is about to write.
#pragma once

#include "terminal/Table.h"

#include <string>

enum class NewFile { audio, freeze, stabilized };

struct NextNameOptions {
    NewFile file = NewFile::audio;
    std::string source;   ///< The file that a freeze frame or a stabilized clip is made of; only its name counts.
    std::string format;   ///< Of a stabilized clip.
    bool reserve = false; ///< Make the file, empty, so that the name is taken.
};

/// Prints the path that the library proposes, or the one that was reserved. Throws `UserError` where none can be.
void showNextName(NextNameOptions const& options, Format format);
