// SPDX-License-Identifier: MIT
//
// studio-writer CONNECTION FIRST
//
// A program that changes settings of its user until SIGTERM, with a pause only after a failure: two keys of its own, and one that it shares
// with others. The values count up from FIRST. Before each change it prints "doubted KEY VALUE", and once the change has returned "changed
// KEY VALUE", each in one write.
#include <Storage/StorageError.h>
#include <Studio/Session.h>
#include <TestKit/MemoryStorage.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <string>
#include <thread>

#include <unistd.h>

namespace {

volatile std::sig_atomic_t ends = 0;

void say(std::string const& line)
{
    if (::write(STDOUT_FILENO, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::abort();
}

void change(ISettingsStorage& store, std::string const& key, int value)
{
    std::string const what = key + ' ' + std::to_string(value) + '\n';
    say("doubted " + what);
    try {
        store.setInt(key, value);
        say("changed " + what);
    } catch (Storage::StorageError const& error) {
        // It goes on with another change, as an editor does.
        if (error.code() != Storage::StorageError::Code::unreachable)
            say("refused " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
}

} // namespace

int main(int, char** argv)
{
    std::signal(SIGTERM, [](int) { ends = 1; });
    Studio::Session::Options options{argv[1], [](std::string const&) { return true; }};
    options.worksOffline = false; // what it says of a change is what the server answered
    Studio::Session session(options);
    auto const store = session.store("common", std::make_shared<TestKit::MemoryStorage>());
    int const first = std::atoi(argv[2]);
    std::string const keys[] = {"own " + std::to_string(first), "other " + std::to_string(first), "shared"};
    for (int value = first; !ends; ++value)
        change(*store, keys[value % 3], value);
}
