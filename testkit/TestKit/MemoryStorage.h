// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <map>
#include <mutex>
#include <string>
#include <variant>
#include <vector>

namespace TestKit {

/// A store in memory, empty at first. A read for another kind than the stored one returns its default. Any thread may call.
class MemoryStorage final : public ISettingsStorage {
public:
    /// A value of any kind that a store keeps.
    using Value = std::variant<bool, int, std::string, std::vector<unsigned char>>;

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

    /// A copy of all that is stored.
    std::map<std::string, Value> values() const;

private:
    void set(std::string const& key, Value value);
    template <typename T>
    T get(std::string const& key, T const& defaultValue) const;

    mutable std::mutex m_mutex;
    std::map<std::string, Value> m_values;
};

} // namespace TestKit
