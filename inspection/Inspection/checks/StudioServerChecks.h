// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/checks/Finding.h>
#include <Inspection/studio/StudioServer.h>

namespace Inspection {

/// Checks what is known of a server that was reached.
Findings checkStudioServer(StudioHealth const& health);
/// Checks a server, which is asked. Where it is not reached, that is the only finding.
Findings checkStudioServer(StudioServer& server);

} // namespace Inspection
