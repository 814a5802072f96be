// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/checks/ExaminedStore.h>
#include <Inspection/checks/Finding.h>

namespace Inspection {

/// Checks access to the file of `store`, modes and owners, the journal, and the file system. Changes nothing.
Findings checkStoreFile(ExaminedStore const& store);

} // namespace Inspection
