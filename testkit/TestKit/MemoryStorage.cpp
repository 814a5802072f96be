// SPDX-License-Identifier: MIT
#include <TestKit/MemoryStorage.h>

#include <utility>

namespace TestKit {

using Lock = std::lock_guard<std::mutex>;

void MemoryStorage::set(std::string const& key, Value value)
{
    Lock const lock(m_mutex);
    m_values.insert_or_assign(key, std::move(value));
}

template <typename T>
T MemoryStorage::get(std::string const& key, T const& defaultValue) const
{
    Lock const lock(m_mutex);
    auto const found = m_values.find(key);
    T const* const value = found == m_values.end() ? nullptr : std::get_if<T>(&found->second);
    return value ? *value : defaultValue;
}

void MemoryStorage::setBool(std::string const& key, bool value) { set(key, value); }
void MemoryStorage::setInt(std::string const& key, int value) { set(key, value); }
void MemoryStorage::setString(std::string const& key, std::string const& value) { set(key, value); }
void MemoryStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value) { set(key, value); }

bool MemoryStorage::contains(std::string const& key) const
{
    Lock const lock(m_mutex);
    return m_values.count(key) == 1;
}

void MemoryStorage::remove(std::string const& key)
{
    Lock const lock(m_mutex);
    m_values.erase(key);
}

bool MemoryStorage::getBool(std::string const& key, bool defaultValue) const { return get(key, defaultValue); }
int MemoryStorage::getInt(std::string const& key, int defaultValue) const { return get(key, defaultValue); }
std::string MemoryStorage::getString(std::string const& key, std::string const& defaultValue) const { return get(key, defaultValue); }
std::vector<unsigned char> MemoryStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    return get(key, defaultValue);
}

std::map<std::string, MemoryStorage::Value> MemoryStorage::values() const
{
    Lock const lock(m_mutex);
    return m_values;
}

} // namespace TestKit
