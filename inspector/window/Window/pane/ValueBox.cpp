// SPDX-License-Identifier: MIT
#include <Window/pane/ValueBox.h>

#include <Window/editors/BytesEditor.h>
#include <Window/editors/EditorFactory.h>
#include <Window/editors/Passage.h>
#include <Window/pane/AnswerBox.h>
#include <Window/pane/Facts.h>

#include <Inspector/Commands.h>

#include <Inspection/ValueFormat.h>

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QPushButton>
#include <QVBoxLayout>

namespace Inspector {

namespace {

using SqliteValue = Storage::SqliteStorage::Value;

// An answer that comes sooner is no news.
constexpr std::chrono::milliseconds patience{300};

// nullopt where none is to be stored. Throws `Inspection::ValueError` for words that are no value of the setting.
std::optional<Catalogue::Value> valueOf(Setting const& setting, QStringList const& words)
{
    // Whoever stores a list checks it, as only the library knows which elements come back.
    if (std::holds_alternative<QStringList>(setting.value))
        return words;
    if (words.isEmpty())
        return std::nullopt;
    return Inspection::parsed(setting.value, {words[0].toStdString()});
}

struct AsStored {
    SqliteValue operator()(bool value) const { return value; }
    SqliteValue operator()(int value) const { return value; }
    SqliteValue operator()(std::string const& value) const { return value; }
    SqliteValue operator()(QByteArray const& value) const { return std::vector<unsigned char>(value.begin(), value.end()); }
    template <typename Other>
    SqliteValue operator()(Other const&) const
    {
        return {}; // nothing undeclared is read as such a value
    }
};

// The library has no function that stores an undeclared key, so another row takes the place of the one that was seen.
Commit commitOf(std::shared_ptr<Setting const> const& seen, std::optional<Catalogue::Value> const& value)
{
    if (!isUndeclared(*seen) || !value || seen->rows.empty())
        return std::vector<Edit>{{seen, value}};
    Storage::SqliteStorage::Row row = seen->rows[0];
    row.value = std::visit(AsStored(), *value);
    Inspection::Difference difference;
    difference.store = seen->store;
    difference.row = {seen->key, row, seen->rows[0]};
    return Step{difference};
}

QString textOf(std::optional<Catalogue::Value> const& value)
{
    if (!value)
        return ValueBox::tr("(unset)");
    std::string const text = Inspection::onOneLine(*value);
    return text.empty() ? ValueBox::tr("(empty)") : QString::fromStdString(text);
}

} // namespace

ValueBox::ValueBox(QWidget* parent)
    : QWidget(parent),
      m_snapshot(std::make_shared<Snapshot const>()),
      m_column(new QVBoxLayout(this)),
      m_value(new Passage(tr("Value"))),
      m_help(new Passage(tr("Help"))),
      m_answer(new AnswerBox),
      m_unknown(new QCheckBox(tr("Change unknown &keys"))),
      m_cancel(new QPushButton(tr("Ca&ncel"))),
      m_show(new QPushButton(tr("S&how"))),
      m_unset(new QPushButton(tr("&Unset")))
{
    build();
    m_patience.setSingleShot(true);
    connect(&m_patience, &QTimer::timeout, this, &ValueBox::showHelp);
    connect(m_cancel, &QPushButton::clicked, this, &ValueBox::wantsToCancel);
    connect(m_show, &QPushButton::clicked, this, [this] {
        reveal(!m_isRevealed);
        Q_EMIT isRevealed(m_isRevealed);
    });
    connect(m_unset, &QPushButton::clicked, this, [this] { commit(std::nullopt, m_setting); });
    connect(m_unknown, &QCheckBox::toggled, this, &ValueBox::reload);
    connect(m_answer, &AnswerBox::keeps, this, &ValueBox::keepTheirs);
    connect(m_answer, &AnswerBox::stores, this, &ValueBox::storeMine);
}

void ValueBox::build()
{
    m_column->setContentsMargins({});
    for (QWidget* const each : std::initializer_list<QWidget*>{m_value, m_help, m_cancel, m_answer, m_unknown})
        m_column->addWidget(each);
    auto* const row = new QHBoxLayout;
    row->addWidget(m_show);
    row->addWidget(m_unset);
    row->addStretch();
    m_column->addLayout(row);
}

// --- What is shown ---

void ValueBox::look(std::shared_ptr<Snapshot const> const& snapshot) { m_snapshot = snapshot; }

void ValueBox::show(std::shared_ptr<Setting const> const& setting)
{
    bool const isOther = !setting || !m_setting || setting->id != m_setting->id;
    m_setting = setting;
    m_isRevealed = m_isRevealed && !isOther;
    if (!setting && m_editor)
        std::exchange(m_editor, nullptr)->deleteLater();
    if (setting && (isOther || !isInUse()))
        reload();
    else if (setting)
        refresh();
}

void ValueBox::allowChanges(bool isAllowed, QString const& reason)
{
    bool const isOther = isAllowed != m_isAllowed || reason != m_reason;
    m_isAllowed = isAllowed;
    m_reason = reason;
    if (m_setting && isOther)
        reload();
}

ValueBox::Draft* ValueBox::draft()
{
    auto const found = m_drafts.find(m_setting->id);
    return found == m_drafts.end() ? nullptr : &found->second;
}

ValueBox::Draft const* ValueBox::draft() const
{
    auto const found = m_drafts.find(m_setting->id);
    return found == m_drafts.end() ? nullptr : &found->second;
}

bool ValueBox::isHidden() const { return m_setting->isHidden && !m_isRevealed; }

// Whether another editor would take something out of a hand.
bool ValueBox::isInUse() const
{
    bool const isTyped = draft() && draft()->words;
    return m_editor && (isTyped || m_editor->isAncestorOf(QApplication::focusWidget()) || m_editor->findChild<QDialog*>());
}

QString ValueBox::whyNotEdited() const
{
    if (!m_isAllowed)
        return m_reason.isEmpty() ? tr("Looking only") : m_reason;
    if (QString const reason = whyFixed(*m_setting, *m_snapshot); !reason.isEmpty())
        return reason;
    return isUndeclared(*m_setting) && !m_unknown->isChecked() ? tr("This version does not ask for it, so it is left as it is.")
                                                               : QString();
}

void ValueBox::reload()
{
    if (m_editor)
        m_editor->hide();
    if (ValueEditor* const old = std::exchange(m_editor, nullptr))
        old->deleteLater(); // as its own signal may have led here
    m_seen = m_setting;
    m_isEditable = false;
    if (!isHidden() && whyNotEdited().isEmpty())
        placeEditor();
    if (!m_editor)
        placeView();
    if (m_editor) {
        m_column->insertWidget(0, m_editor);
        // It was made last, and Tab reaches it, with its fields, where the value stands.
        m_editor->setFocusPolicy(Qt::TabFocus);
        setTabOrder(m_value, m_editor);
        m_editor->show(); // now, as it may get the focus
    }
    if (m_editor)
        m_value->tell({}); // a screen reader may read what is not visible
    m_value->setVisible(!m_editor);
    setFocusProxy(m_editor ? static_cast<QWidget*>(m_editor) : m_value);
    refresh();
}

void ValueBox::placeEditor()
{
    bool const isTyped = draft() && draft()->words;
    if (isTyped)
        m_seen = draft()->seen;
    m_editor = newEditor(*m_seen, this);
    m_isEditable = m_editor != nullptr;
    if (!m_editor)
        return;
    if (isTyped)
        m_editor->setWords(*draft()->words);
    connect(m_editor, &ValueEditor::changed, this, &ValueBox::changeDraft);
    connect(m_editor, &ValueEditor::entered, this, &ValueBox::store);
    connect(m_editor, &ValueEditor::left, this, &ValueBox::leave);
}

void ValueBox::placeView()
{
    m_value->tell(isHidden() ? QString::fromLatin1(hiddenText) : valueNow(*m_setting));
    std::optional<QByteArray> const bytes = isHidden() ? std::nullopt : bytesToShow(*m_setting);
    if (!bytes)
        return;
    auto* const view = new BytesEditor(m_setting->cells[Setting::keyColumn], false, this);
    view->setBytes(*bytes);
    connect(view, &ValueEditor::left, this, &ValueBox::isDone);
    m_editor = view;
}

void ValueBox::refresh()
{
    QString const reason = m_isAllowed ? whyStoreIsFixed(*m_setting, *m_snapshot) : whyNotEdited();
    m_unset->setEnabled(reason.isEmpty() && !m_setting->rows.empty());
    for (QWidget* const each : std::initializer_list<QWidget*>{m_unset, m_value}) {
        each->setToolTip(reason);
        each->setAccessibleDescription(reason);
    }
    m_show->setVisible(m_setting->isHidden);
    m_show->setText(m_isRevealed ? tr("&Hide") : tr("S&how"));
    m_unknown->setVisible(isUndeclared(*m_setting) && m_isAllowed);
    showAnswer();
    showHelp();
    Q_EMIT entryChanged();
}

QString ValueBox::conflictText(Draft const& met) const
{
    auto const unlessHidden = [this](QString const& value) { return isHidden() ? QString::fromLatin1(hiddenText) : value; };
    return tr("\u26A0 Changed meanwhile.\nYou saw: %1\nThere is now: %2\nYou entered: %3")
        .arg(unlessHidden(valueNow(*met.seen)), unlessHidden(valueNow(*m_setting)), unlessHidden(textOf(*met.refused)));
}

void ValueBox::showAnswer()
{
    Draft const* const met = draft();
    if (!met || (met->trouble.isEmpty() && !met->isConflict))
        return m_answer->clear();
    QString const again = met->refused && !met->words ? tr("Try &again") : QString();
    m_answer->tell(met->isConflict ? conflictText(*met) : met->trouble, met->isConflict ? tr("Store &mine") : again);
}

QStringList ValueBox::hints() const
{
    QStringList lines;
    if (m_waiting && !m_patience.isActive())
        lines += tr("waiting for another process\u2026");
    if (isHidden())
        return lines;
    if (QString const reason = whyNotEdited(); !reason.isEmpty())
        return lines << reason;
    if (!m_isEditable)
        return lines << tr("A field would not keep it as it is: unset it first, or use the command line.");
    if (valueNow(*m_seen) != valueNow(*m_setting))
        lines += tr("now %1 there").arg(valueNow(*m_setting));
    QStringList const words = m_editor->words();
    for (QString const& word : words)
        if (std::string const text = word.toStdString(); Inspection::withoutControls(text, "\n") != text)
            lines += tr("escaped: %1").arg(QString::fromStdString(Inspection::onOneLine(text)));
    return lines << m_editor->help();
}

void ValueBox::showHelp()
{
    QStringList const lines = hints();
    m_help->tell(lines.join(QLatin1Char('\n')));
    m_help->setVisible(!lines.isEmpty());
    m_cancel->setVisible(m_waiting && !m_patience.isActive());
}

void ValueBox::reveal(bool isRevealed)
{
    if (!m_setting || isRevealed == m_isRevealed)
        return;
    m_isRevealed = isRevealed;
    reload();
}

std::optional<QString> ValueBox::command(Place const& place) const
{
    std::string const& key = m_setting->key;
    bool const isTyped = m_isEditable && draft() && draft()->words;
    if (isHidden())
        return commandToSetHidden(place, key);
    if (isUndeclared(*m_setting))
        return isTyped ? std::nullopt : commandToUnset(place, {key});
    try {
        Value const value = valueOf(*m_setting, isTyped ? *draft()->words : openingWords(*m_setting));
        bool const isStored = m_setting->state == Inspection::State::set || m_setting->state == Inspection::State::setToDefault;
        return value && (isTyped || isStored) ? commandToSet(place, key, *value) : commandToUnset(place, {key});
    } catch (Inspection::ValueError const&) {
        return std::nullopt;
    }
}

// --- What is entered ---

std::vector<std::string> ValueBox::drafts() const
{
    std::vector<std::string> ids;
    for (auto const& [id, draft] : m_drafts)
        ids.push_back(id);
    return ids;
}

void ValueBox::changeDraft()
{
    if (m_editor->words() == openingWords(*m_seen))
        return drop(m_setting->id);
    bool const isNew = m_drafts.count(m_setting->id) == 0;
    m_drafts[m_setting->id] = {m_seen, m_editor->words()};
    if (isNew)
        Q_EMIT draftsChanged();
    refresh();
}

void ValueBox::drop(std::string const& id)
{
    bool const isDropped = m_drafts.erase(id) > 0;
    if (m_setting)
        refresh();
    if (isDropped)
        Q_EMIT draftsChanged();
}

void ValueBox::store()
{
    QStringList const words = m_editor->words();
    if (words == openingWords(*m_seen))
        return leave();
    QString trouble = m_editor->doubt();
    if (trouble.isEmpty())
        try {
            return commit(valueOf(*m_seen, words), m_seen);
        } catch (Inspection::ValueError const& error) {
            trouble = QString::fromLatin1(error.what());
        }
    keep({m_seen, words, trouble});
}

void ValueBox::keep(Draft const& met)
{
    m_drafts[met.seen->id] = met;
    Q_EMIT draftsChanged();
    if (m_setting && m_setting->id == met.seen->id)
        refresh();
}

// Forgets what was entered.
void ValueBox::leave()
{
    drop(m_setting->id);
    reload();
    Q_EMIT isDone();
}

// One at a time, so that the answer is to it.
void ValueBox::commit(Value const& value, std::shared_ptr<Setting const> const& seen)
{
    if (m_waiting)
        return;
    m_unsaved.reset();
    m_waiting = {seen, value};
    m_patience.start(patience);
    Q_EMIT wantsToStore(commitOf(seen, value));
}

void ValueBox::take(Answer const& answer)
{
    if (!m_waiting)
        return;
    Wish const wish = *std::exchange(m_waiting, std::nullopt);
    m_patience.stop();
    if (answer.outcome == Outcome::noBackup)
        m_unsaved = wish;
    bool const isShown = m_setting && m_setting->id == wish.seen->id;
    if (answer.outcome == Outcome::stored || answer.outcome == Outcome::unchanged) {
        drop(wish.seen->id);
        if (isShown) {
            reload();
            Q_EMIT isDone();
        }
        return;
    }
    auto const typed = m_drafts.find(wish.seen->id);
    Draft met = {wish.seen, typed == m_drafts.end() ? std::nullopt : typed->second.words, answer.whyNot(), wish.value};
    met.isConflict = answer.outcome == Outcome::conflict;
    keep(met);
    if (isShown && !met.words)
        reload(); // so that it shows what is stored
    if (isShown && met.isConflict)
        m_answer->focusKeep();
}

void ValueBox::keepTheirs()
{
    if (!m_waiting)
        leave();
}

void ValueBox::storeAgain()
{
    if (std::optional<Wish> const wish = m_unsaved)
        commit(wish->value, wish->seen);
}

void ValueBox::storeMine()
{
    if (Draft const* const met = draft(); met && met->refused)
        commit(*met->refused, m_setting);
}

} // namespace Inspector
