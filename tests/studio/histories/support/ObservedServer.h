// SPDX-License-Identifier: MIT
#pragma once

#include "Judge.h"

#include <studio/session/support/SessionTest.h>

#include <optional>
#include <string>

/// A server that writes down what becomes of each value.
class ObservedServer : public SessionTest {
protected:
    void startServer() override;

    /// Connects to the server, which has been away.
    void observe();
    /// Makes the store, and what was written down, empty.
    void forgetAll() const;
    /// How many changes the server has stored; none while nobody observes it.
    Step::Known known(std::string const& user) const;
    /// All that was written down.
    Record record() const;

    std::optional<Login> m_observer;
};
