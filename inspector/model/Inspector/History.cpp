// SPDX-License-Identifier: MIT
#include <Inspector/History.h>

#include <algorithm>

using Inspection::Difference;

namespace Inspector {

namespace {

void drop(Step& step, Catalogue::Store store, std::string const& key)
{
    auto const isIt = [&](Difference const& each) { return each.store == store && each.row.key == key; };
    step.erase(std::remove_if(step.begin(), step.end(), isIt), step.end());
}

Difference const* find(Step const& step, Difference const& wanted)
{
    auto const isIt = [&](Difference const& each) { return each.store == wanted.store && each.row.key == wanted.row.key; };
    auto const found = std::find_if(step.begin(), step.end(), isIt);
    return found == step.end() ? nullptr : &*found;
}

} // namespace

std::optional<Step> History::next(Way way) const
{
    std::vector<Step> const& steps = way == Way::undo ? m_done : m_undone;
    bool const isWaiting = std::any_of(m_sent.begin(), m_sent.end(), [](auto const& sent) { return sent.second != Way::edit; });
    return steps.empty() || isWaiting ? std::nullopt : std::optional(steps.back());
}

void History::answered(Answer const& answer)
{
    auto const sent = m_sent.extract(answer.number);
    if (sent.empty())
        return;
    if (sent.mapped() == Way::undo)
        return stepped(m_done, m_undone, answer);
    if (sent.mapped() == Way::redo)
        return stepped(m_undone, m_done, answer);
    if (answer.made.empty())
        return;
    m_done.push_back(answer.made);
    m_undone.clear();
}

// What has come back was changed just now, so the steps before are to expect that row in place of the earlier one.
void History::renew(Difference const& reversed)
{
    for (std::vector<Step>* const steps : {&m_done, &m_undone})
        for (Step& step : *steps)
            for (Difference& each : step)
                if (each.store == reversed.store && each.row.key == reversed.row.key && each.row.after == reversed.row.before)
                    each.row.after = reversed.row.after;
}

void History::stepped(std::vector<Step>& from, std::vector<Step>& to, Answer const& answer)
{
    if (from.empty())
        return;
    Step const step = from.back();
    for (Difference const& made : answer.made) {
        if (Difference const* const reversed = find(step, made))
            renew({made.store, {made.row.key, reversed->row.before, made.row.after}});
        drop(from.back(), made.store, made.row.key);
    }
    if (answer.outcome == Outcome::conflict)
        drop(from.back(), answer.store.value_or(Catalogue::Store::product), answer.key);
    if (from.back().empty())
        from.pop_back();
    if (!answer.made.empty())
        to.push_back(answer.made);
}

} // namespace Inspector
