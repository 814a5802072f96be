// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

class QWidget;

namespace Inspector {

/// Puts the focus into the next visible one of `parts`, or into the one before where `direction` is -1, round at the ends.
void focusPart(std::vector<QWidget*> const& parts, int direction);

} // namespace Inspector
