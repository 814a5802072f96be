// SPDX-License-Identifier: MIT
//
// The reference: pages in Markdown about every preference and location of a product, which are the same on each machine.
#pragma once

#include "commands/Command.h"

#include <filesystem>

/// Prints the page about the preferences of the product in `productFile`. Binds the library to that product, without
/// stores, and changes the environment to that of a user who has set nothing. Throws `Host::ProductFileError`.
void printPreferencesPage(std::filesystem::path const& productFile);

/// Prints the page about its locations, likewise.
void printLocationsPage(std::filesystem::path const& productFile);

/// The option that asks for a page: it goes with no other, as a page is about every machine.
Option pageOption(std::string& page, std::vector<std::string> const& others);
