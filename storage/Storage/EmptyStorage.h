// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <string>
#include <vector>

namespace Storage {

/// A base for stores that holds no value: a read returns its default, a set or a removal does nothing. Override what
/// differs. Any thread may call.
class EmptyStorage : public ISettingsStorage {
public:
    void setBool(std::string const&, bool) override {}
    void setInt(std::string const&, int) override {}
    void setString(std::string const&, std::string const&) override {}
    void setBytes(std::string const&, std::vector<unsigned char> const&) override {}
    bool contains(std::string const&) const override { return false; }
    void remove(std::string const&) override {}
    bool getBool(std::string const&, bool defaultValue) const override { return defaultValue; }
    int getInt(std::string const&, int defaultValue) const override { return defaultValue; }
    std::string getString(std::string const&, std::string const& defaultValue) const override { return defaultValue; }
    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const& defaultValue) const override
    {
        return defaultValue;
    }
};

} // namespace Storage
