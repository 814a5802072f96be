// SPDX-License-Identifier: MIT
#include <Window/status/StatusLine.h>

#include <Inspector/PlainText.h>

#include <QCheckBox>
#include <QLabel>

namespace Inspector {

namespace {

bool takesChanges(StoreView const& store)
{
    return store.state == Inspection::StoreState::usable || store.state == Inspection::StoreState::missing ||
           (store.error && store.error->code() == Storage::StorageError::Code::busy);
}

QString whyNot(StoreView const& store) { return store.error ? plainText(store.error->what()) : QString(); }

} // namespace

StatusLine::StatusLine(QWidget* parent)
    : QStatusBar(parent),
      m_changes(new QCheckBox(tr("&Allow changes"), this)),
      m_product(new QLabel(this)),
      m_common(new QLabel(this)),
      m_age(new QLabel(this)),
      m_step(new QLabel(this)),
      m_backups(new QLabel(this))
{
    setSizeGripEnabled(false);
    m_changes->setAccessibleName(tr("Allow changes"));
    auto* const looking = new QLabel(tr("Looking only"), this);
    connect(m_changes, &QCheckBox::toggled, looking, [=](bool isOn) { looking->setText(isOn ? tr("Changing") : tr("Looking only")); });
    addWidget(looking);
    addWidget(m_changes);
    for (QLabel* const label : {m_product, m_common, m_age})
        addWidget(label);
    addPermanentWidget(m_backups);
    addPermanentWidget(m_step);
    QList<QLabel*> const labels = findChildren<QLabel*>();
    for (QLabel* const label : labels)
        label->setContentsMargins(fontMetrics().averageCharWidth(), 0, fontMetrics().averageCharWidth(), 0);
}

void StatusLine::show(Snapshot const& snapshot)
{
    show(*m_product, tr("product"), snapshot.product);
    show(*m_common, tr("common"), snapshot.common);
    bool const isRefused = !takesChanges(snapshot.product) && !takesChanges(snapshot.common);
    m_refusal = isRefused ? whyNot(snapshot.product) + QLatin1Char('\n') + whyNot(snapshot.common) : QString();
    if (isRefused)
        m_changes->setChecked(false);
    m_changes->setEnabled(!isRefused);
    m_changes->setToolTip(m_refusal);
    m_changes->setAccessibleDescription(m_refusal);
}

void StatusLine::show(QLabel& label, QString const& name, StoreView const& store)
{
    bool const isBusy = store.error && store.error->code() == Storage::StorageError::Code::busy;
    bool const isOpened = !store.file.empty();
    QString const state = isBusy ? tr("busy") : QString::fromUtf8(storeStateName(store.state));
    label.setText(isOpened ? tr("%1: %2").arg(name, state) : QString());
    QString const file = plainText(store.file);
    label.setToolTip(store.error ? whyNot(store) : file);
    label.setAccessibleName(isOpened ? tr("%1 store: %2").arg(name, state) : QString());
    label.setAccessibleDescription(label.toolTip());
}

void StatusLine::showAge(QString const& words)
{
    m_age->setText(words);
    m_age->setAccessibleName(words);
}

void StatusLine::showStep(QString const& words)
{
    m_step->setText(words);
    m_step->setAccessibleName(words);
}

void StatusLine::showBackups(QString const& words)
{
    m_backups->setText(tr("backup kept"));
    m_backups->setAccessibleName(m_backups->text());
    m_backups->setToolTip(words);
    m_backups->setAccessibleDescription(words);
}

} // namespace Inspector
