// SPDX-License-Identifier: MIT
#include <Studio/server/Schema.h>

#include <utility>

namespace Studio {

using State = Schema::State;

namespace {

// Each in the order of `Obstacle::Kind`, with the name that it is about. The owner's is about a schema that exists.
constexpr char const* obstacleQuery = R"(
    SELECT 0, datname::text FROM pg_database WHERE datname = current_database() AND NOT pg_has_role(datdba, 'USAGE')
    UNION ALL
    SELECT 1, needed FROM unnest(ARRAY['settings_owner', 'settings_user', 'settings_admin', 'settings_watch']) AS needed
        WHERE to_regrole(needed) IS NULL
            AND NOT EXISTS (SELECT FROM pg_roles WHERE rolname = current_user AND (rolcreaterole OR rolsuper))
    UNION ALL
    SELECT 2, rolname::text FROM pg_roles
        WHERE rolname IN ('settings_owner', 'settings_user', 'settings_admin', 'settings_watch')
            AND (rolcanlogin OR rolsuper OR rolbypassrls OR rolcreaterole)
    UNION ALL
    SELECT 3, rolname::text FROM pg_roles WHERE rolname = 'settings_owner' AND NOT pg_has_role(oid, 'USAGE')
        AND EXISTS (SELECT FROM pg_namespace WHERE nspname = 'settings' AND nspowner = pg_roles.oid)
    ORDER BY 1, 2)";

// Whether there is a schema of the name, whether it is ours, and whether it can tell its version.
constexpr char const* stateQuery = R"(
    SELECT n.nspname IS NOT NULL, coalesce(pg_get_userbyid(n.nspowner) = 'settings_owner', false),
        EXISTS (SELECT FROM pg_class WHERE relnamespace = n.oid AND relname = 'schema_version')
            AND EXISTS (SELECT FROM pg_proc WHERE pronamespace = n.oid AND proname = 'objects' AND pronargs = 0)
    FROM (VALUES ('settings')) AS wanted (name) LEFT JOIN pg_namespace AS n ON n.nspname = wanted.name)";

// Whether the newest row counts as many objects as there are; no row where the last step is incomplete.
constexpr char const* versionQuery =
    "SELECT version, objects = settings.objects() FROM settings.schema_version ORDER BY version DESC LIMIT 1";

} // namespace

Schema::Schema(Connection& connection, std::vector<std::string> steps) : m_connection(connection), m_steps(std::move(steps)) {}

Schema::Report Schema::examine()
{
    // Nothing that others made is called in place of the server's own.
    m_connection.execute("SELECT pg_catalog.set_config('search_path', 'pg_catalog, pg_temp', false)");
    Report report;
    Rows const obstacles = m_connection.execute(obstacleQuery);
    for (int row = 0; row < obstacles.count(); ++row)
        report.obstacles.push_back({static_cast<Obstacle::Kind>(obstacles.integer(row, 0)), std::string(obstacles.bytes(row, 1))});
    bool const isReadable = report.obstacles.empty() || report.obstacles.back().kind != Obstacle::Kind::owner;
    report.state = findState(isReadable, report.version);
    return report;
}

State Schema::findState(bool isReadable, int& version)
{
    Rows const found = m_connection.execute(stateQuery);
    if (!found.integer(0, 0))
        return State::missing;
    if (!found.integer(0, 1))
        return State::foreign;
    if (!found.integer(0, 2))
        return State::damaged;
    if (!isReadable)
        return State::hidden;
    Rows const newest = m_connection.execute(versionQuery);
    if (newest.count() == 0)
        return State::damaged;
    version = static_cast<int>(newest.integer(0, 0));
    if (version > this->newest())
        return State::newer;
    if (!newest.integer(0, 1))
        return State::damaged;
    return version < this->newest() ? State::older : State::current;
}

Schema::Report Schema::migrate()
try {
    m_connection.execute("BEGIN");
    m_connection.execute("SELECT pg_catalog.pg_advisory_xact_lock(1397052500, 0)");
    Report const report = examine();
    if (report.canMigrate())
        migrateFrom(report.version);
    m_connection.execute("COMMIT");
    return report;
} catch (ServerError const&) {
    m_connection.close();
    throw;
}

// A step is many statements. The protocol takes statements with parameters one by one only, which EXECUTE does not.
void Schema::migrateFrom(int version)
{
    for (int step = version; step < newest(); ++step)
        m_connection.execute("DO $migration$ BEGIN EXECUTE $step$" + m_steps[static_cast<std::size_t>(step)] + "$step$; END $migration$");
}

} // namespace Studio
