// SPDX-License-Identifier: MIT
#include "commands/StudioServer.h"
#include "terminal/Escaping.h"

bool migrateStudio(std::string const&, bool)
{
    throw UserError("this program was built without PostgreSQL's client library; build it where libpq-dev is installed");
}
