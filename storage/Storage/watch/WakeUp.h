// SPDX-License-Identifier: MIT
//
// Waking a thread that waits in `ChangeHints::wait`. For the rooms of this project; not installed.
#pragma once

namespace Storage {

/// A descriptor that is readable from `wake` on until `clear`. Any thread may call, at any time.
class WakeUp {
public:
    /// Throws `std::system_error` where the process can have no further descriptor.
    WakeUp();
    ~WakeUp();
    WakeUp(WakeUp const&) = delete;
    WakeUp& operator=(WakeUp const&) = delete;

    void wake() const;
    void clear() const;
    /// Waits for `wake`, however long that takes.
    void wait() const;
    int descriptor() const { return m_descriptor; }

private:
    int const m_descriptor;
};

} // namespace Storage
