// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/StorageError.h>
#include <Studio/Session.h>
#include <TestKit/MemoryStorage.h>

#include <studio/schema/support/SchemaTest.h>

#include <functional>
#include <memory>
#include <string>
#include <thread>

/// Every key roams but those that begin with "local". Each wait is `wait`, the session looks at the server when it is asked to, and
/// nothing is kept on the workstation.
inline Studio::Session::Options quiet(std::string const& connection, std::chrono::milliseconds wait = std::chrono::seconds(60))
{
    Studio::Session::Options options{connection, [](std::string const& key) { return key.compare(0, 5, "local") != 0; }, wait, wait, wait,
                                     wait};
    options.pollWait = std::chrono::hours(24);
    options.listen = false;
    options.worksOffline = false;
    return options;
}

/// As above, but the session polls fifty times a second.
inline Studio::Session::Options polling(std::string const& connection)
{
    Studio::Session::Options options = quiet(connection);
    options.pollWait = std::chrono::milliseconds(20);
    return options;
}

/// As above, but the server notifies the session, which polls hardly ever.
inline Studio::Session::Options listening(std::string const& connection)
{
    Studio::Session::Options options = quiet(connection);
    options.listen = true;
    options.heartbeatWait = std::chrono::hours(24);
    options.studioWait = std::chrono::milliseconds(0);
    return options;
}

/// Waits until something holds; false where that takes longer than a minute.
inline bool comesTrue(std::function<bool()> const& holds)
{
    auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return true;
}

/// A program of one user: a session, its store "common", and the local store behind that.
struct Program {
    explicit Program(std::string const& connection, std::chrono::milliseconds wait = std::chrono::seconds(60))
        : Program(quiet(connection, wait))
    {}
    explicit Program(Studio::Session::Options const& options) : session(options) {}

    std::shared_ptr<TestKit::MemoryStorage> local = std::make_shared<TestKit::MemoryStorage>();
    Studio::Session session;
    std::shared_ptr<Storage::LayeredStorage> layers = session.store("common", local);
    std::shared_ptr<ISettingsStorage> store = layers;
};

/// A test with programs of the users of a studio.
class SessionTest : public SchemaTest {
protected:
    using Code = Storage::StorageError::Code;

    std::string connectionOf(std::string const& role) const { return m_server->connection(role, "studio"); }

    /// The error that `work` throws. Another end fails the test.
    static Storage::StorageError errorOf(std::function<void()> const& work)
    {
        try {
            work();
        } catch (Storage::StorageError const& error) {
            return error;
        }
        ADD_FAILURE() << "nothing was thrown";
        return {Code::io, "", "", "", ""};
    }

    /// Has the studio's administrator set a value of the studio's layer.
    void give(std::string const& key, std::string const& kind, std::string const& value, bool locked = false)
    {
        Put put;
        put.op = ++m_operation;
        put.studio = true;
        put.key = key;
        put.kind = kind;
        put.value = value;
        put.locked = locked;
        std::string const answer = SchemaTest::put(user("ada"), put);
        EXPECT_EQ(answer.substr(0, 7), "stored|") << answer;
    }

    /// Forgets alice and makes her again with the setting "new" of 2, in one moment for those who look. Her layer has another number
    /// then, and more revisions than after a few changes.
    void makeAliceAgain() const
    {
        std::string statements = hello(1, false) + ';';
        for (int op = 1; op <= 5; ++op)
            statements += statement({1, op, false, "common", "new", "int", "2"}) + ';';
        ask("BEGIN; DELETE FROM settings.layer WHERE name = 'alice'; SET LOCAL SESSION AUTHORIZATION alice; " + statements + "COMMIT");
    }

    /// What the server has of a key of the common store in alice's layer, such as "int 7"; empty where it has nothing.
    std::string atServer(std::string const& key) const
    {
        return ask("SELECT v.kind || ' ' || encode(v.value, 'escape') FROM settings.value v JOIN settings.layer l ON l.id = v.layer "
                   "WHERE l.name = 'alice' AND v.store = 'common' AND v.kind IS NOT NULL AND v.key = '" +
                   key + "'::bytea");
    }

private:
    long long m_operation = 0;
};
