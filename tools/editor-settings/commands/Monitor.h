// SPDX-License-Identifier: MIT
//
// The verb that tells of changes as they happen.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

/// Prints each change that another process makes to a store, until SIGINT or SIGTERM comes. A store that is not there yet
/// is waited for. Trouble with a store is told on standard error, and the store is looked at further.
void monitorStores(Host::Application const& application, Format format);
