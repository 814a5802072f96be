// SPDX-License-Identifier: MIT
#include <Window/status/Trouble.h>

#include <Window/status/MessageBar.h>

#include <Inspector/PlainText.h>

namespace Inspector {

void Trouble::tell(Snapshot const& snapshot)
{
    tell(QStringLiteral("product"), snapshot.product);
    tell(QStringLiteral("common"), snapshot.common);
    QString const cause = QStringLiteral("product file");
    bool const isOpened = snapshot.findings.empty() || snapshot.findings.front()->found.check != Inspection::Check::productFile;
    if (isOpened)
        return m_messages.clear(cause);
    Inspection::Finding const& found = snapshot.findings.front()->found;
    m_messages.tell(cause, plainText(found.what) + QStringLiteral("; ") + plainText(found.remedy),
                    {{tr("&Try again"), [this] { Q_EMIT wantsToLookAgain(); }}});
}

// The status line shows a busy store: a message would be out of date before anybody has read it.
void Trouble::tell(QString const& cause, StoreView const& store)
{
    if (!store.error)
        m_messages.clear(cause);
    else if (store.error->code() != Storage::StorageError::Code::busy)
        m_messages.tell(cause,
                        store.state == Inspection::StoreState::readOnly ? tr("only for reading: %1").arg(plainText(store.error->what()))
                                                                        : plainText(store.error->what()),
                        {{tr("&Try again"), [this] { Q_EMIT wantsToLookAgain(); }}, {tr("Health"), [this] { Q_EMIT wantsHealth(); }}});
}

} // namespace Inspector
