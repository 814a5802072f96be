// SPDX-License-Identifier: MIT
#include "Judge.h"

#include <algorithm>
#include <set>

// What a program has seen at least, as numbers of changes of each layer. Its own changes it sees from the moment of each on.
struct Judge::Program {
    Layer const* user;
    Step::Known seen;
    Step::Known heard; // when it last began or synchronised
    std::map<std::string, std::size_t> own;
    std::size_t lastOwn = 0;

    std::size_t seenOf(std::string const& key) const
    {
        auto const found = own.find(key);
        return found == own.end() ? seen.user : std::max(seen.user, found->second);
    }
};

Judge::Judge(Record record) : m_record(std::move(record))
{
    for (Stored const& stored : m_record.stored)
        m_layers[stored.owner].push_back(stored);
}

Judge::Layer const& Judge::layer(std::string const& owner) const
{
    static Layer const none;
    auto const found = m_layers.find(owner);
    return found == m_layers.end() ? none : found->second;
}

bool Judge::isKept(std::string const& key, std::optional<int> value) const
{
    auto const isIt = [&](Kept const& kept) { return kept.key == key && kept.value == value; };
    return std::any_of(m_record.kept.begin(), m_record.kept.end(), isIt);
}

std::vector<std::string> Judge::flawsOfServer() const
{
    std::vector<std::string> flaws;
    std::map<int, long long> revisions;
    std::set<int> values;
    for (Stored const& stored : m_record.stored) {
        if (stored.revision != 0 && stored.revision != ++revisions[stored.layer])
            flaws.push_back("revision " + std::to_string(stored.revision) + " is not the next of its layer");
        // The studio's lock changes a row, but not its value.
        if (stored.value && !stored.client.empty() && !values.insert(*stored.value).second)
            flaws.push_back(std::to_string(*stored.value) + " was stored twice");
    }
    std::set<int> kept;
    for (Kept const& loser : m_record.kept)
        if (loser.value && !kept.insert(*loser.value).second)
            flaws.push_back(std::to_string(*loser.value) + " was kept twice");
    return flaws;
}

std::vector<std::string> Judge::flawsOf(std::string const& user, std::vector<Step> const& steps) const
{
    std::vector<std::string> flaws;
    Program program{&layer(user), {}, {}, {}};
    for (std::size_t number = 0; number < steps.size(); ++number) {
        std::string const flaw = judge(program, steps[number]);
        if (!flaw.empty())
            flaws.push_back("step " + std::to_string(number) + " of " + user + ", " + steps[number].key + " " +
                            std::to_string(steps[number].value.value_or(0)) + ": " + flaw);
    }
    return flaws;
}

std::string Judge::judge(Program& program, Step const& step) const
{
    switch (step.kind) {
    case Step::Kind::began:
        program = {program.user, step.known, step.known, {}};
        return {};
    case Step::Kind::synchronised:
        program.seen = {std::max(program.seen.user, step.known.user), std::max(program.seen.studio, step.known.studio)};
        program.heard = step.known;
        return {};
    case Step::Kind::changed:
        return judgeChange(program, step);
    case Step::Kind::read:
        return judgeRead(program, step);
    case Step::Kind::refused:
        return judgeRefusal(program, step);
    case Step::Kind::doubted:
        break;
    }
    return {};
}

// How many changes a layer has at the first moment from `from` on at which the key is as `accepts` wants it.
std::optional<std::size_t> Judge::find(Layer const& layer, std::string const& key, std::size_t from,
                                       std::function<bool(Entry const&)> const& accepts)
{
    Entry entry;
    for (std::size_t count = 0; count <= layer.size(); ++count) {
        if (count > 0 && layer[count - 1].key == key)
            entry = {layer[count - 1].value, layer[count - 1].locked};
        if (count >= from && accepts(entry))
            return count;
    }
    return std::nullopt;
}

// How many changes the layer had with this one, which is one after `from` where it is a removal.
std::optional<std::size_t> Judge::positionOf(Layer const& layer, Step const& change, std::size_t from)
{
    for (std::size_t at = change.value ? 0 : from; at < layer.size(); ++at)
        if (layer[at].key == change.key && layer[at].value == change.value)
            return at + 1;
    return std::nullopt;
}

std::string Judge::judgeChange(Program& program, Step const& step) const
{
    bool const isLoser = isKept(step.key, step.value);
    // Of several removals of a key nobody knows which one lost, so each may have.
    std::optional<std::size_t> const position =
        isLoser && !step.value ? std::nullopt : positionOf(*program.user, step, program.seenOf(step.key));
    if (!position) {
        program.heard.user = program.user->size(); // the loser is told what won, and all else
        return isLoser ? "" : "the change is lost";
    }
    if (*position <= program.lastOwn && step.value)
        return "a later change of the program was stored before this one";
    program.lastOwn = std::max(program.lastOwn, *position);
    program.own[step.key] = *position;
    return isLoserKept(program, step, *position) ? "" : "the value that it overwrote unseen is not kept";
}

// Only where it is certain that the program had not seen the value before.
bool Judge::isLoserKept(Program const& program, Step const& step, std::size_t position) const
{
    Stored const& winner = (*program.user)[position - 1];
    std::size_t at = position - 1;
    while (at > 0 && (*program.user)[at - 1].key != step.key)
        --at;
    if (!step.deaf || !step.value || at <= program.heard.user)
        return true;
    Stored const& loser = (*program.user)[at - 1];
    return !loser.value || loser.client == winner.client || isKept(loser.key, loser.value);
}

std::string Judge::judgeRead(Program& program, Step const& step) const
{
    bool const isStudios = step.value.value_or(1) < 0;
    bool const isUsers = step.value && !isStudios;
    auto const studio = find(layer(""), step.key, program.seen.studio,
                             [&](Entry const& entry) { return entry.locked == step.locked && (isUsers || entry.value == step.value); });
    if (!studio)
        return "the studio's part of a read goes back, or was never there";
    program.seen.studio = *studio;
    if (step.locked)
        return {};
    std::size_t const from = program.seenOf(step.key);
    auto const user =
        find(*program.user, step.key, from, [&](Entry const& entry) { return entry.value == (isUsers ? step.value : std::nullopt); });
    if (!user)
        return "the user's part of a read goes back, or was never there";
    if (*user > from)
        program.seen.user = *user;
    return {};
}

std::string Judge::judgeRefusal(Program& program, Step const& step) const
{
    auto const locked = find(layer(""), step.key, program.seen.studio, [](Entry const& entry) { return entry.locked; });
    return locked ? "" : "a change was refused, but the key is not locked";
}
