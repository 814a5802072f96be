// SPDX-License-Identifier: MIT
#include <TestKit/MemoryStorage.h>
#include <TestKit/Recording.h>

#include <cstdio>
#include <utility>

namespace TestKit {

namespace {

template <typename... Arguments>
std::string formatted(char const* format, Arguments... arguments)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, format, arguments...);
    return buffer;
}

std::string text(bool value) { return value ? "true" : "false"; }

std::string text(int value) { return std::to_string(value); }

std::string text(std::string const& value)
{
    std::string result = "\"";
    for (char const character : value) {
        auto const code = static_cast<unsigned char>(character);
        if (character == '"' || character == '\\')
            result += '\\';
        if (code < 0x20)
            result += formatted("\\x%02x", code);
        else
            result += character;
    }
    return result + '"';
}

std::string text(std::vector<unsigned char> const& value)
{
    std::string result = "[";
    for (unsigned char const byte : value)
        result += formatted(result.size() > 1 ? " %02x" : "%02x", byte);
    return result + ']';
}

} // namespace

void CallLog::add(std::string call)
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    m_calls.push_back(std::move(call));
}

std::vector<std::string> CallLog::take()
{
    std::lock_guard<std::mutex> const lock(m_mutex);
    return std::exchange(m_calls, {});
}

RecordingStorage::RecordingStorage(std::string name, std::shared_ptr<CallLog> log, std::shared_ptr<ISettingsStorage> inner)
    : m_name(std::move(name)), m_log(std::move(log)), m_inner(inner ? std::move(inner) : std::make_shared<MemoryStorage>())
{}

void RecordingStorage::setBool(std::string const& key, bool value)
{
    m_log->add(m_name + ".setBool(" + text(key) + ", " + text(value) + ')');
    m_inner->setBool(key, value);
}

void RecordingStorage::setInt(std::string const& key, int value)
{
    m_log->add(m_name + ".setInt(" + text(key) + ", " + text(value) + ')');
    m_inner->setInt(key, value);
}

void RecordingStorage::setString(std::string const& key, std::string const& value)
{
    m_log->add(m_name + ".setString(" + text(key) + ", " + text(value) + ')');
    m_inner->setString(key, value);
}

void RecordingStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value)
{
    m_log->add(m_name + ".setBytes(" + text(key) + ", " + text(value) + ')');
    m_inner->setBytes(key, value);
}

bool RecordingStorage::contains(std::string const& key) const
{
    m_log->add(m_name + ".contains(" + text(key) + ')');
    return m_inner->contains(key);
}

void RecordingStorage::remove(std::string const& key)
{
    m_log->add(m_name + ".remove(" + text(key) + ')');
    m_inner->remove(key);
}

bool RecordingStorage::getBool(std::string const& key, bool defaultValue) const
{
    m_log->add(m_name + ".getBool(" + text(key) + ", " + text(defaultValue) + ')');
    return m_inner->getBool(key, defaultValue);
}

int RecordingStorage::getInt(std::string const& key, int defaultValue) const
{
    m_log->add(m_name + ".getInt(" + text(key) + ", " + text(defaultValue) + ')');
    return m_inner->getInt(key, defaultValue);
}

std::string RecordingStorage::getString(std::string const& key, std::string const& defaultValue) const
{
    m_log->add(m_name + ".getString(" + text(key) + ", " + text(defaultValue) + ')');
    return m_inner->getString(key, defaultValue);
}

std::vector<unsigned char> RecordingStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    m_log->add(m_name + ".getBytes(" + text(key) + ", " + text(defaultValue) + ')');
    return m_inner->getBytes(key, defaultValue);
}

RecordingProductInfo::RecordingProductInfo(std::shared_ptr<CallLog> log, std::shared_ptr<IProductInfo const> inner)
    : m_log(std::move(log)), m_inner(std::move(inner))
{}

std::string RecordingProductInfo::vendorName() const
{
    m_log->add("productInfo.vendorName()");
    return m_inner->vendorName();
}

std::string RecordingProductInfo::productName() const
{
    m_log->add("productInfo.productName()");
    return m_inner->productName();
}

std::string RecordingProductInfo::sharedDataFolderName() const
{
    m_log->add("productInfo.sharedDataFolderName()");
    return m_inner->sharedDataFolderName();
}

int RecordingProductInfo::productKind() const
{
    m_log->add("productInfo.productKind()");
    return m_inner->productKind();
}

std::string RecordingProductInfo::projectFileExtensions() const
{
    m_log->add("productInfo.projectFileExtensions()");
    return m_inner->projectFileExtensions();
}

} // namespace TestKit
