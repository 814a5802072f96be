// SPDX-License-Identifier: MIT
#include <Studio/SessionStore.h>

#include <utility>

namespace Studio {

using Code = Storage::StorageError::Code;
using Reason = ServerError::Reason;

namespace {

constexpr char const* toChange = "change a setting";
constexpr std::size_t longestName = 255;

Code codeOf(Reason reason)
{
    switch (reason) {
    case Reason::locked:
        return Code::locked;
    case Reason::tooLarge:
        return Code::tooLarge;
    case Reason::full:
        return Code::full;
    case Reason::readOnly:
        return Code::readOnly;
    case Reason::busy:
        return Code::busy;
    case Reason::malformed:
    case Reason::insecure:
    case Reason::login:
    case Reason::denied:
    case Reason::outdated:
        return Code::access;
    case Reason::rejected:
        return Code::io;
    // An ending program, too: the change may be tried again.
    case Reason::unreachable:
    case Reason::timedOut:
    case Reason::lost:
    case Reason::interrupted:
        break;
    }
    return Code::unreachable;
}

SessionStore::LayeredRow layeredRow(Storage::Layer layer, std::string const& key, Setting const& setting)
{
    bool const isReadable = !std::holds_alternative<std::monostate>(setting.value);
    return {layer,
            {key, isReadable ? std::string(storedValue(setting.value).kind) : setting.kind, setting.value, setting.changed},
            setting.changedBy};
}

} // namespace

Storage::StorageError storageError(ServerError const& error, std::string const& attempt)
{
    return {codeOf(error.reason()), error.host(), attempt, error.explanation(), error.remedy()};
}

SessionStore::SessionStore(std::shared_ptr<SessionCore> core, std::string name, std::shared_ptr<ISettingsStorage> local)
    : m_core(std::move(core)), m_name(std::move(name)), m_local(std::move(local)), m_shown(m_core->shown(m_name))
{}

// Asked for keys that stay on the workstation, too: the server sees no change of theirs that it could refuse.
void SessionStore::demandUnlocked(std::string const& key) const
{
    std::shared_ptr<Setting const> const studio = m_core->find(m_name, key).studio;
    if (studio && studio->locked)
        throw storageError(ServerError(Reason::locked, m_core->host()), toChange);
}

void SessionStore::change(std::string const& key, std::optional<Value> const& value)
try {
    if (m_name.size() > longestName || key.size() > longestKey || (value && storedValue(*value).bytes.size() > longestValue))
        throw ServerError(Reason::tooLarge, m_core->host());
    m_core->change(m_name, key, value);
} catch (ServerError const& error) {
    throw storageError(error, toChange);
}

void SessionStore::setBool(std::string const& key, bool value)
{
    demandUnlocked(key);
    m_core->roams(key) ? change(key, value) : m_local->setBool(key, value);
}

void SessionStore::setInt(std::string const& key, int value)
{
    demandUnlocked(key);
    m_core->roams(key) ? change(key, value) : m_local->setInt(key, value);
}

void SessionStore::setString(std::string const& key, std::string const& value)
{
    demandUnlocked(key);
    m_core->roams(key) ? change(key, value) : m_local->setString(key, value);
}

void SessionStore::setBytes(std::string const& key, std::vector<unsigned char> const& value)
{
    demandUnlocked(key);
    m_core->roams(key) ? change(key, value) : m_local->setBytes(key, value);
}

void SessionStore::remove(std::string const& key)
{
    demandUnlocked(key);
    m_core->roams(key) ? change(key, std::nullopt) : m_local->remove(key);
}

std::vector<SessionStore::LayeredRow> SessionStore::layersOf(std::string const& key) const
{
    auto const [user, studio] = m_core->find(m_name, key);
    bool const isLocked = studio && studio->locked;
    std::vector<LayeredRow> layers;
    if (isLocked)
        layers.push_back(layeredRow(Storage::Layer::locked, key, *studio));
    if (m_core->roams(key) && user)
        layers.push_back(layeredRow(Storage::Layer::user, key, *user));
    if (!m_core->roams(key) && m_local->contains(key))
        layers.push_back({Storage::Layer::local, {key, {}, {}, {}}, {}});
    if (studio && !isLocked)
        layers.push_back(layeredRow(Storage::Layer::studio, key, *studio));
    return layers;
}

std::vector<std::string> SessionStore::sharedKeys() const
{
    std::set<std::string> const keys = m_core->keys(m_name);
    return {keys.begin(), keys.end()};
}

// What `look` returns of what the server has for the key; of null where the local store decides, or nobody has a value.
template <typename Look>
auto SessionStore::shared(std::string const& key, Look const& look) const
{
    if (m_core->roams(key))
        return m_core->read(m_shown, key, [&](Snapshot::Found const& found) {
            bool const isStudios = !found.user || (found.studio && found.studio->locked);
            return look(isStudios ? found.studio.get() : found.user.get());
        });
    // The local store is asked without the lock of the snapshot.
    std::shared_ptr<Setting const> const studio = m_core->find(m_name, key).studio;
    return look(studio && (studio->locked || !m_local->contains(key)) ? studio.get() : nullptr);
}

// A value of another kind, or an unreadable one, covers what is below it all the same.
template <typename T, typename Read>
T SessionStore::get(std::string const& key, T const& defaultValue, Read const& readLocal) const
{
    bool isShared = false;
    T result = shared(key, [&](Setting const* setting) {
        isShared = setting != nullptr;
        T const* const value = setting ? std::get_if<T>(&setting->value) : nullptr;
        return value ? *value : defaultValue;
    });
    return isShared || m_core->roams(key) ? result : readLocal();
}

// A value of the studio's counts, as a read gives it.
bool SessionStore::contains(std::string const& key) const
{
    return shared(key, [](Setting const* setting) { return setting != nullptr; }) || (!m_core->roams(key) && m_local->contains(key));
}

bool SessionStore::getBool(std::string const& key, bool defaultValue) const
{
    return get(key, defaultValue, [&] { return m_local->getBool(key, defaultValue); });
}

int SessionStore::getInt(std::string const& key, int defaultValue) const
{
    return get(key, defaultValue, [&] { return m_local->getInt(key, defaultValue); });
}

std::string SessionStore::getString(std::string const& key, std::string const& defaultValue) const
{
    return get(key, defaultValue, [&] { return m_local->getString(key, defaultValue); });
}

std::vector<unsigned char> SessionStore::getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const
{
    return get(key, defaultValue, [&] { return m_local->getBytes(key, defaultValue); });
}

} // namespace Studio
