// SPDX-License-Identifier: MIT
#include <Studio/Session.h>

#include <Studio/SessionCore.h>
#include <Studio/SessionStore.h>

#include <utility>

namespace Studio {

namespace {

bool succeeds(std::function<void()> const& work)
try {
    work();
    return true;
} catch (ServerError const&) {
    return false;
}

} // namespace

Session::Session(Options const& options) : m_core(std::make_shared<SessionCore>(options)), m_thread([core = m_core] { core->run(); })
{
    // Whether it succeeds or not: `status` tells.
    succeeds([&] { m_core->awaitConnection(SessionCore::Clock::now() + m_core->firstWait()); });
}

Session::~Session()
{
    m_core->end();
    m_thread.join();
}

std::shared_ptr<Storage::LayeredStorage> Session::store(std::string const& name, std::shared_ptr<ISettingsStorage> const& local)
{
    m_core->offer(name, *local);
    return std::make_shared<SessionStore>(m_core, name, local);
}

bool Session::synchronise(std::chrono::milliseconds deadline)
{
    return succeeds([&] { m_core->synchronise(SessionCore::Clock::now() + deadline); });
}

void Session::onChange(std::function<void(std::string const& store, std::string const& key)> listener)
{
    m_core->onChange(std::move(listener));
}

Status Session::status() const { return m_core->status(); }

std::optional<Lock> Session::lockOf(std::string const& store, std::string const& key) const
{
    std::shared_ptr<Setting const> const setting = m_core->find(store, key).studio;
    if (!setting || !setting->locked)
        return std::nullopt;
    return Lock{setting->changedBy, setting->changed};
}

} // namespace Studio
