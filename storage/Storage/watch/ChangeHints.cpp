// SPDX-License-Identifier: MIT
#include "ChangeHints.h"

#include "RealName.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr std::uint32_t changes = IN_CREATE | IN_MODIFY | IN_MOVED_FROM | IN_MOVED_TO | IN_DELETE | IN_ONLYDIR;

int millisecondsUntil(Clock::time_point end)
{
    return static_cast<int>(std::max<milliseconds::rep>(std::chrono::ceil<milliseconds>(end - Clock::now()).count(), 0));
}

bool isReadable(int descriptor, int waiting)
{
    pollfd awaited = {descriptor, POLLIN, 0};
    return ::poll(&awaited, 1, waiting) > 0;
}

// The file itself, its journal, or all that the folder holds.
bool concerns(inotify_event const& event, std::vector<std::string> const& names)
{
    std::string const changed = event.len > 0 ? event.name : "";
    auto const begins = [&](std::string const& name) { return changed.compare(0, name.size(), name) == 0; };
    return changed.empty() || std::any_of(names.begin(), names.end(), begins);
}

} // namespace

ChangeHints::ChangeHints(std::vector<fs::path> files) : m_files(std::move(files)), m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    followFolders();
}

ChangeHints::~ChangeHints()
{
    if (m_inotify >= 0)
        ::close(m_inotify);
}

// Folders appear, move and go, so this is repeated; to watch a folder again changes nothing.
void ChangeHints::followFolders()
{
    std::set<int> const earlier = std::exchange(m_folders, {});
    m_names.clear();
    for (fs::path const& file : m_files) {
        fs::path const real = realName(file);
        m_names.push_back(real.filename().string());
        if (int const folder = ::inotify_add_watch(m_inotify, real.parent_path().c_str(), changes); folder >= 0)
            m_folders.insert(folder);
    }
    for (int const folder : earlier)
        if (m_folders.count(folder) == 0)
            ::inotify_rm_watch(m_inotify, folder);
}

bool ChangeHints::hasHint() const
{
    alignas(inotify_event) char events[4096];
    bool isHint = false;
    for (ssize_t size; (size = ::read(m_inotify, events, sizeof events)) > 0;)
        for (char const* at = events; at < events + size;) {
            auto const& event = *reinterpret_cast<inotify_event const*>(at);
            isHint = isHint || concerns(event, m_names);
            at += sizeof event + event.len;
        }
    return isHint;
}

bool ChangeHints::wait(milliseconds atMost, int other)
{
    followFolders();
    Clock::time_point const end = Clock::now() + atMost;
    for (;;) {
        pollfd awaited[] = {{m_inotify, POLLIN, 0}, {other, POLLIN, 0}};
        if (::poll(awaited, 2, millisecondsUntil(end)) <= 0)
            return false;
        if (awaited[1].revents != 0)
            return true;
        if (hasHint())
            break;
    }
    bool const isOther = isReadable(other, 2);
    hasHint();
    return isOther;
}

} // namespace Storage
