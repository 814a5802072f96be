// SPDX-License-Identifier: MIT
#include "studio/Migration.h"

#include "terminal/Escaping.h"

#include <Studio/server/Schema.h>

#include <absl/strings/str_cat.h>

using Studio::Schema;

namespace {

using State = Schema::State;
using Kind = Schema::Obstacle::Kind;

std::string sentence(Schema::Obstacle const& obstacle)
{
    std::string const name = quoted(obstacle.name);
    switch (obstacle.kind) {
    case Kind::database:
        return absl::StrCat("the database ", name, " belongs to another role; migrate as its owner or as a superuser");
    case Kind::newRoles:
        return absl::StrCat("there is no role ", name,
                            ", and this login may make none; migrate as a role with CREATEROLE, or have it made");
    case Kind::role:
        return absl::StrCat("the role ", name, " can log in or has powers of its own; rename it, or alter it to NOLOGIN NOSUPERUSER ",
                            "NOBYPASSRLS NOCREATEROLE");
    case Kind::owner:
        break;
    }
    return absl::StrCat("this login is no member of ", name, "; migrate as the role that made the schema, or as a superuser");
}

// Why this version cannot do anything about what it found; empty where it can.
std::string refusal(Schema::Report const& report, int newest)
{
    if (report.state == State::newer)
        return absl::StrCat("it has schema ", report.version, ", and this program knows ", newest, "; update the program");
    if (report.state == State::foreign)
        return "its schema 'settings' was made by something else; rename it, or give the settings a database of their own";
    if (report.state == State::damaged)
        return "its schema 'settings' is incomplete, or was changed by hand; restore a backup of the database; if nothing "
               "is stored yet, DROP SCHEMA settings CASCADE and migrate again";
    return "";
}

std::string answer(Schema::Report const& report, int newest, bool isDryRun)
{
    if (report.state == State::current)
        return absl::StrCat("schema ", newest, " is up to date");
    if (report.state == State::missing)
        return absl::StrCat(isDryRun ? "there is no schema; would make" : "made", " schema ", newest,
                            " and the roles settings_user, settings_admin, settings_watch and settings_owner where they were missing");
    return absl::StrCat(isDryRun ? "would update" : "updated", " schema ", report.version, " to ", newest);
}

} // namespace

__attribute__((visibility("default"))) void migrateStudio(Migration& result, std::string const& connection, bool isDryRun)
{
    using namespace std::chrono_literals;
    Studio::Connection server({connection, 10s, 10min, 1min});
    server.connect();
    Schema schema(server);
    Schema::Report const report = isDryRun ? schema.examine() : schema.migrate();
    result.server = server.host();
    std::string const reason = refusal(report, schema.newest());
    if (!reason.empty())
        result.reasons.push_back(reason);
    else if (report.state != State::current)
        for (Schema::Obstacle const& obstacle : report.obstacles)
            result.reasons.push_back(sentence(obstacle));
    result.answer = answer(report, schema.newest(), isDryRun);
}
