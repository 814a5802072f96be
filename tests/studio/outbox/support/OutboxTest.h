// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/outbox/Outbox.h>
#include <TestKit/TemporaryHome.h>

#include <support/OtherProgram.h>
#include <support/Process.h>

#include <Storage/StorageError.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include <sys/stat.h>

/// A test with a file for an outbox, in a folder of its own.
class OutboxTest : public testing::Test {
protected:
    using Outbox = Studio::Outbox;
    using Operation = Studio::Outbox::Operation;
    using Code = Storage::StorageError::Code;

    static constexpr char const* identity = "host=db.example\nport=5432\ndbname=studio\nuser=alice\n";

    std::filesystem::path file() const { return m_home.path() / "outbox.sqlite"; }

    /// Adds a text under a key of the store "common".
    static Operation add(Outbox& outbox, std::string const& key, std::string const& text)
    {
        return outbox.append("common", key, Studio::StoredValue{"string", text}, "epoch", 0);
    }

    /// The same as a program that ends then.
    void addAndEnd(std::string const& key, std::string const& text) const
    {
        Outbox outbox(file(), identity);
        add(outbox, key, text);
    }

    /// Such as "1:key=text 2:other", with the number of each operation in its lane; without a value it removes its key.
    static std::string text(std::vector<Operation> const& operations)
    {
        std::string result;
        for (Operation const& operation : operations)
            result += (result.empty() ? "" : " ") + std::to_string(operation.number) + ':' + operation.key +
                      (operation.value ? '=' + operation.value->bytes : "");
        return result;
    }

    /// What waits in the file once no program has it open.
    std::string pending() const { return text(Outbox(file(), identity).pending()); }

    /// The error that `work` throws. Another end fails the test.
    static Storage::StorageError errorOf(std::function<void()> const& work)
    {
        try {
            work();
        } catch (Storage::StorageError const& error) {
            return error;
        }
        ADD_FAILURE() << "nothing was thrown";
        return {Code::io, "", "", "", ""};
    }

    Storage::StorageError errorOfOpening() const
    {
        return errorOf([&] { Outbox(file(), identity); });
    }

    static std::string content(std::filesystem::path const& path)
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static unsigned mode(std::filesystem::path const& path)
    {
        struct stat status = {};
        return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    TestKit::TemporaryHome m_home;
};
