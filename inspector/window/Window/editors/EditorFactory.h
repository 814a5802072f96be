// SPDX-License-Identifier: MIT
#pragma once

#include <Window/editors/ValueEditor.h>

namespace Inspector {

/// The editor for the values of `setting`, with its value in it; null where an editor would not keep it byte for byte, and for a text
/// that is too long to be typed in.
ValueEditor* newEditor(Setting const& setting, QWidget* parent);

/// The stored bytes of `setting`, where they are what is to be seen: those of a value of bytes, and of a text that is not UTF-8. Else
/// nullopt.
std::optional<QByteArray> bytesToShow(Setting const& setting);

} // namespace Inspector
