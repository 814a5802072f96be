// SPDX-License-Identifier: MIT
#include <Window/menu/Copies.h>

#include <Window/menu/Actions.h>
#include <Window/pages/SettingsPage.h>
#include <Window/status/MessageBar.h>

#include <QAction>
#include <QApplication>
#include <QClipboard>

#include <algorithm>

namespace Inspector {

Copies::Copies(Actions const& actions, Place const& place, SettingsPage& settings, std::vector<ItemsView*> const& others,
               MessageBar& messages)
    : QObject(&settings), m_place(place), m_settings(settings), m_others(others), m_messages(messages)
{
    std::pair<QAction*, CopyForm> const copies[] = {{actions.copy, CopyForm::keyAndValue},
                                                    {actions.copyCommand, CopyForm::command},
                                                    {actions.copyKey, CopyForm::key},
                                                    {actions.copyValue, CopyForm::value},
                                                    {actions.copyJson, CopyForm::json}};
    for (auto const& [action, form] : copies) {
        connect(action, &QAction::triggered, this, [this, form = form] { copy(form); });
        settings.view().addAction(action);
    }
    for (ItemsView* const other : others)
        other->addAction(actions.copy);
}

void Copies::copy(CopyForm form)
{
    auto const other = std::find_if(m_others.begin(), m_others.end(), [](ItemsView const* view) { return view->isVisible(); });
    if (other != m_others.end())
        return QApplication::clipboard()->setText((*other)->selectedText());
    std::optional<QString> const text = copyText(m_settings.selected(), form, m_settings.revealed(), m_place);
    if (text)
        QApplication::clipboard()->setText(*text);
    else
        m_messages.report(QStringLiteral("copy"), tr("No command line can hold this value."));
}

} // namespace Inspector
