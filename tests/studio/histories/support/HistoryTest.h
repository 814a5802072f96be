// SPDX-License-Identifier: MIT
#pragma once

#include "ObservedServer.h"

#include <studio/support/Proxy.h>

#include <deque>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

/// A place where a user works: a program, the network between it and the server, and what the program did and saw.
struct Workstation {
    Workstation(std::string name, std::string const& socket) : user(std::move(name)), network(socket) {}

    std::string user;
    Proxy network;
    std::optional<Program> program;
    std::vector<Step> steps;
    /// Whether its connection has not been touched since the program last began or synchronised.
    bool isCalm = false;
    /// Whether its user was not forgotten since the program began: its next change makes a new connection.
    bool isKnown = false;
};

/// Random histories: two programs of alice and one of bob, an administrator of the studio, and everything that fails. Steps follow
/// each other, but for the changes of two programs at once.
class HistoryTest : public ObservedServer {
protected:
    /// Does `steps` random steps from a seed and returns the flaws of the history.
    std::vector<std::string> flawsOfHistory(unsigned seed, int steps);

private:
    void beginHistory(unsigned seed);
    void endHistory();
    void takeStep();
    std::vector<std::string> judge() const;

    void begin(Workstation& at);
    void change(Workstation& at, std::string const& key, std::optional<int> value);
    void changeAtOnce(Workstation& one, Workstation& other);
    void read(Workstation& at, std::string const& key);
    bool synchronise(Workstation& at);
    void cut(Workstation& at);
    void changeStudio();
    void disturbAll();
    void restartServer();
    void endConnections();
    void forgetUser();

    Login const& administrator();
    unsigned upTo(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }
    std::string anyKey() { return std::string(1, static_cast<char>('a' + upTo(3))); }
    Workstation& any() { return m_stations[upTo(3)]; }
    std::optional<int> anyValue() { return upTo(5) == 0 ? std::nullopt : std::optional(++m_value); }

    std::mt19937 m_random;
    int m_value = 0;
    long long m_operation = 0;
    std::deque<Workstation> m_stations;
    std::optional<Login> m_administrator;
};
