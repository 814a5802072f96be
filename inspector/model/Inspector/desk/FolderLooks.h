// SPDX-License-Identifier: MIT
#pragma once

#include "SlowCalls.h"

#include <Inspection/PathStatus.h>

#include <map>
#include <utility>

namespace Inspector {

/// What is known of the folders that settings and locations lead to. The system is asked aside, so that nobody waits for it. One
/// thread. Internal.
class FolderLooks {
public:
    explicit FolderLooks(SlowCalls& calls) : m_calls(calls) {}

    /// What is known of `path`, `PathReason::unanswered` at first. Has it looked at, where that was not done since `renew`.
    Inspection::PathStatus status(QString const& path, Inspection::PathUse use);
    /// Has all that is asked for from now on looked at once more.
    void renew();
    /// Whether a look found another status than what was known.
    bool takeNews() { return std::exchange(m_hasNews, false); }

private:
    using Asked = std::pair<QString, Inspection::PathUse>;

    struct Known {
        Inspection::PathStatus status;
        int round = 0; // of the last look
        bool isAsked = false;
    };

    void take(Asked const& asked, Inspection::PathStatus const& status);

    SlowCalls& m_calls;
    std::map<Asked, Known> m_known;
    int m_round = 1;
    bool m_hasNews = false;
};

} // namespace Inspector
