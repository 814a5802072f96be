// SPDX-License-Identifier: MIT
#include <Window/pages/SettingsPage.h>

#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace Inspector {

SettingsPage::SettingsPage(QWidget* parent) : QWidget(parent), m_view(new ItemsView(m_model, tr("Settings"), this))
{
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_view);
    // The values take the width that is left.
    m_view->header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 6);
    m_view->header()->setStretchLastSection(false);
    m_view->header()->setSectionResizeMode(Setting::valueColumn, QHeaderView::Stretch);
}

// Before the model, of which its end would make a view without lines.
SettingsPage::~SettingsPage() { delete m_view; }

void SettingsPage::showLines(Lines<Setting> const& lines)
{
    m_lines = lines;
    m_model.show(m_lines);
}

void SettingsPage::showTrouble(Lines<Finding> const& findings)
{
    std::map<std::string, QString> words;
    for (std::shared_ptr<Finding const> const& finding : findings)
        if (!finding->key.empty() && finding->found.severity != Inspection::Severity::note) {
            QString& text = words[finding->key];
            text += (text.isEmpty() ? QString() : QStringLiteral("; ")) + finding->cells[2];
        }
    m_view->setTrouble(words);
}

std::shared_ptr<Setting const> SettingsPage::lineOf(int row) const
{
    std::string const& id = m_model.item(row).id;
    auto const isBefore = [](std::shared_ptr<Setting const> const& line, std::string const& wanted) { return line->id < wanted; };
    auto const found = std::lower_bound(m_lines.begin(), m_lines.end(), id, isBefore);
    return found != m_lines.end() && (*found)->id == id ? *found : nullptr;
}

std::shared_ptr<Setting const> SettingsPage::current() const
{
    int const row = m_view->currentRow();
    return row < 0 ? nullptr : lineOf(row);
}

Lines<Setting> SettingsPage::selected() const
{
    Lines<Setting> result;
    for (int const row : m_view->selectedRows())
        if (std::shared_ptr<Setting const> const line = lineOf(row))
            result.push_back(line);
    return result;
}

void SettingsPage::reveal(bool isRevealed)
{
    std::shared_ptr<Setting const> const setting = current();
    m_revealed = isRevealed && setting ? setting->id : "";
    m_model.reveal(m_revealed);
}

} // namespace Inspector
