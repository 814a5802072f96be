// SPDX-License-Identifier: MIT
#include <Window/pages/HealthPage.h>

namespace Inspector {

HealthPage::HealthPage(QWidget* parent) : DetailPage(findingHeadings(), tr("Findings"), tr("&Go there"), parent)
{
    connect(&view(), &ItemsView::opened, this, &HealthPage::choose);
}

void HealthPage::choose()
{
    if (isOffered())
        Q_EMIT wantsSetting(static_cast<Finding const&>(*current()).key);
}

bool HealthPage::isOfferedFor(Item const& item) const { return !static_cast<Finding const&>(item).key.empty(); }

} // namespace Inspector
