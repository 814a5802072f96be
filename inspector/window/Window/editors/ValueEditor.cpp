// SPDX-License-Identifier: MIT
#include <Window/editors/ValueEditor.h>

#include <Inspector/Commands.h>

#include <QKeyEvent>

namespace Inspector {

namespace {

constexpr char const storingName[] = "storing";

bool isEnter(QKeyEvent const& key) { return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter; }

} // namespace

QString ValueEditor::help() const { return tr("Enter stores \u00B7 Esc goes back"); }

void ValueEditor::adopt(QWidget& field, Storing storing, QString const& name)
{
    field.setProperty(storingName, static_cast<int>(storing));
    field.setAccessibleName(name);
    field.installEventFilter(this);
    if (!focusProxy())
        setFocusProxy(&field);
}

// An action of the window may have the same key as its shortcut, so the field claims it first.
bool ValueEditor::eventFilter(QObject* field, QEvent* event)
{
    bool const isClaim = event->type() == QEvent::ShortcutOverride;
    if (event->type() == QEvent::Wheel) {
        event->ignore(); // so that the pane scrolls
        return true;
    }
    if (!isClaim && event->type() != QEvent::KeyPress)
        return false;
    auto const& key = static_cast<QKeyEvent const&>(*event);
    auto const storing = static_cast<Storing>(field->property(storingName).toInt());
    bool const isControlled = key.modifiers().testFlag(Qt::ControlModifier);
    bool const stores = isEnter(key) && (storing == Storing::onEnter || (storing == Storing::onControlEnter && isControlled));
    bool const leaves = key.key() == Qt::Key_Escape;
    if (!stores && !leaves)
        return false;
    event->accept();
    if (!isClaim)
        stores ? Q_EMIT entered() : Q_EMIT left();
    return true;
}

QStringList openingWords(Setting const& setting)
{
    using Inspection::State;
    bool const isStored = setting.state == State::set || setting.state == State::setToDefault || setting.state == State::undeclared;
    if (std::holds_alternative<bool>(setting.value) && !isStored)
        return {};
    QStringList words;
    for (std::string const& word : wordsOf(setting.value))
        words += QString::fromStdString(word);
    return words;
}

} // namespace Inspector
