// SPDX-License-Identifier: MIT
#include "FolderLooks.h"

#include <tuple>

using Inspection::PathStatus;

namespace Inspector {

namespace {

auto parts(PathStatus const& status)
{
    return std::tie(status.exists, status.isWritable, status.isUsable, status.reason, status.detail, status.above);
}

PathStatus unanswered()
{
    PathStatus status;
    status.reason = Inspection::PathReason::unanswered;
    return status;
}

} // namespace

PathStatus FolderLooks::status(QString const& path, Inspection::PathUse use)
{
    Asked const asked = {path, use};
    Known& known = m_known.try_emplace(asked, Known{unanswered()}).first->second;
    if (known.round == m_round || known.isAsked)
        return known.status;
    known.round = m_round;
    known.isAsked = true;
    m_calls.add([this, asked]() -> SlowCalls::Result {
        PathStatus const found = Inspection::statusOnDisk(asked.first, asked.second);
        return [this, asked, found] { take(asked, found); };
    });
    return known.status;
}

// What nobody has asked for in the last round is forgotten.
void FolderLooks::renew()
{
    for (auto known = m_known.begin(); known != m_known.end();)
        known = known->second.round < m_round && !known->second.isAsked ? m_known.erase(known) : std::next(known);
    ++m_round;
}

void FolderLooks::take(Asked const& asked, PathStatus const& status)
{
    Known& known = m_known[asked];
    known.isAsked = false;
    m_hasNews = m_hasNews || parts(known.status) != parts(status);
    known.status = status;
}

} // namespace Inspector
