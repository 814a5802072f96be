// SPDX-License-Identifier: MIT
#include <Studio/Listener.h>

#include <utility>

namespace Studio {

// What the earlier function holds is destroyed without the lock: it is the host's.
void Listener::set(Function function)
{
    auto next = function ? std::make_shared<Function const>(std::move(function)) : nullptr;
    std::unique_lock lock(m_mutex);
    m_function.swap(next);
    m_returned.wait(lock, [&] { return !m_running || m_running != next || m_caller == std::this_thread::get_id(); });
}

bool Listener::isSet() const
{
    std::lock_guard const lock(m_mutex);
    return m_function != nullptr;
}

void Listener::call(std::string const& store, std::string const& key) noexcept
{
    std::unique_lock lock(m_mutex);
    if (!m_function)
        return;
    m_running = m_function;
    m_caller = std::this_thread::get_id();
    std::shared_ptr<Function const> const function = m_running;
    lock.unlock();
    (*function)(store, key);
    lock.lock();
    m_running.reset();
    lock.unlock();
    m_returned.notify_all();
}

} // namespace Studio
