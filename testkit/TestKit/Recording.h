// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/IProductInfo.h>
#include <Storage/ForwardingStorage.h>

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace TestKit {

/// The calls that collaborators received, in order, as text such as `product.getInt("npsSendCount", 0)`. Collaborators
/// that share a log show the order among them. Any thread may call.
class CallLog {
public:
    /// Adds a call, as text.
    void add(std::string call);
    /// Returns the calls since the last `take` or `clear`, and forgets them.
    std::vector<std::string> take();
    /// Forgets the calls so far.
    void clear() { take(); }

private:
    std::mutex m_mutex;
    std::vector<std::string> m_calls;
};

/// Logs each call with its arguments, then forwards it; a call that throws is logged too. Texts are logged with C
/// escapes, bytes as `[00 ff]`.
class RecordingStorage final : public Storage::ForwardingStorage {
public:
    /// `name` stands before each call in `log`. Without `inner` the calls go to a new `MemoryStorage`.
    RecordingStorage(std::string name, std::shared_ptr<CallLog> log, std::shared_ptr<ISettingsStorage> inner = nullptr);

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
    void log(char const* operation, std::string const& arguments) const;

    std::string m_name;
    std::shared_ptr<CallLog> m_log;
};

/// Records each call, then forwards it to another product-information object.
class RecordingProductInfo final : public IProductInfo {
public:
    /// Takes the name of an operation, such as "vendorName".
    using Record = std::function<void(std::string const& operation)>;

    /// Logs each call in `log`, such as `productInfo.vendorName()`.
    RecordingProductInfo(std::shared_ptr<CallLog> log, std::shared_ptr<IProductInfo const> inner);
    /// Passes each operation to `record`.
    RecordingProductInfo(Record record, std::shared_ptr<IProductInfo const> inner);

    std::string vendorName() const override;
    std::string productName() const override;
    std::string sharedDataFolderName() const override;
    int productKind() const override;
    std::string projectFileExtensions() const override;

private:
    Record m_record;
    std::shared_ptr<IProductInfo const> m_inner;
};

} // namespace TestKit
