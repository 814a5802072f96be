// SPDX-License-Identifier: MIT
#include <Window/pages/ChangesPage.h>

namespace Inspector {

ChangesPage::ChangesPage(QWidget* parent) : DetailPage(changeHeadings(), tr("Changes"), tr("&Put back"), parent) {}

void ChangesPage::choose()
{
    if (isOffered())
        Q_EMIT wantsToPutBack(Step{static_cast<Change const&>(*current()).row});
}

void ChangesPage::allowChanges(bool isAllowed, QString const& reason)
{
    m_isAllowed = isAllowed;
    m_reason = reason;
    refresh();
}

} // namespace Inspector
