// SPDX-License-Identifier: MIT
#include <Window/editors/FolderEditor.h>

#include <Inspector/PlainText.h>

#include <QCompleter>
#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QStringListModel>
#include <QUrl>
#include <QVBoxLayout>

namespace Inspector {

namespace {

// A preference with a folder of its own is written to; so is a key that the host declares. The others are where something was found.
bool isWritten(Setting const& setting) { return !setting.computedBy.empty() || setting.about.getter == "read"; }

// The only folder that is dropped; empty for anything else.
QString droppedFolder(QDropEvent const& drop)
{
    QList<QUrl> const urls = drop.mimeData()->urls();
    return urls.size() == 1 ? urls[0].toLocalFile() : QString();
}

} // namespace

FolderEditor::FolderEditor(Setting const& setting, QWidget* parent)
    : LineEditor(setting, parent), m_look(isWritten(setting)), m_status(new QLabel), m_neighbours(new QStringListModel(this))
{
    line().setLayoutDirection(Qt::LeftToRight);
    line().setCompleter(new QCompleter(m_neighbours, this));
    auto* const chooser = new QPushButton(tr("&Browse\u2026"));
    adopt(*chooser, Storing::never, tr("Browse for a folder"));
    m_status->setWordWrap(true);
    m_status->setTextFormat(Qt::PlainText);
    static_cast<QHBoxLayout*>(layout()->itemAt(0)->layout())->addWidget(chooser);
    layout()->addWidget(m_status);
    connect(chooser, &QPushButton::clicked, this, &FolderEditor::browse);
    connect(this, &ValueEditor::changed, this, &FolderEditor::check);
    connect(&m_look, &FolderLook::seen, this,
            [this](QString const&, Inspection::PathStatus const& status, QStringList const& neighbours) { tell(status, neighbours); });
}

void FolderEditor::setWords(QStringList const& words)
{
    LineEditor::setWords(words);
    check();
}

void FolderEditor::check()
{
    m_status->setText(tr("checking\u2026"));
    m_look.ask(line().text());
}

void FolderEditor::tell(Inspection::PathStatus const& status, QStringList const& neighbours)
{
    QString const remark = plainText(Inspection::remark(status));
    QString const mark = status.isUsable ? QString() : QStringLiteral("\u26A0 ");
    m_status->setText(remark.isEmpty() ? tr("a folder that can be used") : mark + remark);
    m_neighbours->setStringList(neighbours);
}

QString FolderEditor::doubt()
{
    QString const path = line().text();
    if (path.isEmpty() || QDir::isAbsolutePath(path) || std::exchange(m_doubted, path) == path)
        return {};
    Inspection::PathStatus status;
    status.reason = Inspection::PathReason::relative;
    return tr("It is %1. Enter again stores it all the same.").arg(QString::fromStdString(Inspection::remark(status)));
}

// Not modal, as the list behind stays of use.
void FolderEditor::browse()
{
    auto* const dialog = new QFileDialog(this, tr("Folder"), line().text());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, &line(), &QLineEdit::setText);
    dialog->show();
}

bool FolderEditor::eventFilter(QObject* field, QEvent* event)
{
    bool const isDrop = event->type() == QEvent::Drop;
    if (field != &line() || (!isDrop && event->type() != QEvent::DragEnter))
        return LineEditor::eventFilter(field, event);
    auto& drop = static_cast<QDropEvent&>(*event);
    QString const folder = droppedFolder(drop);
    if (folder.isEmpty())
        return false;
    drop.acceptProposedAction();
    if (isDrop)
        line().setText(folder);
    return true;
}

} // namespace Inspector
