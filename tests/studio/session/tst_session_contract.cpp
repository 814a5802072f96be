// SPDX-License-Identifier: MIT
#include "support/SessionTest.h"

#include <Storage/ForwardingStorage.h>
#include <TestKit/StorageContract.h>

#include <utility>
#include <vector>

using namespace std::chrono_literals;

namespace {

[[maybe_unused]] auto* const environment = testing::AddGlobalTestEnvironment(new ServerEnvironment);

/// The server of a `SessionTest`, for the tests of the contract, which have a fixture of their own.
class SharedServer : public SessionTest {
public:
    SharedServer() { startServer(); }
    using SessionTest::connectionOf;

private:
    void TestBody() override {}
};

/// Shows at each read what all programs had stored before.
class SynchronisedStore final : public Storage::ForwardingStorage {
public:
    explicit SynchronisedStore(std::shared_ptr<Program> program) : ForwardingStorage(program->store), m_program(std::move(program)) {}

private:
    ISettingsStorage& target() const override
    {
        EXPECT_TRUE(m_program->session.synchronise(60s));
        return ForwardingStorage::target();
    }

    std::shared_ptr<Program> m_program;
};

/// Every opening is a program of its own.
class ManyPrograms {
public:
    std::shared_ptr<ISettingsStorage> open()
    {
        return std::make_shared<SynchronisedStore>(std::make_shared<Program>(m_server.connectionOf("alice")));
    }

private:
    SharedServer m_server;
};

/// Every opening is a store of the same program.
class OneProgram {
public:
    std::shared_ptr<ISettingsStorage> open() { return m_program.session.store("common", m_program.local); }

private:
    SharedServer m_server;
    Program m_program{m_server.connectionOf("alice")};
};

/// As above, with the keys that stay on the workstation.
class LocalKeys {
public:
    std::shared_ptr<ISettingsStorage> open() { return m_session.store("common", m_local); }

private:
    SharedServer m_server;
    Studio::Session m_session{{m_server.connectionOf("alice"), {}}};
    std::shared_ptr<TestKit::MemoryStorage> m_local = std::make_shared<TestKit::MemoryStorage>();
};

} // namespace

namespace TestKit {

INSTANTIATE_TYPED_TEST_SUITE_P(TwoSessions, StorageContract, ManyPrograms);
INSTANTIATE_TYPED_TEST_SUITE_P(TwoStoresOfOneSession, StorageContract, OneProgram);
INSTANTIATE_TYPED_TEST_SUITE_P(KeysThatDoNotRoam, StorageContract, LocalKeys);

} // namespace TestKit
