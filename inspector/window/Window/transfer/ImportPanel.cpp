// SPDX-License-Identifier: MIT
#include <Window/transfer/ImportPanel.h>

#include <Window/editors/Passage.h>

#include <Inspector/Commands.h>

#include <Inspection/OneLine.h>

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeView>

namespace Inspector {

ImportPanel::ImportPanel(Place const& place, QWidget* parent)
    : QWidget(parent),
      m_place(place),
      m_title(new Passage(tr("Document"))),
      m_count(new Passage(tr("Count"))),
      m_command(new Passage(tr("Command"))),
      m_trouble(new Passage(tr("Not stored"))),
      m_copy(new QPushButton(tr("&Copy"))),
      m_cancel(new QPushButton(tr("Ca&ncel"))),
      m_store(new QPushButton)
{
    build();
    connect(&m_model, &ComparisonModel::takenChanged, this, &ImportPanel::showChoice);
    connect(m_copy, &QPushButton::clicked, this, [this] { QApplication::clipboard()->setText(m_wholeCommand); });
    connect(m_cancel, &QPushButton::clicked, this, &ImportPanel::isDone);
    connect(m_store, &QPushButton::clicked, this, &ImportPanel::store);
}

void ImportPanel::build()
{
    auto* const column = new QVBoxLayout(this);
    auto* const table = new QTreeView;
    table->setModel(&m_model);
    table->setRootIsDecorated(false);
    table->setUniformRowHeights(true);
    table->setTabKeyNavigation(false);
    table->setAccessibleName(tr("What the document would change"));
    table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->header()->setResizeContentsPrecision(100); // of many lines the first ones tell
    m_command->setLayoutDirection(Qt::LeftToRight);
    column->addWidget(m_title);
    column->addWidget(table, 1);
    for (QWidget* const each : std::initializer_list<QWidget*>{m_count, m_command, m_trouble})
        column->addWidget(each);
    column->addWidget(m_copy, 0, Qt::AlignLeading);
    auto* const row = new QHBoxLayout;
    row->addStretch();
    row->addWidget(m_cancel);
    row->addWidget(m_store);
    column->addLayout(row);
    setFocusProxy(table);
}

void ImportPanel::show(std::shared_ptr<DocumentComparison const> const& comparison)
{
    m_isWaiting = false;
    m_trouble->tell({});
    if (comparison)
        m_title->tell(QString::fromStdString(Inspection::onOneLine(comparison->file.filename().u8string()) + " \u2014 " +
                                             Inspection::onOneLine(comparison->product) + ", made " +
                                             Inspection::onOneLine(comparison->made)));
    m_model.show(comparison);
}

void ImportPanel::allowChanges(bool isAllowed, QString const& reason)
{
    m_isAllowed = isAllowed;
    m_reason = reason;
    showChoice();
}

void ImportPanel::showChoice()
{
    std::shared_ptr<DocumentComparison const> const& document = m_model.comparison();
    if (!document)
        return;
    std::size_t const taken = m_model.taken().size();
    m_count->tell(tr("%1 differ, %2 would be stored in one step, %3 stay.")
                      .arg(document->lines.size())
                      .arg(taken)
                      .arg(document->same + document->onlyHere));
    std::optional<QString> const command = commandToImport(m_place, *document, m_model.taken());
    m_wholeCommand = command.value_or(QString());
    m_command->tell(m_wholeCommand);
    m_command->setVisible(command.has_value());
    m_copy->setEnabled(command.has_value());
    m_store->setText(tr("&Store %1").arg(taken));
    m_store->setEnabled(m_isAllowed && taken > 0 && !m_isWaiting);
    m_store->setToolTip(m_reason);
    m_store->setAccessibleDescription(m_reason);
    m_trouble->setVisible(!m_trouble->toPlainText().isEmpty());
}

void ImportPanel::store()
{
    m_isWaiting = true;
    m_trouble->tell({});
    showChoice();
    Q_EMIT wantsToStore(m_model.step());
}

void ImportPanel::take(Answer const& answer)
{
    m_isWaiting = false;
    m_trouble->tell(answer.whyNot());
    showChoice();
    if (answer.whyNot().isEmpty())
        Q_EMIT isDone();
}

} // namespace Inspector
