// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <support/Process.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

/// Another process, which changes the store in `file` on request. To be made before this process opens a store or
/// starts a thread.
class OtherProcess {
public:
    explicit OtherProcess(std::filesystem::path const& file)
        : m_child([this, file] { return obey(file); }), m_orders(::fdopen(m_order.ends[1], "w")), m_answers(::fdopen(m_answer.ends[0], "r"))
    {
        ::close(m_order.ends[0]);
        ::close(m_answer.ends[1]);
    }
    ~OtherProcess()
    {
        std::fclose(m_orders);
        m_child.answer();
        std::fclose(m_answers);
    }
    OtherProcess(OtherProcess const&) = delete;
    OtherProcess& operator=(OtherProcess const&) = delete;

    /// Each returns when the change is on disk, or throws what the other process throws.
    void set(std::string const& key, std::string const& value) { order("set " + key + ' ' + value); }
    void remove(std::string const& key) { order("remove " + key); }
    /// Sets `key` to the numbers from 1 to `last`, one after the other.
    void count(std::string const& key, int last) { order("count " + key + ' ' + std::to_string(last)); }

private:
    struct Pipe {
        Pipe()
        {
            if (::pipe2(ends, O_CLOEXEC) != 0)
                throw std::system_error(errno, std::generic_category(), "pipe");
        }
        int ends[2] = {-1, -1};
    };

    static std::string line(std::FILE* from)
    {
        std::string text;
        for (int character; (character = std::fgetc(from)) != EOF && character != '\n';)
            text += static_cast<char>(character);
        return text;
    }

    static void say(std::FILE* to, std::string const& text)
    {
        std::fputs((text + '\n').c_str(), to);
        std::fflush(to);
    }

    void order(std::string const& text)
    {
        say(m_orders, text);
        if (std::string const answer = line(m_answers); answer != "done")
            throw std::runtime_error(answer);
    }

    // The other process.
    std::string obey(std::filesystem::path const& file) const
    {
        ::close(m_order.ends[1]);
        ::close(m_answer.ends[0]);
        std::FILE* const orders = ::fdopen(m_order.ends[0], "r");
        std::FILE* const answers = ::fdopen(m_answer.ends[1], "w");
        for (std::string text; !(text = line(orders)).empty();)
            say(answers, done(file, text));
        return "";
    }

    static std::string done(std::filesystem::path const& file, std::string const& text)
    try {
        Storage::SqliteStorage store(file);
        std::istringstream words(text);
        std::string verb, key, value;
        words >> verb >> key >> value;
        if (verb == "set")
            store.setString(key, value);
        else if (verb == "remove")
            store.remove(key);
        else
            for (int number = 1; number <= std::stoi(value); ++number)
                store.setInt(key, number);
        return "done";
    } catch (std::exception const& error) {
        return error.what();
    }

    Pipe m_order;
    Pipe m_answer;
    Child m_child;
    std::FILE* m_orders;
    std::FILE* m_answers;
};
