// SPDX-License-Identifier: MIT
#include "SchemaTest.h"

#include <Studio/server/SchemaSteps.h>

#include <thread>

using namespace std::chrono_literals;

namespace {

std::string quoted(std::string const& text)
{
    std::string result = "'";
    for (char const character : text)
        result += character == '\'' ? "''" : std::string(1, character);
    return result + '\'';
}

std::string bytes(std::string const& text)
{
    static char const digits[] = "0123456789abcdef";
    std::string result = "'\\x";
    for (char const character : text) {
        auto const byte = static_cast<unsigned char>(character);
        result += {digits[byte / 16], digits[byte % 16]};
    }
    return result + "'::bytea";
}

} // namespace

void SchemaTest::startServer()
{
    Cluster::Options options;
    options.settings = serverSettings();
    m_server.emplace(options);
    restoreSchema();
    ask("CREATE ROLE alice LOGIN IN ROLE settings_user; CREATE ROLE bob LOGIN IN ROLE settings_user;"
        "CREATE ROLE ada LOGIN IN ROLE settings_admin; CREATE ROLE watcher LOGIN IN ROLE settings_watch;"
        "CREATE ROLE mallory LOGIN; GRANT CONNECT ON DATABASE studio TO mallory");
}

void SchemaTest::restoreSchema() const
{
    std::string steps;
    for (std::size_t step = 0; step < schema(); ++step)
        steps += Studio::schemaSteps().at(step);
    ask("BEGIN; " + steps + " COMMIT");
}

Login SchemaTest::user(std::string const& role, int client) const
{
    Login result = login(role);
    EXPECT_EQ(result.ask(hello(client)).code, "");
    return result;
}

std::string SchemaTest::clientId(int client) { return "00000000-0000-0000-0000-00000000000" + std::to_string(client); }

std::string SchemaTest::hello(int client, bool direct)
{
    return "SELECT * FROM settings.hello_v1('" + clientId(client) + "', " + (direct ? "pg_backend_pid()" : "0") + ")";
}

std::string SchemaTest::statement(Put const& put)
{
    auto const flag = [](bool value) { return value ? "true" : "false"; };
    return "SELECT * FROM settings.put_v1('" + clientId(put.client) + "', " + std::to_string(put.op) + ", " + flag(put.studio) + ", " +
           quoted(put.store) + ", " + bytes(put.key) + ", " + (put.kind ? quoted(*put.kind) : "NULL") + ", " +
           (put.value ? bytes(*put.value) : "NULL") + ", " + flag(put.locked) + ", " + std::to_string(put.age) + ", " +
           std::to_string(put.base) + ")";
}

std::string SchemaTest::changes(Login const& login, long long userSince, long long studioSince)
{
    auto const of = [&](std::string const& function) {
        return login
            .ask("SELECT studio, layer_revision, store, encode(key, 'escape'), kind, encode(value, 'escape'), locked, revision "
                 "FROM settings." +
                     function + "($1, $2) ORDER BY studio, revision",
                 {std::to_string(userSince), std::to_string(studioSince)})
            .text();
    };
    std::string const first = of("changes_v1");
    EXPECT_EQ(of("changes_v2"), first);
    return first;
}

bool SchemaTest::comes(std::string const& question, std::string const& answer) const
{
    auto const deadline = std::chrono::steady_clock::now() + 60s;
    while (ask(question) != answer) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(5ms);
    }
    return true;
}
