// SPDX-License-Identifier: MIT
#include <Window/editors/FolderLook.h>

#include <QDirIterator>
#include <QFileInfo>

#include <chrono>
#include <mutex>
#include <thread>

namespace Inspector {

// What a thread that outlives the object still reaches.
struct FolderLook::Mailbox {
    std::mutex turns;
    FolderLook* receiver;
};

namespace {

constexpr std::chrono::milliseconds pauseOfHands{250};
constexpr int mostNeighbours = 1000;

QStringList neighboursOf(QString const& path)
{
    QStringList result;
    QString const folder = path.left(path.lastIndexOf(QLatin1Char('/')) + 1);
    if (!folder.startsWith(QLatin1Char('/')))
        return result;
    for (QDirIterator each(folder, QDir::Dirs | QDir::NoDotAndDotDot); each.hasNext() && result.size() < mostNeighbours;)
        result += each.next();
    result.sort();
    return result;
}

} // namespace

FolderLook::FolderLook(bool isWritten, QObject* parent) : QObject(parent), m_isWritten(isWritten), m_mailbox(std::make_shared<Mailbox>())
{
    m_mailbox->receiver = this;
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &FolderLook::begin);
}

FolderLook::~FolderLook()
{
    std::lock_guard<std::mutex> const turn(m_mailbox->turns);
    m_mailbox->receiver = nullptr;
}

void FolderLook::ask(QString const& path)
{
    m_asked = path;
    m_pause.start(pauseOfHands);
}

// One look at a time: a path that hangs must not take a thread for each letter.
void FolderLook::begin()
{
    if (std::exchange(m_isLooking, true))
        return;
    std::thread([mailbox = m_mailbox, path = m_asked, isWritten = m_isWritten] {
        Inspection::PathStatus const status = isWritten ? Inspection::writtenFolderStatus(path) : Inspection::readPathStatus(path);
        QStringList const neighbours = neighboursOf(path);
        std::lock_guard<std::mutex> const turn(mailbox->turns);
        if (FolderLook* const self = mailbox->receiver)
            QMetaObject::invokeMethod(
                self, [=] { self->end(path, status, neighbours); }, Qt::QueuedConnection);
    }).detach();
}

void FolderLook::end(QString const& path, Inspection::PathStatus const& status, QStringList const& neighbours)
{
    m_isLooking = false;
    if (path == m_asked)
        Q_EMIT seen(path, status, neighbours);
    else if (!m_pause.isActive())
        begin();
}

} // namespace Inspector
