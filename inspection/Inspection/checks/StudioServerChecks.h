// SPDX-License-Identifier: MIT
#pragma once

#include <Inspection/checks/Finding.h>
#include <Inspection/studio/StudioServer.h>

namespace Inspection {

/// Checks what is known of a server that was reached.
Findings checkStudioServer(StudioHealth const& health);
/// Checks what this workstation keeps for the server. Refusals count for as long as the server keeps what lost a conflict.
Findings checkKeptChanges(KeptChanges const& kept, std::chrono::system_clock::time_point now);
/// Checks a server, which is asked, and what is kept for it. Where it is not reached, nothing else is found of it.
Findings checkStudioServer(StudioServer& server);

} // namespace Inspection
