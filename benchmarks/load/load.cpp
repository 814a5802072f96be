// SPDX-License-Identifier: MIT
//
// What it takes to load the library: the start of a process that is linked to it, and dlopen in a process that has Qt
// already. The floor is an empty library that asks for the same libraries.
#include <support/Bench.h>

#include <set>
#include <vector>

#include <dlfcn.h>
#include <link.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

void startAndWait(std::string program)
{
    char* const arguments[] = {program.data(), nullptr};
    pid_t pid = 0;
    int status = -1;
    Bench::require(::posix_spawn(&pid, program.c_str(), nullptr, nullptr, arguments, environ) == 0, "cannot start " + program);
    ::waitpid(pid, &status, 0);
    Bench::require(status == 0, program + " failed");
}

class Loaded {
public:
    explicit Loaded(char const* file) : m_handle(::dlopen(file, RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_handle)
            Bench::require(false, ::dlerror());
    }
    ~Loaded() { ::dlclose(m_handle); }
    Loaded(Loaded const&) = delete;
    Loaded& operator=(Loaded const&) = delete;

    // The libraries that it asks for.
    std::set<std::string> needed() const
    {
        link_map* map = nullptr;
        ::dlinfo(m_handle, RTLD_DI_LINKMAP, &map);
        char const* names = nullptr;
        for (auto const* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry)
            if (entry->d_tag == DT_STRTAB)
                names = reinterpret_cast<char const*>(entry->d_un.d_ptr);
        std::set<std::string> result;
        for (auto const* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry)
            if (entry->d_tag == DT_NEEDED)
                result.insert(names + entry->d_un.d_val);
        return result;
    }

private:
    void* m_handle;
};

bool isLoaded(char const* file)
{
    void* const handle = ::dlopen(file, RTLD_NOW | RTLD_NOLOAD);
    if (handle)
        ::dlclose(handle);
    return handle;
}

Bench::Registration const registration([] {
    Bench::require(Loaded(LIBRARY).needed() == Loaded(EMPTY_LIBRARY).needed(), "the empty library asks for other libraries");
    Bench::require(!isLoaded(LIBRARY) && !isLoaded(EMPTY_LIBRARY), "a library stays loaded");
    std::string const start = "start of a process";
    Bench::addRun(start, "library", [](benchmark::State& state) { Bench::repeat(state, [] { startAndWait(START); }); });
    Bench::addRun(start, "floor", [](benchmark::State& state) { Bench::repeat(state, [] { startAndWait(EMPTY_START); }); });
    std::string const load = "loading into a process with Qt";
    Bench::addRun(load, "library", [](benchmark::State& state) { Bench::repeat(state, [] { Loaded const once(LIBRARY); }); });
    Bench::addRun(load, "floor", [](benchmark::State& state) { Bench::repeat(state, [] { Loaded const once(EMPTY_LIBRARY); }); });
});

} // namespace
