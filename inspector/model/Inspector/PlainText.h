// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/OneLine.h>

#include <QString>

#include <string>

namespace Inspector {

/// `text`, in UTF-8, as it is shown: with escapes in place of control characters, which could come from a file or a server.
inline QString plainText(std::string const& text) { return QString::fromStdString(Inspection::withoutControls(text)); }

} // namespace Inspector
