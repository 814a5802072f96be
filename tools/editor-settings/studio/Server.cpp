// SPDX-License-Identifier: MIT
#include <Inspection/studio/StudioServer.h>
#include <Studio/SessionStore.h>
#include <Studio/outbox/OutboxFolder.h>
#include <Studio/outbox/OutboxReport.h>
#include <Studio/server/Administration.h>
#include <Studio/server/Login.h>
#include <Studio/server/SchemaSteps.h>

#include <type_traits>

namespace {

using Inspection::StudioAccount;
using Inspection::StudioHealth;
using Inspection::StudioStatus;
using Inspection::SupersededValue;
using Locking = Studio::Administration::Locking;
using Row = Storage::SqliteStorage::Row;

// The connection for what no editor asks. Made when it is first needed.
class Desk {
public:
    explicit Desk(std::string const& connection) : m_connection({connection}) {}

    // What `ask` returns. Throws the error of a store, of the attempt `attempt`.
    template <typename Ask>
    std::invoke_result_t<Ask, Studio::Administration&> ask(std::string const& attempt, Ask const& ask)
    try {
        if (!m_connection.isOpen())
            m_connection.connect();
        Studio::Administration administration(m_connection);
        return ask(administration);
    } catch (Studio::ServerError const& error) {
        throw Studio::storageError(error, attempt);
    }

    Studio::Connection const& connection() const { return m_connection; }
    std::string const& host() const { return m_connection.host(); }

private:
    Studio::Connection m_connection;
};

// The tool is used with the server: it tells at once what fails, and leaves no file where it only reads.
Studio::Session::Options optionsOf(std::string const& connection, std::function<bool(std::string const&)> const& roams)
{
    Studio::Session::Options options{connection, roams};
    options.worksOffline = false;
    return options;
}

class Server final : public Inspection::StudioServer {
public:
    Server(std::string const& connection, std::function<bool(std::string const&)> const& roams)
        : m_identity(Studio::identityOf(connection)), m_session(optionsOf(connection, roams)), m_desk(connection)
    {}

    std::shared_ptr<Storage::LayeredStorage> store(std::string const& name, std::shared_ptr<ISettingsStorage> const& local) override
    {
        return m_session.store(name, local);
    }
    StudioStatus status() const override;
    Inspection::KeptChanges kept() const override;
    StudioAccount account() override
    {
        auto const [user, schema, isAdministrator] =
            m_desk.ask("ask for the account", [](Studio::Administration& studio) { return studio.account(); });
        return {m_desk.host(), user, schema, isAdministrator};
    }
    void set(std::string const& store, std::string const& key, std::optional<Studio::Value> const& value, bool locks) override
    {
        m_desk.ask("change a setting of the studio",
                   [&](Studio::Administration& studio) { studio.set(store, key, value, locks ? Locking::lock : Locking::keep); });
    }
    bool lock(std::string const& store, std::string const& key, bool isLocked) override
    {
        return m_desk.ask(isLocked ? "lock a setting" : "unlock a setting",
                          [&](Studio::Administration& studio) { return studio.lock(store, key, isLocked); });
    }
    StudioHealth health() override;
    void onChange(std::function<void(std::string const&, std::string const&)> listener) override
    {
        m_session.onChange(std::move(listener));
    }
    std::vector<SupersededValue> superseded() override;
    bool forget(std::string const& user) override
    {
        return m_desk.ask("forget a user", [&](Studio::Administration& studio) { return studio.forget(user); });
    }

private:
    std::string const m_identity;
    Studio::Session m_session;
    Desk m_desk;
};

StudioStatus Server::status() const
{
    Studio::Status const known = m_session.status();
    StudioStatus result;
    result.isConnected = known.connected;
    if (known.problem)
        result.problem = Studio::storageError(*known.problem, "read the studio's settings");
    result.asOf = known.asOf;
    result.isListening = known.connected && known.hearing == Studio::Status::Hearing::listening;
    result.historyChanged = known.historyChanged;
    return result;
}

Inspection::KeptChanges Server::kept() const
{
    Inspection::KeptChanges result;
    if (m_identity.empty())
        return result;
    Studio::OutboxReport const report = Studio::readOutboxes(Studio::outboxFolders({}), m_identity);
    result.pending = report.pending;
    result.since = report.since;
    for (Studio::Outbox::Refusal const& refusal : report.refusals) {
        Studio::ServerError const error(Studio::reasonOf(refusal.sqlState), "", refusal.sqlState);
        result.refused.push_back({refusal.store, refusal.key, error.explanation(), error.remedy(),
                                  std::chrono::system_clock::time_point(std::chrono::milliseconds(refusal.refused))});
    }
    for (std::filesystem::path const& file : report.damaged)
        result.damaged.push_back(file.u8string());
    return result;
}

StudioHealth Server::health()
{
    StudioHealth result;
    result.account = account();
    result.knownSchema = static_cast<int>(Studio::schemaSteps().size());
    auto const found = m_desk.ask("ask for the server's health", [](Studio::Administration& studio) { return studio.health(); });
    result.isEncrypted = m_desk.connection().isEncrypted();
    result.isLocal = m_desk.host().find('/') != std::string::npos;
    result.isPooled = m_session.status().pooled;
    result.clockDifference = std::chrono::duration_cast<std::chrono::milliseconds>(found.difference);
    result.queueUsage = found.queueUsage;
    result.hasSynchronousStandby = found.hasSynchronousStandby;
    return result;
}

std::vector<SupersededValue> Server::superseded()
{
    std::vector<SupersededValue> result;
    for (auto const& lost : m_desk.ask("ask for superseded values", [](Studio::Administration& studio) { return studio.superseded(); }))
        result.push_back({lost.store, Row{lost.key, lost.setting.kind, lost.setting.value, lost.setting.changed}, lost.setting.changedBy,
                          lost.origin, lost.lost});
    return result;
}

} // namespace

__attribute__((visibility("default"))) Inspection::StudioServer* openStudio(std::string const& connection,
                                                                            std::function<bool(std::string const&)> const& roams)
{
    return new Server(connection, roams);
}
