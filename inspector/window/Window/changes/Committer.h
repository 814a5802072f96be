// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Desk.h>
#include <Inspector/History.h>

#include <QObject>

#include <functional>
#include <map>

namespace Inspector {

/// What this window stores, takes back and does again, a step at a time. It tells what was not stored, and why.
class Committer : public QObject {
    Q_OBJECT

public:
    using Way = History::Way;

    Committer(Desk& desk, QObject* parent);

    /// Stores it as a new step. The answer goes to `whoAsked`, or to `refused` where nobody is named. `again` is how whoever asked
    /// tries once more; without it the same is sent. Returns the number for `Desk::cancel`.
    int commit(Commit const& commit, std::function<void(Answer const&)> const& whoAsked = {}, std::function<void()> const& again = {});
    /// Gives the answer of that number, to a request that is no commit, to `whoAsked`.
    void expect(int number, std::function<void(Answer const&)> const& whoAsked) { m_sent[number] = {{}, whoAsked}; }
    /// Goes one step back, or forth again, where there is one.
    void step(Way way);
    /// The keys of that step, for a menu: "exportPath and 2 more"; empty where there is none.
    QString nextStep(Way way) const;
    /// Whether an answer is waited for.
    bool isWaiting() const { return !m_sent.empty(); }

Q_SIGNALS:
    /// `nextStep` and `isWaiting` have other answers.
    void stepsChanged();
    /// Not all was stored; `text` tells why.
    void refused(QString const& text);
    /// Nothing was stored, as no backup could be made; `text` tells why. `again` tries the same once more.
    void lacksBackup(QString const& text, std::function<void()> const& again);
    /// These backups were made before the first change.
    void madeBackups(std::vector<std::filesystem::path> const& files);

private:
    struct Sent {
        Commit commit;
        std::function<void(Answer const&)> whoAsked;
        Way way = Way::edit;
        std::function<void()> again{};
    };

    int send(Sent const& sent);
    void take(Answer const& answer);
    std::function<void()> nextTry(Sent const& sent);

    Desk& m_desk;
    History m_history;
    std::map<int, Sent> m_sent;
};

} // namespace Inspector
