// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/LayeredStorage.h>
#include <Storage/StorageError.h>
#include <Studio/SessionCore.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Studio {

/// One store of a session, as `Session` says. Outlives it. Any thread may call.
class SessionStore final : public Storage::LayeredStorage {
public:
    /// The store `name` of the session behind `core`, with `local` for the keys that do not roam. Neither pointer is null.
    SessionStore(std::shared_ptr<SessionCore> core, std::string name, std::shared_ptr<ISettingsStorage> local);

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

    std::vector<LayeredRow> layersOf(std::string const& key) const override;
    std::vector<std::string> sharedKeys() const override;

private:
    void demandUnlocked(std::string const& key) const;
    void change(std::string const& key, std::optional<Value> const& value);
    template <typename Look>
    auto shared(std::string const& key, Look const& look) const;
    template <typename T, typename Read>
    T get(std::string const& key, T const& defaultValue, Read const& readLocal) const;

    std::shared_ptr<SessionCore> m_core;
    std::string m_name;
    std::shared_ptr<ISettingsStorage> m_local;
    Snapshot::Shown const& m_shown;
};

/// `error`, of an attempt such as "change a setting", as the error of a store.
Storage::StorageError storageError(ServerError const& error, std::string const& attempt);

} // namespace Studio
