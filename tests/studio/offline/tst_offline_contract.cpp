// SPDX-License-Identifier: MIT
#include "support/OfflineTest.h"

#include <Storage/ForwardingStorage.h>
#include <TestKit/StorageContract.h>

#include <storage/support/MemoryFolder.h>

#include <memory>
#include <utility>

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

/// Every opening is a program of its own, and all keep their changes in one outbox.
class ManyPrograms {
public:
    std::shared_ptr<ISettingsStorage> open()
    {
        return std::make_shared<SynchronisedStore>(std::make_shared<Program>(keeping(m_server.connectionOf("alice"), m_folder.path())));
    }

private:
    SharedServer m_server;
    MemoryFolder m_folder;
};

/// Every opening is a store of the same program, which never reaches a server.
class NoServer {
public:
    std::shared_ptr<ISettingsStorage> open() { return m_program.session.store("common", m_program.local); }

private:
    MemoryFolder m_folder;
    Program m_program{keeping("host=/no/such/folder", m_folder.path())};
};

} // namespace

namespace TestKit {

INSTANTIATE_TYPED_TEST_SUITE_P(TwoProgramsWithOneOutbox, StorageContract, ManyPrograms);
INSTANTIATE_TYPED_TEST_SUITE_P(OutboxWithoutAServer, StorageContract, NoServer);

} // namespace TestKit
