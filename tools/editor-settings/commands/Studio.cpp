// SPDX-License-Identifier: MIT
#include "commands/Commands.h"
#include "commands/StudioServer.h"
#include "terminal/Escaping.h"

#include <Host/ProductFile.h>

#include <absl/strings/str_cat.h>

#include <cstdlib>
#include <iostream>
#include <memory>

#include <dlfcn.h>

namespace {

// The connection that was typed, or the product's; empty where the environment names the server. It may hold a password.
std::string connectionFor(std::vector<std::string> const& typed, std::filesystem::path const& productFile)
{
    std::string connection = joined(typed, " ");
    if (connection.empty())
        connection = Host::ProductFile(productFile).studio();
    if (connection.empty() && !std::getenv("PGSERVICE") && !std::getenv("PGHOST"))
        throw UserError("no server is named; give a connection such as 'host=db.example dbname=studio', name one in the product file as "
                        "\"studio\", or set PGSERVICE");
    return connection;
}

decltype(migrateStudio)* migration()
{
    void* const module = ::dlopen((Host::installationPrefix() / STUDIO_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const function = module ? ::dlsym(module, "migrateStudio") : nullptr;
    if (!function)
        throw UserError(absl::StrCat("cannot load what talks to the server: ", ::dlerror(),
                                     "; install editor-settings with its libraries, or build it where libpq-dev is installed"));
    return reinterpret_cast<decltype(migrateStudio)*>(function);
}

int migrate(std::string const& connection, bool isDryRun)
{
    Migration result;
    migration()(result, connection, isDryRun);
    for (std::string const& reason : result.reasons)
        printError(absl::StrCat(result.server, ": ", reason));
    if (result.reasons.empty())
        std::cout << onOneLine(result.server) << ": " << result.answer << '\n';
    return result.reasons.empty() ? 0 : 1;
}

Command migrateCommand()
{
    struct Words {
        std::vector<std::string> connection;
        bool isDryRun = false;
    };
    auto const words = std::make_shared<Words>();
    Command command;
    command.name = "migrate";
    command.summary = "Makes the tables, functions and roles of a database, or updates them";
    // All words are one connection, so that no error about a superfluous word shows a password.
    command.options = {Option("CONNECTION", &words->connection, "Pairs such as host=db dbname=studio, or a URI; default: the product's"),
                       Option("--dry-run", &words->isDryRun, "Tells what would be done, and changes nothing")};
    command.examples = {
        {"editor-settings studio migrate --dry-run service=studio", "What would be done; exit status 1 where the server is out of reach."},
        {"editor-settings studio migrate host=db.invalid dbname=studio user=postgres",
         "As the database's owner, once and after updates; exit status 1 likewise."}};
    command.stores = always(StoreUse::none);
    command.run = [words](Invocation const& invocation) {
        return migrate(connectionFor(words->connection, invocation.productFile), words->isDryRun);
    };
    return command;
}

} // namespace

std::vector<Command> commandsOfStudio()
{
    Command command;
    command.name = "studio";
    command.group = Group::support;
    command.summary = "Settings that a studio shares on PostgreSQL, for its administrator";
    command.examples = {{"editor-settings studio migrate --dry-run", "What is to be done; exit status 1 where no server is named."}};
    command.stores = always(StoreUse::none);
    command.verbs = {migrateCommand()};
    return {command};
}
