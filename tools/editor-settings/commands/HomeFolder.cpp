// SPDX-License-Identifier: MIT
#include "commands/HomeFolder.h"

#include <Inspection/checks/FolderChecks.h>

std::string troubleWithTheHome()
{
    Inspection::Findings const findings = Inspection::checkHome();
    return findings.empty() ? std::string() : findings.front().what;
}
