// SPDX-License-Identifier: MIT
//
// The verb that prints changes as they happen.
#pragma once

#include "terminal/Table.h"

#include <Host/Application.h>

/// Prints each change that another process makes to a store, until SIGINT or SIGTERM. Waits for a missing store. Prints an
/// error with a store once on standard error, and keeps watching it.
void monitorStores(Host::Application const& application, Format format);
