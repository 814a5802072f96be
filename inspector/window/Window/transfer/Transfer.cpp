// SPDX-License-Identifier: MIT
#include <Window/transfer/Transfer.h>

#include <Window/changes/Committer.h>
#include <Window/status/MessageBar.h>

#include <Inspector/PlainText.h>

#include <QFile>
#include <QFileDialog>

namespace Inspector {

namespace {

std::filesystem::path pathOf(QString const& file) { return QFile::encodeName(file).toStdString(); }

} // namespace

Transfer::Transfer(Desk& desk, Committer& committer, MessageBar& messages, QWidget& window)
    : QObject(&window), m_desk(desk), m_committer(committer), m_messages(messages), m_window(window)
{}

// The desk refuses a file that is there already, so the chooser does not ask.
void Transfer::choose(QString const& title, bool isNew, QString const& name, std::function<void(QString const&)> const& act)
{
    auto* const chooser = new QFileDialog(&m_window, title);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setAcceptMode(isNew ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    chooser->setFileMode(isNew ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    chooser->setOption(QFileDialog::DontConfirmOverwrite);
    chooser->selectFile(name);
    connect(chooser, &QFileDialog::fileSelected, this, act);
    chooser->open();
}

void Transfer::chooseImport()
{
    choose(tr("Import settings"), false, {}, [this](QString const& file) { compare(file); });
}

void Transfer::chooseExport(bool isRedacted)
{
    choose(isRedacted ? tr("Export settings without personal values") : tr("Export settings with personal values"), true,
           QStringLiteral("settings.json"), [=](QString const& file) {
               m_committer.expect(m_desk.exportTo(pathOf(file), isRedacted), [this](Answer const& answer) { tellWritten(answer); });
           });
}

void Transfer::chooseBackup()
{
    choose(tr("Back up both stores"), true, QStringLiteral("settings.backup"), [this](QString const& file) {
        m_committer.expect(m_desk.backUpTo(pathOf(file)), [this](Answer const& answer) { tellWritten(answer); });
    });
}

void Transfer::compare(QString const& file)
{
    m_committer.expect(m_desk.compare(pathOf(file)), [this](Answer const& answer) {
        if (answer.comparison)
            Q_EMIT compared(answer.comparison);
        else
            m_messages.report(QStringLiteral("transfer"), answer.whyNot());
    });
}

void Transfer::tellWritten(Answer const& answer)
{
    QString const file = plainText(answer.file.string());
    QStringList lines = {answer.outcome == Outcome::written ? tr("%1 was written.").arg(file) : answer.whyNot()};
    for (std::string const& note : answer.notes)
        lines += plainText(note);
    m_messages.report(QStringLiteral("transfer"), lines.join(QLatin1Char('\n')));
}

} // namespace Inspector
