// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Storage {

/// A base for stores that forwards every call to another store. Override what differs.
///
/// Threads: as the other store. Errors: those of the other store, unchanged.
class ForwardingStorage : public ISettingsStorage {
public:
    /// Forwards to `target`, which must not be null, and shares its ownership.
    explicit ForwardingStorage(std::shared_ptr<ISettingsStorage> target) : m_target(std::move(target)) {}

    void setBool(std::string const& key, bool value) override { target().setBool(key, value); }
    void setInt(std::string const& key, int value) override { target().setInt(key, value); }
    void setString(std::string const& key, std::string const& value) override { target().setString(key, value); }
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override { target().setBytes(key, value); }
    bool contains(std::string const& key) const override { return target().contains(key); }
    void remove(std::string const& key) override { target().remove(key); }
    bool getBool(std::string const& key, bool defaultValue) const override { return target().getBool(key, defaultValue); }
    int getInt(std::string const& key, int defaultValue) const override { return target().getInt(key, defaultValue); }
    std::string getString(std::string const& key, std::string const& defaultValue) const override
    {
        return target().getString(key, defaultValue);
    }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override
    {
        return target().getBytes(key, defaultValue);
    }

protected:
    /// The store that a call goes to. Each forwarded call asks once, so an override may choose, count or throw.
    virtual ISettingsStorage& target() const { return *m_target; }

private:
    std::shared_ptr<ISettingsStorage> m_target;
};

} // namespace Storage
