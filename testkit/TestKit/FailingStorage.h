// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/ForwardingStorage.h>

#include <atomic>
#include <memory>
#include <stdexcept>

namespace TestKit {

/// What a `FailingStorage` throws.
class StorageFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws `StorageFailure` at its n-th call, of whichever operation, and forwards every other call. The call that throws
/// is not forwarded.
class FailingStorage final : public Storage::ForwardingStorage {
public:
    /// The first call is call 1. Without `inner` the calls go to a new `MemoryStorage`.
    explicit FailingStorage(int failingCall, std::shared_ptr<ISettingsStorage> inner = nullptr);

private:
    ISettingsStorage& target() const override;

    int const m_failingCall;
    mutable std::atomic<int> m_calls{0};
};

} // namespace TestKit
