// SPDX-License-Identifier: MIT
#include <Window/changes/Committer.h>

#include <Inspection/OneLine.h>

#include <algorithm>

namespace Inspector {

namespace {

// What was tried with the row that is another one now. An edit has no row to come back.
Inspection::Difference const* triedFor(Answer const& answer, Commit const& commit)
{
    Step const* const step = std::get_if<Step>(&commit);
    if (!step)
        return nullptr;
    auto const isIt = [&](Inspection::Difference const& each) {
        return each.row.key == answer.key && (!answer.store || each.store == *answer.store);
    };
    auto const found = std::find_if(step->begin(), step->end(), isIt);
    return found == step->end() ? nullptr : &*found;
}

// The texts of a change hide what is personal.
QString aboutConflict(Answer const& answer, Commit const& commit)
{
    QString const key = QString::fromStdString(Inspection::onOneLine(answer.key));
    Inspection::Difference const* const tried = triedFor(answer, commit);
    if (!tried)
        return Committer::tr("%1 was changed by somebody else meanwhile, so it stays as it is now.").arg(key);
    auto const valueOf = [&](auto const& row) { return changeOf({tried->store, {answer.key, {}, row}}, false, 0).cells.last(); };
    return Committer::tr("%1 was changed by somebody else meanwhile, so it stays as it is now.\n"
                         "There was: %2\nThere is now: %3\nThere would be again: %4")
        .arg(key, valueOf(tried->row.after), valueOf(answer.there), valueOf(tried->row.before));
}

} // namespace

Committer::Committer(Desk& desk, QObject* parent) : QObject(parent), m_desk(desk)
{
    connect(&desk, &Desk::answered, this, &Committer::take);
}

int Committer::commit(Commit const& commit, std::function<void(Answer const&)> const& whoAsked, std::function<void()> const& again)
{
    return send({commit, whoAsked, Way::edit, again});
}

void Committer::step(Way way)
{
    if (std::optional<Step> const next = m_history.next(way))
        send({*next, {}, way});
}

int Committer::send(Sent const& sent)
{
    int const number = m_desk.commit(sent.commit);
    m_history.sent(number, sent.way);
    m_sent[number] = sent;
    Q_EMIT stepsChanged();
    return number;
}

// A step is taken from the history again, as another one may be the next by then.
std::function<void()> Committer::nextTry(Sent const& sent)
{
    if (sent.way != Way::edit)
        return [this, way = sent.way] { step(way); };
    return sent.again ? sent.again : [this, sent] { send(sent); };
}

void Committer::take(Answer const& answer)
{
    m_history.answered(answer);
    auto const sent = m_sent.extract(answer.number);
    if (sent.empty())
        return;
    Q_EMIT stepsChanged();
    if (!answer.backups.empty())
        Q_EMIT madeBackups(answer.backups);
    if (answer.outcome == Outcome::noBackup)
        Q_EMIT lacksBackup(answer.whyNot(), nextTry(sent.mapped()));
    if (sent.mapped().whoAsked)
        return sent.mapped().whoAsked(answer);
    if (QString const text = answer.whyNot(); !text.isEmpty() && answer.outcome != Outcome::noBackup)
        Q_EMIT refused(answer.outcome == Outcome::conflict ? aboutConflict(answer, sent.mapped().commit) : text);
}

QString Committer::nextStep(Way way) const
{
    std::optional<Step> const next = m_history.next(way);
    if (!next || next->empty())
        return {};
    QString const key = QString::fromStdString(Inspection::onOneLine(next->front().row.key));
    int const others = static_cast<int>(next->size()) - 1;
    return others > 0 ? tr("%1 and %n more", nullptr, others).arg(key) : key;
}

} // namespace Inspector
