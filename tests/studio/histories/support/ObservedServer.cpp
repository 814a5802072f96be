// SPDX-License-Identifier: MIT
#include "ObservedServer.h"

namespace {

// Writes down what becomes of each row, in the order of the commits, as the layer's row is locked meanwhile.
constexpr char const* observer = R"sql(
    CREATE SCHEMA observed;
    CREATE TABLE observed.stored (id bigint GENERATED ALWAYS AS IDENTITY, layer integer, owner text, revision bigint, key text, value text,
        locked boolean, client uuid);
    CREATE TABLE observed.kept (key text, value text);
    CREATE FUNCTION observed.note_stored() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$
    BEGIN
        IF TG_OP = 'DELETE' THEN
            INSERT INTO observed.stored (layer, owner, revision, key)
                SELECT s.layer, s.owner, 0, s.key FROM observed.stored s
                WHERE s.layer = OLD.layer AND s.key = convert_from(OLD.key, 'UTF8') LIMIT 1;
        ELSE
            INSERT INTO observed.stored (layer, owner, revision, key, value, locked, client)
                SELECT NEW.layer, l.name, NEW.revision, convert_from(NEW.key, 'UTF8'), convert_from(NEW.value, 'UTF8'), NEW.locked, NEW.client
                FROM settings.layer l WHERE l.id = NEW.layer;
        END IF;
        RETURN NULL;
    END $$;
    CREATE FUNCTION observed.note_kept() RETURNS trigger LANGUAGE plpgsql SECURITY DEFINER AS $$
    BEGIN
        -- A removal that was stored before is still there.
        INSERT INTO observed.kept SELECT convert_from(NEW.key, 'UTF8'), convert_from(NEW.value, 'UTF8')
            WHERE NEW.value IS NOT NULL
                OR EXISTS (SELECT FROM settings.value v WHERE v.layer = NEW.layer AND v.key = NEW.key AND v.value IS NOT NULL);
        RETURN NULL;
    END $$;
    CREATE TRIGGER note AFTER INSERT OR UPDATE OR DELETE ON settings.value FOR EACH ROW EXECUTE FUNCTION observed.note_stored();
    CREATE TRIGGER note AFTER INSERT ON settings.superseded FOR EACH ROW EXECUTE FUNCTION observed.note_kept();)sql";

std::optional<int> number(std::string const& cell) { return cell == "null" ? std::nullopt : std::optional(std::stoi(cell)); }

} // namespace

void ObservedServer::startServer()
{
    SessionTest::startServer();
    ask(observer);
    observe();
}

void ObservedServer::observe() { m_observer.emplace(m_server->connection(Cluster::superuser, "studio")); }

void ObservedServer::forgetAll() const
{
    EXPECT_EQ(m_observer
                  ->ask("TRUNCATE settings.layer CASCADE; INSERT INTO settings.layer (kind, name) VALUES ('studio', '');"
                        "TRUNCATE observed.stored, observed.kept")
                  .code,
              "");
}

Step::Known ObservedServer::known(std::string const& user) const
{
    if (!m_observer)
        return {};
    char const* const question = "SELECT count(*) FILTER (WHERE owner = $1), count(*) FILTER (WHERE owner = '') FROM observed.stored";
    std::vector<std::string> const counts = m_observer->ask(question, {user}).rows.at(0);
    return {std::stoul(counts[0]), std::stoul(counts[1])};
}

Record ObservedServer::record() const
{
    Record record;
    char const* const question = "SELECT layer, owner, revision, key, value, coalesce(locked, false), coalesce(client::text, '') "
                                 "FROM observed.stored ORDER BY id";
    for (std::vector<std::string> const& row : m_observer->ask(question).rows)
        record.stored.push_back({std::stoi(row[0]), row[1], std::stoll(row[2]), row[3], number(row[4]), row[5] == "t", row[6]});
    for (std::vector<std::string> const& row : m_observer->ask("SELECT key, value FROM observed.kept").rows)
        record.kept.push_back({row[0], number(row[1])});
    return record;
}
