// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// A key-value store that a host binds to the settings library. The host implements and owns it; the library holds a
/// weak reference and locks it for one call at a time, so a store that its owner drops lives until a running call ends.
///
/// Keys: UTF-8, case-sensitive, without hierarchy. The library's own are ASCII, except for names that callers add.
/// Kinds: a key holds one value of one kind: boolean, 32-bit integer, string or bytes. Setting it replaces value and kind.
/// Threads: the library calls on the thread that called the library; it neither orders nor serialises the calls.
/// Writes: for the library a write is complete when the call returns. It never flushes.
/// Errors: an exception reaches the caller of the library function unchanged. A call that throws should leave the stored
/// value unchanged.
class ISettingsStorage {
public:
    virtual ~ISettingsStorage() = default;

    /// Stores a boolean under `key`.
    virtual void setBool(std::string const& key, bool value) = 0;
    /// Stores an integer under `key`.
    virtual void setInt(std::string const& key, int value) = 0;
    /// Stores `value`, UTF-8 by convention, unchanged, including embedded NULs and invalid sequences.
    virtual void setString(std::string const& key, std::string const& value) = 0;
    /// Stores `value`, of any length and content, unchanged.
    virtual void setBytes(std::string const& key, std::vector<unsigned char> const& value) = 0;

    /// Whether `key` holds a value of any kind. For hosts and tools; the library never calls it.
    virtual bool contains(std::string const& key) const = 0;
    /// Removes `key`; an absent one is no error. For hosts and tools; the library never calls it.
    virtual void remove(std::string const& key) = 0;

    /// The stored value, or `defaultValue` if the key is absent. For a key that holds another kind, a store should return
    /// `defaultValue`, too, and leave the value unchanged.
    virtual bool getBool(std::string const& key, bool defaultValue) const = 0;
    /// As `getBool`.
    virtual int getInt(std::string const& key, int defaultValue) const = 0;
    /// As `getBool`.
    virtual std::string getString(std::string const& key, std::string const& defaultValue) const = 0;
    /// As `getBool`.
    virtual std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const = 0;
};
