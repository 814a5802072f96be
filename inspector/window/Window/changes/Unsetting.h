// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <functional>

namespace Inspector {

class Committer;
class MessageBar;

/// Removes what is stored of `settings`: of one at once, of several after a question. `isDone` is called when that was answered.
void unset(Lines<Setting> const& settings, Committer& committer, MessageBar& messages, std::function<void()> const& isDone);

} // namespace Inspector
