// SPDX-License-Identifier: MIT
//
// What it takes to load the library: the start of a process that is linked to it, and dlopen in a process that has Qt
// already. The floor is an empty library that asks for the same libraries. And what the command line takes to read one
// value, beside the command lines of KConfig and GSettings: its floor is an empty program that is linked to the same libraries.
#include <support/Bench.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double seconds(timeval const& time) { return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec); }

// Runs the program with its standard output in a file. Returns the processor time that it took, in seconds.
double cpuTimeOf(std::vector<std::string> words, std::string const& output = "/dev/null")
{
    std::vector<char*> arguments;
    for (std::string& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t pid = 0;
    Bench::require(::posix_spawnp(&pid, words[0].c_str(), &actions, nullptr, arguments.data(), environ) == 0, "cannot start " + words[0]);
    ::posix_spawn_file_actions_destroy(&actions);
    int status = -1;
    rusage used = {};
    ::wait4(pid, &status, 0, &used);
    Bench::require(status == 0, words[0] + " failed");
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

void startAndWait(std::string const& program) { cpuTimeOf({program}); }

// A folder with both stores, as a user has them, and with the same value for the other command lines.
class Stores {
public:
    Stores()
    {
        std::string name = (std::filesystem::temp_directory_path() / "bench-load-XXXXXX").string();
        Bench::require(::mkdtemp(name.data()) != nullptr, "cannot make a folder");
        m_folder = name;
        cpuTimeOf({TOOL, "--home", name, "set", "autoDownloadUpdates", "true"});
        cpuTimeOf({TOOL, "--home", name, "set", "audioRecordPath", "/"});
        std::ofstream(m_folder / "bench.rc") << "[updates]\nautomatic=true\n";
        std::ofstream(m_folder / "bench.gschema.xml")
            << R"(<schemalist><schema id="bench.updates" path="/bench/"><key name="automatic" type="b"><default>true</default></key></schema></schemalist>)";
        cpuTimeOf({"glib-compile-schemas", name});
        ::setenv("GSETTINGS_BACKEND", "keyfile", 1); // a file, as no service runs that keeps values
        ::setenv("XDG_CONFIG_HOME", name.c_str(), 1);
    }
    ~Stores() { std::filesystem::remove_all(m_folder); }
    Stores(Stores const&) = delete;
    Stores& operator=(Stores const&) = delete;

    std::filesystem::path const& folder() const { return m_folder; }

private:
    std::filesystem::path m_folder;
};

// The names of the libraries that the loader maps for the program.
std::set<std::string> librariesOf(std::string const& program, std::filesystem::path const& output)
{
    ::setenv("LD_TRACE_LOADED_OBJECTS", "1", 1);
    cpuTimeOf({program}, output.string());
    ::unsetenv("LD_TRACE_LOADED_OBJECTS");
    std::set<std::string> result;
    std::ifstream file(output);
    for (std::string name, rest; file >> name && std::getline(file, rest);)
        result.insert(name);
    return result;
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

// The processor time of a program, and by turns that of the empty one.
void addCpuTime(std::string const& row, std::string const& side, std::vector<std::string> const& words)
{
    auto const run = [words](benchmark::State& state) {
        double inFloors = 0;
        for ([[maybe_unused]] auto const once : state) {
            state.SetIterationTime(cpuTimeOf(words));
            inFloors += cpuTimeOf({EMPTY_TOOL});
        }
        state.counters["floor"] = benchmark::Counter(1e9 * inFloors, benchmark::Counter::kAvgIterations);
    };
    benchmark::RegisterBenchmark((row + '/' + side).c_str(), run)->UseManualTime();
}

Bench::Registration const registration([] {
    Bench::require(Loaded(LIBRARY).needed() == Loaded(EMPTY_LIBRARY).needed(), "the empty library asks for other libraries");
    Bench::require(!isLoaded(LIBRARY) && !isLoaded(EMPTY_LIBRARY), "a library stays loaded");
    std::string const start = "start of a process";
    Bench::addRun(start, "library", [](benchmark::State& state) { Bench::repeat(state, [] { startAndWait(START); }); });
    Bench::addRun(start, "floor", [](benchmark::State& state) { Bench::repeat(state, [] { startAndWait(EMPTY_START); }); });
    static Stores const stores;
    std::set<std::string> const libraries = librariesOf(TOOL, stores.folder() / "libraries");
    Bench::require(!libraries.empty() && libraries == librariesOf(EMPTY_TOOL, stores.folder() / "libraries"),
                   "the empty program has other libraries");
    std::string const get = "processor time of get";
    std::string const folder = stores.folder().string();
    addCpuTime(get, "tool", {TOOL, "--home", folder, "get", "audioRecordPath"});
    addCpuTime(get, "kreadconfig5", {"kreadconfig5", "--file", folder + "/bench.rc", "--group", "updates", "--key", "automatic"});
    addCpuTime(get, "gsettings", {"gsettings", "--schemadir", folder, "get", "bench.updates", "automatic"});
    std::string const load = "loading into a process with Qt";
    Bench::addRun(load, "library", [](benchmark::State& state) { Bench::repeat(state, [] { Loaded const once(LIBRARY); }); });
    Bench::addRun(load, "floor", [](benchmark::State& state) { Bench::repeat(state, [] { Loaded const once(EMPTY_LIBRARY); }); });
});

} // namespace
