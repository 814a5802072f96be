// SPDX-License-Identifier: MIT
#include "support/OfflineTest.h"

#include <TestKit/StorageContract.h>

#include <storage/support/MemoryFolder.h>
#include <studio/session/support/ContractServer.h>

#include <memory>

namespace {

[[maybe_unused]] auto* const environment = testing::AddGlobalTestEnvironment(new ServerEnvironment);

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
