// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A change as the server stored it. Of all changes in a history no two set the same value: users set positive ones, the studio
/// negative ones.
struct Stored {
    int layer = 0;            ///< The layer's number: another one after its user was forgotten.
    std::string owner;        ///< The user of the layer; empty for the studio.
    long long revision = 0;   ///< 0 where the key went with its forgotten user.
    std::string key;          ///<
    std::optional<int> value; ///< nullopt where the key was removed.
    bool locked = false;      ///<
    std::string client;       ///< The program that changed it.
};

/// What a program did or saw.
struct Step {
    enum class Kind {
        began,        ///< It connected, when the server had stored what `known` says.
        changed,      ///< A change returned.
        doubted,      ///< A change failed, and may have been stored all the same.
        refused,      ///< A change was refused, as the key is locked.
        read,         ///< It saw `value`, `locked` or not.
        synchronised, ///< As `began`.
    };

    /// How many changes of the user and of the studio the server had stored.
    struct Known {
        std::size_t user = 0;
        std::size_t studio = 0;
    };

    Kind kind = Kind::read;
    std::string key = {};
    std::optional<int> value = {};
    bool locked = false;
    Known known = {};
    /// Whether the program has heard nothing of the server since it last began or synchronised, but the answers to its changes.
    bool deaf = false;
};

/// What the server kept as the loser of a conflict: a value, or a removal that lost when it came.
struct Kept {
    std::string key;          ///<
    std::optional<int> value; ///< nullopt for a removal.
};

/// What the server stored in a history, in its order, and what it kept.
struct Record {
    std::vector<Stored> stored;
    std::vector<Kept> kept;
};

/// Compares what programs did and saw with what the server stored. A flaw is a sentence; no flaws are no sentences.
class Judge {
public:
    explicit Judge(Record record);

    /// Revisions without holes, no change done twice, and only losers kept as such.
    std::vector<std::string> flawsOfServer() const;
    /// Changes that returned are there, in their order, or kept as losers; reads show them and never go back; a value that the
    /// program overwrote without having seen it is kept.
    std::vector<std::string> flawsOf(std::string const& user, std::vector<Step> const& steps) const;

private:
    struct Entry {
        std::optional<int> value;
        bool locked = false;
    };
    struct Program;
    using Layer = std::vector<Stored>;

    Layer const& layer(std::string const& owner) const;
    bool isKept(std::string const& key, std::optional<int> value) const;
    static std::optional<std::size_t> find(Layer const& layer, std::string const& key, std::size_t from,
                                           std::function<bool(Entry const&)> const& accepts);
    static std::optional<std::size_t> positionOf(Layer const& layer, Step const& change, std::size_t from);
    std::string judge(Program& program, Step const& step) const;
    std::string judgeChange(Program& program, Step const& step) const;
    std::string judgeRead(Program& program, Step const& step) const;
    std::string judgeRefusal(Program& program, Step const& step) const;
    bool isLoserKept(Program const& program, Step const& step, std::size_t position) const;

    Record m_record;
    std::map<std::string, Layer> m_layers;
};
