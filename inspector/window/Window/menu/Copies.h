// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Place.h>
#include <Window/list/CopyText.h>

#include <QObject>

#include <vector>

namespace Inspector {

struct Actions;
class ItemsView;
class MessageBar;
class SettingsPage;

/// Copies the selected lines of the list with the focus.
class Copies : public QObject {
    Q_OBJECT

public:
    /// `others` are the lists of which lines are copied as they are shown.
    Copies(Actions const& actions, Place const& place, SettingsPage& settings, std::vector<ItemsView*> const& others, MessageBar& messages);

private:
    void copy(CopyForm form);

    Place const m_place;
    SettingsPage& m_settings;
    std::vector<ItemsView*> const m_others;
    MessageBar& m_messages;
};

} // namespace Inspector
