// SPDX-License-Identifier: MIT
#include <Inspector/Desk.h>

#include "desk/DeskThread.h"

#include <QPointer>

#include <utility>

namespace Inspector {

namespace {

std::filesystem::path madeAbsolute(std::filesystem::path const& file)
{
    std::error_code error;
    std::filesystem::path const result = std::filesystem::absolute(file, error);
    return error ? file : result;
}

} // namespace

Desk::Desk(Place const& place, QObject* parent)
    : QObject(parent), m_thread(std::make_unique<DeskThread>(place, [this] {
          // By name: a function object would be made on one thread and destroyed on the other, inside Qt, where the thread
          // sanitizer does not see what orders the two.
          QMetaObject::invokeMethod(this, "deliver", Qt::QueuedConnection);
      }))
{}

Desk::~Desk() = default;

void Desk::setPause(std::chrono::milliseconds longest) { m_thread->setPause(longest); }

void Desk::lookAgain() { m_thread->lookAgain(); }

int Desk::commit(Commit const& commit)
{
    m_thread->add({++m_lastNumber, commit, m_isAllowed, m_mayGoWithoutBackup});
    return m_lastNumber;
}

void Desk::cancel(int number) { m_thread->cancel(number); }

int Desk::compare(std::filesystem::path const& file)
{
    m_thread->add({++m_lastNumber, Comparing{madeAbsolute(file)}});
    return m_lastNumber;
}

int Desk::exportTo(std::filesystem::path const& file, bool isRedacted)
{
    m_thread->add({++m_lastNumber, Exporting{madeAbsolute(file), isRedacted}});
    return m_lastNumber;
}

int Desk::backUpTo(std::filesystem::path const& file)
{
    m_thread->add({++m_lastNumber, BackingUp{madeAbsolute(file)}});
    return m_lastNumber;
}

int Desk::checkFolder(QString const& path)
{
    m_thread->check(++m_lastNumber, path);
    return m_lastNumber;
}

// Each signal may be the last, as its receivers may destroy this object.
void Desk::deliver()
{
    QPointer<Desk> const self(this);
    News const news = m_thread->takeNews();
    if (std::exchange(m_told, news.snapshot) != news.snapshot)
        Q_EMIT looked(news.snapshot);
    for (int const number : news.waiting)
        if (self)
            Q_EMIT waits(number);
    for (Answer const& answer : news.answers)
        if (self)
            Q_EMIT answered(answer);
    for (auto const& [number, status] : news.folders)
        if (self)
            Q_EMIT folderChecked(number, status);
}

} // namespace Inspector
