// SPDX-License-Identifier: MIT
//
// Waiting for a change of a store. For the rooms of this project; not installed.
#pragma once

#include <chrono>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace Storage {

/// Lets a thread wait until a file, or its journal, may have changed. A hint only: inotify sees no change that another
/// machine makes, none where a link was turned elsewhere, and nothing at all where its limits are reached. So the waiter
/// looks at the file after each wait, and waits for no longer than a change may stay unseen.
class ChangeHints {
public:
    explicit ChangeHints(std::vector<std::filesystem::path> files);
    ~ChangeHints();
    ChangeHints(ChangeHints const&) = delete;
    ChangeHints& operator=(ChangeHints const&) = delete;

    /// Waits for a hint, at most for `atMost`, and after a hint for 2 ms more, as one change gives several. Returns at once,
    /// with true, when the descriptor `other` is readable.
    bool wait(std::chrono::milliseconds atMost, int other);

private:
    void followFolders();
    bool hasHint() const;

    std::vector<std::filesystem::path> m_files;
    std::vector<std::string> m_names; // the last part of each file's real name
    std::set<int> m_folders;          // inotify's descriptors of the watched folders
    int m_inotify = -1;               // -1 where inotify cannot be used: nothing but the time ends a wait
};

} // namespace Storage
