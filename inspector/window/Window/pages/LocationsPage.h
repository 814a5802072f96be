// SPDX-License-Identifier: MIT
#pragma once

#include <Window/pages/DetailPage.h>

namespace Inspector {

/// The places of the editor's files, and what decides each.
class LocationsPage : public DetailPage {
    Q_OBJECT

public:
    explicit LocationsPage(QWidget* parent);

protected:
    QStringList about(Item const& item) const override;
};

} // namespace Inspector
