// SPDX-License-Identifier: MIT
#pragma once

#include <Settings/IProductInfo.h>
#include <Settings/ISettingsStorage.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace TestKit {

/// The calls that collaborators received, in order, as text such as `product.getInt("npsSendCount", 0)`. Several
/// collaborators may share one log, which then tells the order among them. Any thread may call.
class CallLog {
public:
    /// Adds a call, as text.
    void add(std::string call);
    /// What was called since the last `take` or `clear`, which it forgets.
    std::vector<std::string> take();
    /// Forgets what was called so far.
    void clear() { take(); }

private:
    std::mutex m_mutex;
    std::vector<std::string> m_calls;
};

/// Logs each call with its arguments, then hands it to another store. Texts are logged with C escapes, bytes as
/// `[00 ff]`. A call is logged before it is handed on, so that one which throws is logged too.
class RecordingStorage final : public ISettingsStorage {
public:
    /// `name` stands before each call in `log`. Without `inner` the calls go to a `MemoryStorage` of its own.
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
    std::string m_name;
    std::shared_ptr<CallLog> m_log;
    std::shared_ptr<ISettingsStorage> m_inner;
};

/// Logs each call, such as `productInfo.vendorName()`, then hands it to another product-information object.
class RecordingProductInfo final : public IProductInfo {
public:
    /// Each call goes into `log`, then to `inner`.
    RecordingProductInfo(std::shared_ptr<CallLog> log, std::shared_ptr<IProductInfo const> inner);

    std::string vendorName() const override;
    std::string productName() const override;
    std::string sharedDataFolderName() const override;
    int productKind() const override;
    std::string projectFileExtensions() const override;

private:
    std::shared_ptr<CallLog> m_log;
    std::shared_ptr<IProductInfo const> m_inner;
};

} // namespace TestKit
