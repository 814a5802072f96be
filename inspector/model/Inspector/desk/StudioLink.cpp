// SPDX-License-Identifier: MIT
#include "StudioLink.h"

#include <Inspection/RowDifference.h>

#include <absl/strings/str_cat.h>

#include <stdexcept>

namespace Inspector {

StudioLink::StudioLink(std::string const& connection, std::function<void()> const& haveNews) : m_haveNews(haveNews)
{
    Inspection::roams(""); // the first look at families binds the library, which belongs to this thread
    m_thread = std::thread([this, connection] { open(connection); });
}

StudioLink::~StudioLink()
{
    m_thread.join();
    if (m_server)
        m_server->onChange({});
}

// In the thread.
void StudioLink::open(std::string const& connection)
{
    try {
        m_server = Inspection::openStudioServer(connection);
        m_server->onChange([this](std::string const&, std::string const&) {
            m_hasNews = true;
            m_haveNews();
        });
    } catch (std::exception const& error) {
        m_error = error.what();
    }
    m_isOpened = true;
    m_haveNews();
}

StudioView StudioLink::view() const
{
    if (!m_isOpened)
        return {false, std::nullopt, "the studio's server is being asked; what follows is what this workstation has"};
    if (!m_server)
        return {false, std::nullopt, m_error + "; what follows is what this workstation has"};
    Inspection::StudioStatus const status = m_server->status();
    return {status.isConnected, status.asOf, Inspection::troubleOf(status)};
}

} // namespace Inspector
