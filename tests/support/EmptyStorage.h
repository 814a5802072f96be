// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

/// A store that holds nothing and keeps nothing: every read gives its default. A test overrides what it watches.
class EmptyStorage : public ISettingsStorage {
public:
    void setBool(std::string const&, bool) override {}
    void setInt(std::string const&, int) override {}
    void setString(std::string const&, std::string const&) override {}
    void setBytes(std::string const&, std::vector<unsigned char> const&) override {}
    bool contains(std::string const&) const override { return false; }
    void remove(std::string const&) override {}
    bool getBool(std::string const&, bool value) const override { return value; }
    int getInt(std::string const&, int value) const override { return value; }
    std::string getString(std::string const&, std::string const& value) const override { return value; }
    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const& value) const override { return value; }
};
