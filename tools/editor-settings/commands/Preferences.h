// SPDX-License-Identifier: MIT
//
// Reading and storing one preference by its key, for every verb that does so.
#pragma once

#include "terminal/Table.h"

#include <Catalogue/Catalogue.h>
#include <Host/Application.h>

#include <string>
#include <vector>

/// Prints the value that a read returns. Throws `UserError` for an unknown key.
void getPreference(Host::Application const& application, std::string const& key, Format format);
/// Stores the value that `words` stand for. Throws `UserError` for an unknown key and for words that are no such value.
void setPreference(Host::Application const& application, std::string const& key, std::vector<std::string> const& words);
/// The key of the member `member` of a family. Throws `UserError` for a name that is not UTF-8.
std::string keyInFamily(Catalogue::Family const& family, std::string const& member);
