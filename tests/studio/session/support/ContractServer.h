// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/ForwardingStorage.h>

#include <studio/session/support/SessionTest.h>

#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <utility>

/// The server of a `SessionTest`, for the tests of the contract, which have a fixture of their own.
class SharedServer : public SessionTest {
public:
    SharedServer() { startServer(); }
    using SessionTest::connectionOf;

private:
    void TestBody() override {}
};

/// Shows at each read what all programs had stored before.
class SynchronisedStore final : public Storage::ForwardingStorage {
public:
    explicit SynchronisedStore(std::shared_ptr<Program> program) : ForwardingStorage(program->store), m_program(std::move(program)) {}

private:
    ISettingsStorage& target() const override
    {
        EXPECT_TRUE(m_program->session.synchronise(std::chrono::seconds(60)));
        return ForwardingStorage::target();
    }

    std::shared_ptr<Program> m_program;
};
