// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/ISettingsStorage.h>

#include <memory>
#include <string>

/// The lock and the store's call, in functions of the program's own: nobody writes a lock out wherever a setting is read.
namespace Floor {

extern std::weak_ptr<ISettingsStorage> store;

bool getBool(std::string const& key, bool defaultValue);
int getInt(std::string const& key, int defaultValue);
std::string getString(std::string const& key, std::string const& defaultValue);

void setBool(std::string const& key, bool value);
void setInt(std::string const& key, int value);
void setString(std::string const& key, std::string const& value);

} // namespace Floor
