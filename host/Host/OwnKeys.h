// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

#include <boost/rational.hpp>

#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace Host {

/// A setting of the host's own, which it reads and writes with the library's `read` and `write`, declared for whoever looks at all
/// settings. The command line takes the declarations from its product file. Any thread may read.
struct OwnKey {
    /// A fraction, as the library takes it.
    using Rational = boost::rational<long long>;
    /// A value in the type of the overloads. A text is a `std::string` here, whichever type the host reads it with.
    using Value = std::variant<bool, int, std::string, QByteArray, QStringList, Rational>;
    /// Where the value may go when settings leave the machine.
    enum class Class {
        roaming,   ///< The user's taste, valid on any machine.
        local,     ///< Fits this machine only.
        personal,  ///< Discloses who the user is or what the user works on.
        transient, ///< Last used or counted: the host makes it again by itself.
    };

    std::string key;                            ///< In UTF-8, without NUL. With `isPrefix`, what the keys begin with.
    Value defaultValue = false;                 ///< What the host passes to `read`. Its type is the type of the setting. Empty for bytes.
    Class dataClass = Class::local;             ///< Of each key.
    std::string purpose{};                      ///< A few words on one line.
    bool isPrefix = false;                      ///< Declares all keys that begin with `key`.
    bool isCommon = false;                      ///< In `commonStorage` rather than in `productStorage`.
    bool isFolder = false;                      ///< A text that is the absolute path of a folder that the host writes to.
    std::vector<std::string> accepts{};         ///< The only texts, or elements of a list, that the host can use; empty for any.
    std::optional<std::pair<int, int>> range{}; ///< The least and the greatest int that the host can use.
    std::string where{};                        ///< Who declares it, to begin an error with; empty for the host's code.
};

/// Declarations that cannot be used. The text says which one, why, and what to do, on one line of UTF-8.
class OwnKeyError : public std::invalid_argument {
public:
    /// `fault` continues the sentence that the declaration begins, as in "which is the library's; choose another name".
    OwnKeyError(OwnKey const& declaration, std::string const& fault);
};

/// Checked declarations. A key that is declared itself is that setting, whatever prefixes it begins with; of several prefixes
/// the longest counts. A rational takes two keys of the store, the declared one with "_N" and with "_D" behind it, which
/// no other declaration may name.
class OwnKeys {
public:
    /// What a key of the store holds of a setting.
    enum class Part {
        whole,       ///< All of it.
        numerator,   ///< Of a rational.
        denominator, ///< Of a rational.
    };

    /// A key and the declaration that covers it.
    struct Match {
        OwnKey const* declaration; ///< Lives as long as the `OwnKeys`.
        std::string key;           ///< The key of the setting, without the end of a rational's half.
        Part part;                 ///< What the key holds.
    };

    /// None.
    OwnKeys() = default;
    /// Throws `OwnKeyError` for a key that is empty or holds a NUL, a key that stands twice or is half of a declared rational, a
    /// purpose that is not one line, a default that `accepts` or `range` refuses or that a store cannot hold, and for more
    /// than 1000 declarations.
    explicit OwnKeys(std::vector<OwnKey> declarations);

    /// The declarations, in their order.
    std::vector<OwnKey> const& all() const { return m_all; }
    /// The setting that `key`, of the host or of a store, belongs to; nullopt for one that no declaration covers.
    std::optional<Match> find(std::string const& key) const;

private:
    void checkNames() const;

    std::vector<OwnKey> m_all;
};

/// The rational in "N/D" or "N", whole numbers of 64 bits; nullopt for any other text and for the denominator 0.
std::optional<OwnKey::Rational> rationalIn(std::string const& text);
/// Whether a store can hold `value`: it keeps 32 bits of the numerator and of the denominator.
bool isStorable(OwnKey::Rational const& value);

} // namespace Host
