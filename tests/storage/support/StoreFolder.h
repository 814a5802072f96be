// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>
#include <TestKit/TemporaryHome.h>

#include <support/OtherProgram.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

/// A folder for stores, with functions that change their files from outside.
class StoreFolder : public testing::Test {
public:
    static std::string content(std::filesystem::path const& file)
    {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static void overwrite(std::filesystem::path const& file, std::string const& content)
    {
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream << content;
        stream.close();
        if (!stream)
            throw std::runtime_error("cannot write " + file.string());
    }

    static void makeSocket(std::filesystem::path const& file)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        file.native().copy(address.sun_path, sizeof address.sun_path - 1);
        int const descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        ::close(descriptor);
    }

    /// The text of the error that `work` throws.
    static std::string refusal(std::function<void()> const& work)
    {
        try {
            work();
        } catch (Storage::StorageError const& error) {
            return error.what();
        }
        return "nothing was thrown";
    }

    static unsigned mode(std::filesystem::path const& file)
    {
        struct stat status = {};
        if (::stat(file.c_str(), &status) != 0)
            throw std::runtime_error("cannot stat " + file.string());
        return status.st_mode & 07777;
    }

    /// How many failures this test has reported so far.
    static int failures()
    {
        testing::TestResult const& result = *testing::UnitTest::GetInstance()->current_test_info()->result();
        int count = 0;
        for (int part = 0; part < result.total_part_count(); ++part)
            count += result.GetTestPartResult(part).failed();
        return count;
    }

protected:
    /// Starts a child process at once, which does `work` after `begin`. A store that is opened in between is not inherited.
    class LaterChild {
    public:
        LaterChild(StoreFolder const& folder, std::function<std::string()> const& work)
            : m_sign(folder.path("begin")), m_child([this, work] {
                  while (!std::filesystem::exists(m_sign))
                      std::this_thread::sleep_for(std::chrono::milliseconds(1));
                  return work();
              })
        {}
        void begin() const { overwrite(m_sign, ""); }
        std::string answer() { return m_child.answer(); }

    private:
        std::filesystem::path const m_sign;
        Child m_child;
    };

    std::filesystem::path path(char const* name = "store.sqlite") const { return m_home.path() / name; }

    TestKit::TemporaryHome m_home;
};
