// SPDX-License-Identifier: MIT
#include <Studio/server/Administration.h>

namespace Studio {

namespace {

// All programs that administrate under one login are one client of the server's, so that they leave one row there.
constexpr char const* client = "'00000000-0000-0000-0000-000000000000'";

std::string text(Rows const& rows, int row, int column) { return std::string(rows.bytes(row, column)); }

Parameter optional(std::optional<std::string> const& value) { return value ? Parameter::raw(*value) : Parameter::null(); }

} // namespace

Administration::Account Administration::account()
{
    Rows const rows = m_connection.execute(std::string("SELECT session_user::text, schema, pg_has_role(session_user, 'settings_admin', "
                                                       "'MEMBER') FROM settings.hello_v1(") +
                                           client + ", 0)");
    return {text(rows, 0, 0), static_cast<int>(rows.integer(0, 1)), rows.integer(0, 2) != 0};
}

Administration::Health Administration::health()
{
    auto const before = std::chrono::system_clock::now();
    Rows const rows = m_connection.execute("SELECT clock_timestamp(), (pg_notification_queue_usage() * 1000000)::integer, "
                                           "current_setting('synchronous_standby_names') <> ''");
    // The server read its clock somewhere between.
    auto const middle = before + (std::chrono::system_clock::now() - before) / 2;
    return {rows.time(0, 0) - middle, static_cast<double>(rows.integer(0, 1)) / 1e6, rows.integer(0, 2) != 0};
}

std::vector<Administration::Superseded> Administration::superseded()
{
    Rows const rows =
        m_connection.execute("SELECT store, key, coalesce(kind, ''), value, changed_by, changed_at, kind IS NULL, changed_on, "
                             "superseded_at FROM settings.superseded_v1(false)");
    std::vector<Superseded> result;
    for (int row = 0; row < rows.count(); ++row)
        result.push_back(
            {text(rows, row, 0),
             text(rows, row, 1),
             {valueOf(rows.bytes(row, 2), rows.bytes(row, 3)), false, text(rows, row, 4), rows.time(row, 5), text(rows, row, 2)},
             rows.integer(row, 6) != 0,
             text(rows, row, 7),
             rows.time(row, 8)});
    return result;
}

void Administration::set(std::string const& store, std::string const& key, std::optional<Value> const& value, Locking locking)
{
    std::optional<StoredValue> const stored = value ? std::optional(storedValue(*value)) : std::nullopt;
    std::string const kept =
        "coalesce((SELECT c.locked FROM settings.changes_v1(0, 0) AS c WHERE c.studio AND c.store = $1 AND c.key = $2), "
        "false)";
    // An administrator decides whatever was there before, so no value of theirs loses a conflict.
    std::string const statement = std::string("SELECT p.outcome FROM settings.hello_v1(") + client + ", 0) AS h CROSS JOIN LATERAL " +
                                  "settings.put_v1(" + client + ", h.last_op + 1, true, $1, $2, $3, $4, " +
                                  (!value                     ? "false"
                                   : locking == Locking::lock ? "true"
                                                              : kept) +
                                  ", 0, 9223372036854775807) AS p";
    std::vector<Parameter> const parameters = {Parameter::raw(store), Parameter::raw(key),
                                               optional(stored ? std::optional(std::string(stored->kind)) : std::nullopt),
                                               optional(stored ? std::optional(stored->bytes) : std::nullopt)};
    // Another program of the login took the same number at the same time.
    while (m_connection.execute(statement, parameters).bytes(0, 0) == "repeated") {
    }
}

bool Administration::lock(std::string const& store, std::string const& key, bool isLocked)
try {
    m_connection.execute("SELECT settings.lock_v1($1, $2, $3)",
                         {Parameter::raw(store), Parameter::raw(key), Parameter::literal(isLocked ? "true" : "false")});
    return true;
} catch (ServerError const& error) {
    if (error.sqlState() != "ST007")
        throw;
    return false;
}

bool Administration::forget(std::string const& user)
{
    return m_connection.execute("SELECT settings.forget_user_v1($1)", {Parameter::raw(user)}).integer(0, 0) != 0;
}

} // namespace Studio
