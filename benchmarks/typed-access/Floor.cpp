// SPDX-License-Identifier: MIT
#include "Floor.h"

namespace Floor {

std::weak_ptr<ISettingsStorage> store;

bool getBool(std::string const& key, bool defaultValue) { return store.lock()->getBool(key, defaultValue); }

int getInt(std::string const& key, int defaultValue) { return store.lock()->getInt(key, defaultValue); }

std::string getString(std::string const& key, std::string const& defaultValue) { return store.lock()->getString(key, defaultValue); }

void setBool(std::string const& key, bool value) { store.lock()->setBool(key, value); }

void setInt(std::string const& key, int value) { store.lock()->setInt(key, value); }

void setString(std::string const& key, std::string const& value) { store.lock()->setString(key, value); }

} // namespace Floor
