// SPDX-License-Identifier: MIT
//
// The verbs that carry stored values in a document. Each throws `UserError` for what it refuses, `Storage::StorageError` for
// trouble with a store.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

#include <string>
#include <vector>

struct TransferOptions {
    std::string file;              ///< "-" for standard output or input.
    std::vector<std::string> only; ///< The classes of the keys that count; empty for all keys.
    bool redact = false;           ///< Export: keep values by what their class promises, and no unknown keys.
    bool withUnknown = false;      ///< Import: take keys that the library never asks for.
    bool dryRun = false;           ///< Import: print what would change, and change nothing.
};

void exportSettings(Host::Application const& application, TransferOptions const& options);
void importSettings(Host::Application const& application, TransferOptions const& options, Format format);
/// Whether anything differs.
bool showDifferences(Host::Application const& application, TransferOptions const& options, Format format);
