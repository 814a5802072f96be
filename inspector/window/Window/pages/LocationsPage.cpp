// SPDX-License-Identifier: MIT
#include <Window/pages/LocationsPage.h>

#include <Inspector/PlainText.h>

#include <QHeaderView>

namespace Inspector {

namespace {

constexpr int useColumn = 2;

} // namespace

LocationsPage::LocationsPage(QWidget* parent) : DetailPage(locationHeadings(), tr("Locations"), {}, parent)
{
    view().header()->setSectionResizeMode(useColumn, QHeaderView::ResizeToContents); // a few words, of which each counts
}

QStringList LocationsPage::about(Item const& item) const
{
    QStringList lines = DetailPage::about(item);
    for (std::string const& decision : static_cast<Location const&>(item).decidedBy)
        lines += tr("Decided by: %1").arg(plainText(decision));
    return lines;
}

} // namespace Inspector
