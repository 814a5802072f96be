// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

/// A key-value store that a host binds to the settings library. The host implements and owns it; the library holds a
/// weak reference and locks it for one call at a time, so a store that its owner drops lives until a running call ends.
///
/// Keys: UTF-8, case-sensitive, without hierarchy. The library's own are ASCII, but for the ends that callers give.
/// Kinds: a key holds one value of one kind: boolean, 32-bit integer, string or bytes. Setting it replaces value and kind.
/// Threads: the library calls from whichever thread called the library; it neither orders nor serialises the calls.
/// Writes: for the library a write is complete when the call returns. It never flushes.
/// Errors: whatever is thrown reaches the caller of the library function unchanged. A call that throws leaves
/// the stored value as it was, as far as the store can tell.
class ISettingsStorage {
public:
    virtual ~ISettingsStorage() = default;

    /// Keeps a boolean under `key`.
    virtual void setBool(std::string const& key, bool value) = 0;
    /// Keeps an integer under `key`.
    virtual void setInt(std::string const& key, int value) = 0;
    /// `value` is UTF-8 by convention; it is kept whole and unchanged, embedded NULs and invalid sequences included.
    virtual void setString(std::string const& key, std::string const& value) = 0;
    /// Keeps `value` whole, of any length and content.
    virtual void setBytes(std::string const& key, std::vector<unsigned char> const& value) = 0;

    /// Whether `key` holds a value of any kind. The library does not ask; hosts and tools do.
    virtual bool contains(std::string const& key) const = 0;
    /// Forgets `key`; an absent one is no error. The library does not remove; hosts and tools do.
    virtual void remove(std::string const& key) = 0;

    /// The stored value, or `defaultValue` where the key is absent. A key that holds another kind should give
    /// `defaultValue` too and keep what it holds; the stores and the contract tests of this project do so.
    virtual bool getBool(std::string const& key, bool defaultValue) const = 0;
    /// As `getBool`.
    virtual int getInt(std::string const& key, int defaultValue) const = 0;
    /// As `getBool`.
    virtual std::string getString(std::string const& key, std::string const& defaultValue) const = 0;
    /// As `getBool`.
    virtual std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const = 0;
};
