// SPDX-License-Identifier: MIT
#pragma once

#include <Window/list/ItemsView.h>

#include <QWidget>

namespace Inspector {

/// The list of settings, which marks those with a draft and those in trouble.
class SettingsPage : public QWidget {
    Q_OBJECT

public:
    explicit SettingsPage(QWidget* parent);
    ~SettingsPage() override;

    ItemsView& view() const { return *m_view; }
    SettingsModel const& model() const { return m_model; }
    void showLines(Lines<Setting> const& lines);
    /// Marks the settings that `findings` are about, but for notes.
    void showTrouble(Lines<Finding> const& findings);
    /// nullptr for none.
    std::shared_ptr<Setting const> current() const;
    /// From the top down.
    Lines<Setting> selected() const;
    /// Shows the personal value of the current line, and of no other.
    void reveal(bool isRevealed);
    /// The id of the line whose personal value is visible; empty for none.
    std::string const& revealed() const { return m_revealed; }

private:
    std::shared_ptr<Setting const> lineOf(int row) const;

    SettingsModel m_model;
    Lines<Setting> m_lines; // that the model shows
    ItemsView* m_view;
    std::string m_revealed;
};

} // namespace Inspector
