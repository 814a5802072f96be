// SPDX-License-Identifier: MIT
#include "support/ContractServer.h"

#include <TestKit/StorageContract.h>

namespace {

[[maybe_unused]] auto* const environment = testing::AddGlobalTestEnvironment(new ServerEnvironment);

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
