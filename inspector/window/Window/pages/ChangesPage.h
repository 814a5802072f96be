// SPDX-License-Identifier: MIT
#pragma once

#include <Window/pages/DetailPage.h>

#include <Inspector/Commits.h>

namespace Inspector {

/// What was changed since the window was opened, and the way back for each row.
class ChangesPage : public DetailPage {
    Q_OBJECT

public:
    explicit ChangesPage(QWidget* parent);

    void choose() override;
    /// Whether rows can be put back; `reason` says why not.
    void allowChanges(bool isAllowed, QString const& reason);

Q_SIGNALS:
    /// The row of the current change is to get back what it held before.
    void wantsToPutBack(Inspector::Step const& step);

protected:
    bool isOfferedFor(Item const&) const override { return m_isAllowed; }
    QString whyNot() const override { return m_reason; }

private:
    bool m_isAllowed = false;
    QString m_reason;
};

} // namespace Inspector
