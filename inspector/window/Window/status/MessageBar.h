// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>
#include <map>
#include <utility>
#include <vector>

class QVBoxLayout;

namespace Inspector {

/// Messages above the list, one for each cause. None of them waits for an answer, and each can be selected and copied.
class MessageBar : public QWidget {
    Q_OBJECT

public:
    /// The words of a button, and what it does.
    using Choices = std::vector<std::pair<QString, std::function<void()>>>;

    explicit MessageBar(QWidget* parent);

    /// Shows `text` in place of the last message of that cause. One that was closed stays closed until `clear`. It stays with a choice.
    void tell(QString const& cause, QString const& text, Choices const& choices = {});
    /// As `tell` for what was just asked for, also where the same was closed. It goes with a choice.
    void report(QString const& cause, QString const& text, Choices const& choices = {}) { show(cause, text, choices, true); }
    /// As `report`, with the focus on the last choice.
    void ask(QString const& cause, QString const& text, Choices const& choices);
    void clear(QString const& cause);

private:
    struct Message {
        QString text;
        QWidget* frame; // null where it was closed
    };

    void show(QString const& cause, QString const& text, Choices const& choices, bool isQuestion);
    QWidget* makeFrame(QString const& cause, QString const& text, Choices const& choices, bool isQuestion);
    void close(QString const& cause);

    QVBoxLayout* m_layout;
    std::map<QString, Message> m_messages;
};

} // namespace Inspector
