// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/PathStatus.h>
#include <Inspection/checks/Finding.h>

namespace Inspection {

/// Checks the home folder that the environment names: at most one finding, `Check::home`.
Findings checkHome();

/// Checks the folders that the editor writes to, but for those of which nothing is known yet. Makes none. The library must be bound.
Findings checkFolders(PathLook const& look = statusOnDisk);

} // namespace Inspection
