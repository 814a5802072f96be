// SPDX-License-Identifier: MIT
//
// The verbs about preferences and project files. Each prints its answer to standard output and throws `UserError` for a
// request that it refuses.
#pragma once

#include "terminal/Table.h"

#include <Catalogue/Catalogue.h>
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
/// Stores the content of `file`, or of standard input for "-": each line an element of a list, any other value byte for byte.
void setPreferenceFromFile(Host::Application const& application, std::string const& key, std::string const& file);
void unsetPreference(Host::Application const& application, std::string const& key);
void explainPreference(Host::Application const& application, std::string const& key, Format format);

/// The key of the member `member` of a family. Throws `UserError` for a name that is not UTF-8.
std::string keyInFamily(Catalogue::Family const& family, std::string const& member);

/// The default name of a project, the extensions, the filters of file dialogs and the sample project.
void showProject(Format format);
