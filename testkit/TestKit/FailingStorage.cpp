// SPDX-License-Identifier: MIT
#include <TestKit/FailingStorage.h>
#include <TestKit/MemoryStorage.h>

#include <string>
#include <utility>

namespace TestKit {

FailingStorage::FailingStorage(int failingCall, std::shared_ptr<ISettingsStorage> inner)
    : ForwardingStorage(inner ? std::move(inner) : std::make_shared<MemoryStorage>()), m_failingCall(failingCall)
{}

ISettingsStorage& FailingStorage::target() const
{
    int const call = ++m_calls;
    if (call == m_failingCall)
        throw StorageFailure("the store fails at call " + std::to_string(call));
    return ForwardingStorage::target();
}

} // namespace TestKit
