// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace Studio {

/// A host's function that hears of changes: set by any thread, called by one.
class Listener {
public:
    using Function = std::function<void(std::string const& store, std::string const& key)>;

    /// Has `function` called from now on, or nothing where it is empty. Once this returns, no call of the one before runs, but for
    /// the one that this is called from.
    void set(Function function);
    bool isSet() const;
    /// Calls the function, if there is one, with no lock held. An exception of it ends the program.
    void call(std::string const& store, std::string const& key) noexcept;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_returned;
    std::shared_ptr<Function const> m_function;
    std::shared_ptr<Function const> m_running;
    std::thread::id m_caller; // of the running call
};

} // namespace Studio
