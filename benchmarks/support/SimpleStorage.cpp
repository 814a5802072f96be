// SPDX-License-Identifier: MIT
#include "SimpleStorage.h"

namespace Bench {

template <typename T>
T SimpleStorage::get(std::string const& key, T const& defaultValue) const
{
    auto const found = m_values.find(key);
    T const* const value = found == m_values.end() ? nullptr : std::get_if<T>(&found->second);
    return value ? *value : defaultValue;
}

void SimpleStorage::setBool(std::string const& key, bool value) { m_values[key] = value; }
void SimpleStorage::setInt(std::string const& key, int value) { m_values[key] = value; }
void SimpleStorage::setString(std::string const& key, std::string const& value) { m_values[key] = value; }
void SimpleStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value) { m_values[key] = value; }

bool SimpleStorage::contains(std::string const& key) const { return m_values.count(key) == 1; }
void SimpleStorage::remove(std::string const& key) { m_values.erase(key); }

bool SimpleStorage::getBool(std::string const& key, bool defaultValue) const { return get(key, defaultValue); }
int SimpleStorage::getInt(std::string const& key, int defaultValue) const { return get(key, defaultValue); }
std::string SimpleStorage::getString(std::string const& key, std::string const& defaultValue) const { return get(key, defaultValue); }
std::vector<unsigned char> SimpleStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    return get(key, defaultValue);
}

} // namespace Bench
