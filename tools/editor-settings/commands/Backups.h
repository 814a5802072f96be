// SPDX-License-Identifier: MIT
//
// The verbs that copy the stores as a whole, and bring them back.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

#include <string>

/// Writes a copy of the stores to the new file `file`. Throws `UserError` where there is no store.
void backUpStores(Host::Application const& application, std::string const& file);

/// Makes the stores what they are in the backup `file`, and tells where what was there is kept; with `isDryRun` only
/// tells what would change. A store that the backup does not hold stays as it is.
void restoreStores(Host::Application const& application, std::string const& file, bool isDryRun, Format format);
