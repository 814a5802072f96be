// SPDX-License-Identifier: MIT
#pragma once

#include <Window/pages/DetailPage.h>

namespace Inspector {

/// What is wrong, or worth a note, and the way to its setting.
class HealthPage : public DetailPage {
    Q_OBJECT

public:
    explicit HealthPage(QWidget* parent);

    void choose() override;

Q_SIGNALS:
    /// The setting of the current finding is to be shown.
    void wantsSetting(std::string const& key);

protected:
    bool isOfferedFor(Item const& item) const override;
};

} // namespace Inspector
