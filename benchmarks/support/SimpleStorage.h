// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace Bench {

/// The simplest store that a host could have: values in memory, for one thread. So little is its own that what the
/// library adds shows.
class SimpleStorage final : public ISettingsStorage {
public:
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

private:
    template <typename T>
    T get(std::string const& key, T const& defaultValue) const;

    std::unordered_map<std::string, Value> m_values;
};

} // namespace Bench
