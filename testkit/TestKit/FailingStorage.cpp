// SPDX-License-Identifier: MIT
#include <TestKit/FailingStorage.h>
#include <TestKit/MemoryStorage.h>

#include <utility>

namespace TestKit {

FailingStorage::FailingStorage(int failingCall, std::shared_ptr<ISettingsStorage> inner)
    : m_failingCall(failingCall), m_inner(inner ? std::move(inner) : std::make_shared<MemoryStorage>())
{}

ISettingsStorage& FailingStorage::counted() const
{
    int const call = ++m_calls;
    if (call == m_failingCall)
        throw StorageFailure("the store fails at call " + std::to_string(call));
    return *m_inner;
}

void FailingStorage::setBool(std::string const& key, bool value) { counted().setBool(key, value); }
void FailingStorage::setInt(std::string const& key, int value) { counted().setInt(key, value); }
void FailingStorage::setString(std::string const& key, std::string const& value) { counted().setString(key, value); }
void FailingStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value) { counted().setBytes(key, value); }
bool FailingStorage::contains(std::string const& key) const { return counted().contains(key); }
void FailingStorage::remove(std::string const& key) { counted().remove(key); }
bool FailingStorage::getBool(std::string const& key, bool defaultValue) const { return counted().getBool(key, defaultValue); }
int FailingStorage::getInt(std::string const& key, int defaultValue) const { return counted().getInt(key, defaultValue); }
std::string FailingStorage::getString(std::string const& key, std::string const& defaultValue) const
{
    return counted().getString(key, defaultValue);
}
std::vector<unsigned char> FailingStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    return counted().getBytes(key, defaultValue);
}

} // namespace TestKit
