// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>

#include <map>
#include <optional>
#include <vector>

namespace Inspector {

/// What this window has stored, so that it can be undone and done again, a commit at a time. A row that somebody else has changed since
/// is left as it is. The changes of others are in the snapshot's journal and are no steps.
///
///     if (std::optional<Step> const step = history.next(History::Way::undo))
///         history.sent(desk.commit(*step), History::Way::undo);
///
/// and `answered` for every answer. One thread.
class History {
public:
    /// What a commit is for.
    enum class Way { edit, undo, redo };

    /// What to commit in order to go one step that way, `undo` or `redo`; nullopt where there is none, and until the answer to the
    /// last such commit.
    std::optional<Step> next(Way way) const;
    /// The commit of that number was asked for.
    void sent(int number, Way way) { m_sent[number] = way; }
    /// Takes the answer. Of a step that met a conflict, the row in question is forgotten and the others wait for the next try. One
    /// that failed stays whole.
    void answered(Answer const& answer);

private:
    void stepped(std::vector<Step>& from, std::vector<Step>& to, Answer const& answer);
    void renew(Inspection::Difference const& reversed);

    std::vector<Step> m_done;
    std::vector<Step> m_undone;
    std::map<int, Way> m_sent;
};

} // namespace Inspector
