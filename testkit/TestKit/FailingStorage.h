// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace TestKit {

/// What a `FailingStorage` throws.
class StorageFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Throws `StorageFailure` at its n-th call, of whichever operation, and hands every other call to another store. The
/// call that throws is not handed on.
class FailingStorage final : public ISettingsStorage {
public:
    /// The first call is call 1. Without `inner` the calls go to a `MemoryStorage` of its own.
    explicit FailingStorage(int failingCall, std::shared_ptr<ISettingsStorage> inner = nullptr);

    void setBool(std::string const& key, bool value) override;
    void setInt(std::string const& key, int value) override;
    void setString(std::string const& key, std::string const& value) override;
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override;
    bool contains(std::string const& key) const override;
    void remove(std::string const& key) override;
    bool getBool(std::string const& key, bool defaultValue) const override;
    int getInt(std::string const& key, int defaultValue) const override;
    std::string getString(std::string const& key, std::string const& defaultValue) const override;
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override;

private:
    ISettingsStorage& counted() const;

    int const m_failingCall;
    mutable std::atomic<int> m_calls{0};
    std::shared_ptr<ISettingsStorage> m_inner;
};

} // namespace TestKit
