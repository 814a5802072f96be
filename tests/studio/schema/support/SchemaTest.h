// SPDX-License-Identifier: MIT
#pragma once

#include "Login.h"

#include <studio/support/ServerTest.h>

#include <chrono>
#include <functional>
#include <string>

/// What `put_v1` is called with: by default the first operation of the first client, which makes "key" of the common store true, now.
struct Put {
    int client = 1;
    long long op = 1;
    bool studio = false;
    std::string store = "common";
    std::string key = "key";
    std::optional<std::string> kind = "bool";
    std::optional<std::string> value = "true";
    bool locked = false;
    long long age = 0;
    long long base = 0;
};

/// A test with a server that holds a fresh schema in the database "studio", the users alice and bob, the administrator ada,
/// the poller watcher, and the stranger mallory, who has no role.
class SchemaTest : public ServerTest {
protected:
    void startServer() override;
    virtual std::vector<std::string> serverSettings() const { return {}; }
    /// The version of the schema.
    virtual std::size_t schema() const { return 2; }
    /// Makes the schema in a database that has none.
    void restoreSchema() const;

    Login login(std::string const& role) const { return Login(m_server->connection(role, "studio")); }
    /// A login that has said hello as a client.
    Login user(std::string const& role, int client = 1) const;
    /// The first column of the first row, as the superuser.
    std::string ask(std::string const& sql) const { return m_server->ask(sql, "studio"); }

    static std::string clientId(int client);
    static std::string hello(int client = 1, bool direct = true);
    /// The statement that calls put_v1, to be sent as it is.
    static std::string statement(Put const& put);
    /// The outcome and the revision, such as "stored|1", or the SQLSTATE.
    static std::string put(Login const& login, Put const& put) { return login.ask(statement(put)).text(); }
    /// What changes_v1 says, and changes_v2 too: whether of the studio, the layer's revision, store, key, kind, value, locked, revision.
    static std::string changes(Login const& login, long long userSince = 0, long long studioSince = 0);

    /// Waits until the superuser's question is answered with `answer`; false where it takes longer than a minute.
    bool comes(std::string const& question, std::string const& answer) const;
};
