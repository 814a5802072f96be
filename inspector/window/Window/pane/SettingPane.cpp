// SPDX-License-Identifier: MIT
#include <Window/pane/SettingPane.h>

namespace Inspector {

SettingPane::SettingPane(Place const&, QWidget* parent) : QWidget(parent) {}

void SettingPane::show(std::shared_ptr<Setting const> const&) {}
void SettingPane::allowChanges(bool, QString const&) {}
void SettingPane::take(Answer const&) {}
void SettingPane::edit() {}
std::vector<std::string> SettingPane::drafts() const { return {}; }

} // namespace Inspector
