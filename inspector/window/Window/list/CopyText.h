// SPDX-License-Identifier: MIT
//
// What a copy of lines puts on the clipboard. A personal value is in none of them but where it is revealed.
#pragma once

#include <Inspector/Place.h>
#include <Inspector/Snapshot.h>

#include <optional>
#include <string>

namespace Inspector {

enum class CopyForm {
    keyAndValue, ///< With a tab between them, a setting on each line.
    key,
    value,
    json,    ///< An object, or an array of them, as of `editor-settings get --json`.
    command, ///< The command line that stores or removes what is shown.
};

/// The text for `settings`, of which `revealed` is the id of the one that may show its personal value. nullopt where no command line
/// can say it.
std::optional<QString> copyText(Lines<Setting> const& settings, CopyForm form, std::string const& revealed, Place const& place);

} // namespace Inspector
