// SPDX-License-Identifier: MIT
//
// The verbs about settings and project files. Each prints its answer to standard output and throws `UserError` for what
// it says no to.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

#include <optional>
#include <string>
#include <vector>

struct ListOptions {
    std::string pattern;              ///< Of keys, with the wildcards of a shell; empty for all.
    bool onlySet = false;             ///< Only what is stored.
    bool onlyUnset = false;           ///< Only what is not stored.
    std::optional<std::string> store; ///< Only "product" or "common".
};

void listPreferences(Host::Application const& application, ListOptions const& options, Format format);
void getPreference(Host::Application const& application, std::string const& key, Format format);
void setPreference(Host::Application const& application, std::string const& key, std::vector<std::string> const& words);
/// Stores the content of `file`, or of standard input where it is "-": a list's elements on a line each, all else byte for
/// byte.
void setPreferenceFromFile(Host::Application const& application, std::string const& key, std::string const& file);
void unsetPreference(Host::Application const& application, std::string const& key);
void explainPreference(Host::Application const& application, std::string const& key, Format format);

/// The default name of a project, the extensions, the filters of file dialogs and the sample project.
void showProject(Format format);
