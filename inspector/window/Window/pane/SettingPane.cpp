// SPDX-License-Identifier: MIT
#include <Window/pane/SettingPane.h>

#include <Window/editors/Passage.h>
#include <Window/pane/Facts.h>
#include <Window/pane/ValueBox.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Inspector {

SettingPane::SettingPane(Place const& place, QWidget* parent)
    : QWidget(parent),
      m_place(place),
      m_snapshot(std::make_shared<Snapshot const>()),
      m_area(new QScrollArea),
      m_key(new Passage(tr("Key"))),
      m_purpose(new Passage(tr("Purpose"))),
      m_kind(new Passage(tr("Type, class and store"))),
      m_state(new Passage(tr("State"))),
      m_value(new ValueBox),
      m_default(new Passage(tr("Default"))),
      m_why(new Passage(tr("Why"))),
      m_command(new Passage(tr("Command"))),
      m_copy(new QPushButton(tr("&Copy")))
{
    build();
    connect(m_value, &ValueBox::wantsToStore, this, &SettingPane::wantsToStore);
    connect(m_value, &ValueBox::wantsToCancel, this, &SettingPane::wantsToCancel);
    connect(m_value, &ValueBox::isDone, this, &SettingPane::isDone);
    connect(m_value, &ValueBox::isRevealed, this, &SettingPane::isRevealed);
    connect(m_value, &ValueBox::draftsChanged, this, &SettingPane::draftsChanged);
    connect(m_value, &ValueBox::entryChanged, this, &SettingPane::showCommand);
    connect(m_copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(m_wholeCommand); });
}

void SettingPane::build()
{
    auto* const all = new QVBoxLayout(this);
    all->setContentsMargins({});
    all->addWidget(m_area);
    auto* const content = new QWidget;
    auto* const column = new QVBoxLayout(content);
    QFont font = m_key->font();
    font.setBold(true);
    font.setPointSizeF(1.2 * font.pointSizeF());
    m_key->setFont(font);
    for (Passage* const passage : {m_key, m_why, m_command})
        passage->setLayoutDirection(Qt::LeftToRight);
    for (Passage* const passage : {m_key, m_purpose, m_kind})
        column->addWidget(passage);
    addPart(*column, tr("S&tate"), m_state);
    addPart(*column, tr("&Value"), m_value);
    addPart(*column, tr("De&fault"), m_default);
    addPart(*column, tr("&Why"), m_why);
    addPart(*column, tr("Co&mmand"), m_command);
    column->addWidget(m_copy, 0, Qt::AlignLeading);
    column->addStretch();
    m_area->setWidget(content);
    m_area->setWidgetResizable(true);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFocusPolicy(Qt::NoFocus);
    content->hide();
}

// A heading above its part, as both beside each other leave too little for paths.
void SettingPane::addPart(QVBoxLayout& column, QString const& heading, QWidget* part)
{
    auto* const label = new QLabel(heading);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setBuddy(part);
    column.addSpacing(column.spacing());
    column.addWidget(label);
    column.addWidget(part);
}

// Without its heading where it is empty.
void SettingPane::tell(Passage& part, QString const& text) const
{
    part.tell(text);
    part.setVisible(!text.isEmpty());
    QList<QLabel*> const labels = m_area->widget()->findChildren<QLabel*>();
    for (QLabel* const label : labels)
        if (label->buddy() == &part)
            label->setVisible(!text.isEmpty());
}

void SettingPane::look(std::shared_ptr<Snapshot const> const& snapshot)
{
    m_snapshot = snapshot;
    m_value->look(snapshot);
    if (m_setting)
        showFacts();
}

void SettingPane::show(std::shared_ptr<Setting const> const& setting)
{
    if (setting == m_setting)
        return;
    m_setting = setting;
    m_area->widget()->setVisible(setting != nullptr);
    m_value->show(setting);
    if (setting)
        showFacts();
}

void SettingPane::allowChanges(bool isAllowed, QString const& reason) { m_value->allowChanges(isAllowed, reason); }

void SettingPane::take(Answer const& answer) { m_value->take(answer); }

void SettingPane::reveal(bool isRevealed) { m_value->reveal(isRevealed); }

void SettingPane::storeAgain() { m_value->storeAgain(); }

void SettingPane::edit()
{
    if (!m_setting)
        return;
    m_value->setFocus(Qt::ShortcutFocusReason);
    m_area->ensureWidgetVisible(m_value);
}

std::vector<std::string> SettingPane::drafts() const { return m_value->drafts(); }

void SettingPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT isDone();
    else
        QWidget::keyPressEvent(event);
}

void SettingPane::showFacts()
{
    m_key->tell(m_setting->cells[Setting::keyColumn]);
    tell(*m_purpose, m_setting->cells[Setting::purposeColumn]);
    m_kind->tell(kindFacts(*m_setting));
    m_state->tell(stateFacts(*m_setting, *m_snapshot));
    tell(*m_default, defaultFacts(*m_setting));
    tell(*m_why, originFacts(*m_setting, *m_snapshot));
    showCommand();
}

void SettingPane::showCommand()
{
    std::optional<QString> const command = m_value->command(m_place);
    m_wholeCommand = command.value_or(QString());
    m_command->tell(command ? *command : tr("No command does this"));
    m_copy->setEnabled(command.has_value());
}

} // namespace Inspector
