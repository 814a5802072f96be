// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/PathStatus.h>
#include <Inspection/checks/ExaminedStore.h>
#include <Inspection/checks/Finding.h>

namespace Inspection {

/// Checks the keys and values in `store` against those that the library reads. Changes nothing. `application` must have
/// bound the library.
Findings checkStoredValues(Host::Application const& application, ExaminedStore const& store, PathLook const& look = statusOnDisk);

} // namespace Inspection
