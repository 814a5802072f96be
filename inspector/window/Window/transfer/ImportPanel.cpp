// SPDX-License-Identifier: MIT
#include <Window/transfer/ImportPanel.h>

#include <Inspector/Commands.h>

#include <Inspection/OneLine.h>

#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace Inspector {

namespace {

QString shown(std::string const& text) { return QString::fromStdString(Inspection::withoutControls(text)); }

QString titleOf(DocumentComparison const& comparison)
{
    return ImportPanel::tr("%1: %2, made %3")
        .arg(shown(comparison.file.filename().string()), shown(comparison.product), shown(comparison.made));
}

} // namespace

ImportPanel::ImportPanel(Place const& place, QWidget* parent)
    : QWidget(parent),
      m_place(place),
      m_title(new QLabel(this)),
      m_view(new QTreeView(this)),
      m_summary(new QLabel(this)),
      m_copy(new QPushButton(tr("Copy as co&mmand"), this)),
      m_cancel(new QPushButton(tr("&Cancel"), this)),
      m_store(new QPushButton(this))
{
    m_title->setTextFormat(Qt::PlainText);
    m_view->setAccessibleName(tr("What the file would change"));
    m_view->setModel(&m_model);
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setAlternatingRowColors(true);
    m_view->setAllColumnsShowFocus(true);
    m_view->setEditTriggers(QTreeView::NoEditTriggers);
    m_view->setTabKeyNavigation(false);
    auto* const below = new QHBoxLayout;
    below->addWidget(m_summary, 1);
    for (QPushButton* const button : {m_copy, m_cancel, m_store})
        below->addWidget(button);
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins({});
    whole->addWidget(m_title);
    whole->addWidget(m_view, 1);
    whole->addLayout(below);
    connect(&m_model, &ComparisonModel::takenChanged, this, &ImportPanel::showChoice);
    connect(m_copy, &QPushButton::clicked, this, [this] {
        if (std::optional<QString> const command = commandToImport(m_place, *m_model.comparison(), m_model.taken()))
            QApplication::clipboard()->setText(*command);
    });
    connect(m_cancel, &QPushButton::clicked, this, &ImportPanel::isDone);
    connect(m_store, &QPushButton::clicked, this, [this] {
        Q_EMIT wantsToStore(m_model.step());
        Q_EMIT isDone();
    });
}

void ImportPanel::show(std::shared_ptr<DocumentComparison const> const& comparison)
{
    m_model.show(comparison);
    m_title->setText(titleOf(*comparison));
    for (int column = 0; column < m_model.columnCount(); ++column)
        m_view->setColumnWidth(column, fontMetrics().averageCharWidth() * 26);
    m_view->setCurrentIndex(m_model.index(0, 0));
    showChoice();
    m_view->setFocus(Qt::OtherFocusReason);
}

void ImportPanel::allowChanges(bool isAllowed, QString const& reason)
{
    m_isAllowed = isAllowed;
    m_store->setToolTip(reason);
    m_store->setAccessibleDescription(reason);
    if (m_model.comparison())
        showChoice();
}

void ImportPanel::showChoice()
{
    DocumentComparison const& all = *m_model.comparison();
    int const count = static_cast<int>(m_model.taken().size());
    m_summary->setText(tr("%1 differ, %2 would be stored in one step, %3 are the same.")
                           .arg(locale().toString(static_cast<qulonglong>(all.lines.size())), locale().toString(count),
                                locale().toString(static_cast<qulonglong>(all.same))));
    m_store->setText(tr("&Store %n", nullptr, count));
    m_store->setEnabled(m_isAllowed && count > 0);
    m_copy->setEnabled(count > 0);
}

void ImportPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT isDone();
    else
        QWidget::keyPressEvent(event);
}

} // namespace Inspector
