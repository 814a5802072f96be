// SPDX-License-Identifier: MIT
#include <TestKit/MemoryStorage.h>
#include <TestKit/Recording.h>

#include <cstdio>
#include <utility>

namespace TestKit {

namespace {

template <typename... Arguments>
std::string formatted(char const* format, Arguments... values)
{
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, format, values...);
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

template <typename T>
std::string arguments(std::string const& key, T const& value)
{
    return text(key) + ", " + text(value);
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
    : ForwardingStorage(inner ? std::move(inner) : std::make_shared<MemoryStorage>()), m_name(std::move(name)), m_log(std::move(log))
{}

void RecordingStorage::log(char const* operation, std::string const& arguments) const
{
    m_log->add(m_name + '.' + operation + '(' + arguments + ')');
}

void RecordingStorage::setBool(std::string const& key, bool value)
{
    log("setBool", arguments(key, value));
    ForwardingStorage::setBool(key, value);
}

void RecordingStorage::setInt(std::string const& key, int value)
{
    log("setInt", arguments(key, value));
    ForwardingStorage::setInt(key, value);
}

void RecordingStorage::setString(std::string const& key, std::string const& value)
{
    log("setString", arguments(key, value));
    ForwardingStorage::setString(key, value);
}

void RecordingStorage::setBytes(std::string const& key, std::vector<unsigned char> const& value)
{
    log("setBytes", arguments(key, value));
    ForwardingStorage::setBytes(key, value);
}

bool RecordingStorage::contains(std::string const& key) const
{
    log("contains", text(key));
    return ForwardingStorage::contains(key);
}

void RecordingStorage::remove(std::string const& key)
{
    log("remove", text(key));
    ForwardingStorage::remove(key);
}

bool RecordingStorage::getBool(std::string const& key, bool defaultValue) const
{
    log("getBool", arguments(key, defaultValue));
    return ForwardingStorage::getBool(key, defaultValue);
}

int RecordingStorage::getInt(std::string const& key, int defaultValue) const
{
    log("getInt", arguments(key, defaultValue));
    return ForwardingStorage::getInt(key, defaultValue);
}

std::string RecordingStorage::getString(std::string const& key, std::string const& defaultValue) const
{
    log("getString", arguments(key, defaultValue));
    return ForwardingStorage::getString(key, defaultValue);
}

std::vector<unsigned char> RecordingStorage::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    log("getBytes", arguments(key, defaultValue));
    return ForwardingStorage::getBytes(key, defaultValue);
}

RecordingProductInfo::RecordingProductInfo(std::shared_ptr<CallLog> log, std::shared_ptr<IProductInfo const> inner)
    : RecordingProductInfo([log = std::move(log)](std::string const& operation) { log->add("productInfo." + operation + "()"); },
                           std::move(inner))
{}

RecordingProductInfo::RecordingProductInfo(Record record, std::shared_ptr<IProductInfo const> inner)
    : m_record(std::move(record)), m_inner(std::move(inner))
{}

std::string RecordingProductInfo::vendorName() const
{
    m_record("vendorName");
    return m_inner->vendorName();
}

std::string RecordingProductInfo::productName() const
{
    m_record("productName");
    return m_inner->productName();
}

std::string RecordingProductInfo::sharedDataFolderName() const
{
    m_record("sharedDataFolderName");
    return m_inner->sharedDataFolderName();
}

int RecordingProductInfo::productKind() const
{
    m_record("productKind");
    return m_inner->productKind();
}

std::string RecordingProductInfo::projectFileExtensions() const
{
    m_record("projectFileExtensions");
    return m_inner->projectFileExtensions();
}

} // namespace TestKit
