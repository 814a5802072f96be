// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <QObject>

namespace Inspector {

class MessageBar;

/// Tells what keeps the stores or the product file from being read, until it is over.
class Trouble : public QObject {
    Q_OBJECT

public:
    Trouble(MessageBar& messages, QObject* parent) : QObject(parent), m_messages(messages) {}

    void tell(Snapshot const& snapshot);

Q_SIGNALS:
    void wantsToLookAgain();
    void wantsHealth();

private:
    void tell(QString const& cause, StoreView const& store);

    MessageBar& m_messages;
};

} // namespace Inspector
