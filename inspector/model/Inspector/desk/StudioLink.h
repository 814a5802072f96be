// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Snapshot.h>

#include <Inspection/studio/StudioServer.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace Inspector {

/// The connection to a studio's server, which is made aside: until then, and where that fails, `server` is null. Internal.
///
/// The destructor waits for a connection that is being made, four seconds at most. Threads: one.
class StudioLink {
public:
    /// The library must be bound. `haveNews` is called in any thread once there is a server, and for each change at it.
    StudioLink(std::string const& connection, std::function<void()> const& haveNews);
    ~StudioLink();
    StudioLink(StudioLink const&) = delete;
    StudioLink& operator=(StudioLink const&) = delete;

    Inspection::StudioServer* server() const { return m_isOpened ? m_server.get() : nullptr; }
    /// Whether somebody has changed a value at the server since the last call.
    bool takeNews() { return m_hasNews.exchange(false); }
    /// What is known of the server.
    StudioView view() const;

private:
    void open(std::string const& connection);

    std::function<void()> const m_haveNews;
    std::unique_ptr<Inspection::StudioServer> m_server; // belongs to the thread until the end of the opening
    std::string m_error;                                // likewise
    std::atomic<bool> m_isOpened{false};
    std::atomic<bool> m_hasNews{false};
    std::thread m_thread;
};

} // namespace Inspector
