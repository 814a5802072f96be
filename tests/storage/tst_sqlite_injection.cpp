// SPDX-License-Identifier: MIT
//
// Every call of the system that a store makes, refused in turn: each refusal is named, nothing is lost by it, and the
// same store works again afterwards.
#include <storage/support/FaultySystem.h>
#include <storage/support/Ledger.h>
#include <storage/support/StoreFolder.h>
#include <storage/support/Traced.h>

#include <support/Named.h>
#include <support/Process.h>
#include <support/Tally.h>

#include <algorithm>
#include <functional>
#include <map>
#include <set>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using Storage::SqliteStorage;
using Storage::StorageError;

// The thread sanitizer has nothing to find in one thread, so two errors are enough for it.
#ifdef UNDER_THREAD_SANITIZER
constexpr bool isSlow = true;
#else
constexpr bool isSlow = false;
#endif

constexpr int fewestInjections = isSlow ? 21 : 51;

struct Refusal {
    char const* meaning;
    FaultySystem::Fault fault;
};

std::vector<std::string> const writing{"write", "pwrite64"};
std::vector<std::string> const reading{"read", "pread64"};

std::vector<Refusal> refusals()
{
    std::vector<Refusal> result;
    std::pair<char const*, int> const errors[] = {
        {"ENOSPC", ENOSPC}, {"EIO", EIO}, {"EACCES", EACCES}, {"EROFS", EROFS}, {"EMFILE", EMFILE}};
    for (auto const& [meaning, error] : errors) {
        if (isSlow && error != EIO && error != EACCES)
            continue;
        result.push_back({meaning, {error, false, false, {}}});
        result.push_back({meaning, {error, false, true, {}}});
    }
    result.push_back({"short write", {0, true, false, writing}});
    result.push_back({"short write, then no space", {ENOSPC, true, false, writing}});
    result.push_back({"short write, then no space until told", {ENOSPC, true, true, writing}});
    result.push_back({"short read", {0, true, false, reading}});
    result.push_back({"short read, then EIO", {EIO, true, false, reading}});
    return result;
}

// What a store's files hold, to bring them back.
struct Files {
    std::string store;
    std::string journal;
};

class Injection : public StoreFolder {
protected:
    std::filesystem::path file() const { return path("folder") / "store.sqlite"; }
    std::filesystem::path journal() const { return path("folder") / "store.sqlite-journal"; }

    std::unique_ptr<SqliteStorage> open() const
    {
        SqliteStorage::Options impatient;
        impatient.busyTimeout = std::chrono::milliseconds(2); // a refused lock is waited for
        return std::make_unique<SqliteStorage>(file(), impatient);
    }

    void bring(Files const& files) const
    {
        bring(file(), files.store);
        bring(journal(), files.journal);
    }

    // In its place, where an open store sees it, and not emptied before, which some file systems would then wait for.
    static void bring(std::filesystem::path const& file, std::string const& content)
    {
        std::ofstream(file, std::ios::app).close();
        std::fstream(file, std::ios::in | std::ios::out | std::ios::binary) << content;
        std::filesystem::resize_file(file, content.size());
    }

    // A store with values; the next change of key 4 is a removal.
    void fill(Ledger& ledger) const
    {
        auto const store = open();
        ledger.fill(*store);
        for (int change = 0; change < 3; ++change)
            ledger.change(*store, 4);
    }

    // A store with values, and a change that a process was killed in, when only a part of it was in the file.
    Files interrupted(Ledger& ledger) const
    {
        fill(ledger);
        int parts = 0;
        {
            auto const store = open();
            Ledger copy(ledger);
            Files const before{content(file()), content(journal())};
            FaultySystem::watch();
            copy.change(*store, 2);
            FaultySystem::rest();
            for (std::string const& call : FaultySystem::calls())
                parts += call == "pwrite64";
            bring(before);
        }
        inChild([&]() -> std::string {
            auto const store = open();
            FaultySystem::killBefore("pwrite64", parts);
            ledger.change(*store, 2);
            return "";
        });
        Files const files{content(file()), content(journal())};
        EXPECT_GT(files.journal.size(), 512u) << "the journal is there to be rolled back";
        return files;
    }

    // Whether a lock is left on the file. Asked as another process would be answered.
    bool isLocked() const
    {
        int const descriptor = ::open(file().c_str(), O_RDWR | O_CLOEXEC);
        struct flock lock = {};
        lock.l_type = F_WRLCK;
        ::fcntl(descriptor, F_OFD_GETLK, &lock);
        ::close(descriptor);
        return lock.l_type != F_UNLCK;
    }

    // The error's text where there was one; what else went wrong is reported.
    static std::string attempt(std::function<void()> const& act)
    {
        try {
            act();
        } catch (StorageError const& error) {
            return error.what();
        } catch (std::exception const& error) {
            ADD_FAILURE() << "not a StorageError: " << error.what();
        }
        return "";
    }

    void expectClear(std::string const& text) const
    {
        EXPECT_EQ(text.compare(0, m_home.path().native().size(), m_home.path().native()), 0) << text;
        EXPECT_NE(text.find(": cannot "), std::string::npos) << text;
        EXPECT_NE(text.find("; "), std::string::npos) << text;
        EXPECT_EQ(text.find("not an error"), std::string::npos) << text;
    }

    // Makes a store, changes it, reads it, and opens it and another one again.
    void doEverything(Ledger& ledger)
    {
        std::unique_ptr<SqliteStorage> store = open();
        ledger.fill(*store);
        ledger.change(*store, 1);
        store->rows();
        store.reset();
        store = open();
        SqliteStorage("relative.sqlite").getInt("key", 0);
    }

    // Does `act` with every refusal at every call, from a state that `prepare` makes, and looks at the store afterwards.
    void injectEverywhere(char const* operation, std::function<Ledger(std::unique_ptr<SqliteStorage>&)> const& prepare,
                          std::function<void(std::unique_ptr<SqliteStorage>&, Ledger&)> const& act, int fewest = fewestInjections)
    {
        int injections = 0;
        int lost = 0;
        for (Refusal const& refusal : refusals())
            for (int nth = 1;; ++nth) {
                std::unique_ptr<SqliteStorage> store;
                Ledger ledger = prepare(store);
                std::string const text = attempt([&] {
                    FaultySystem::watch(refusal.fault, nth);
                    act(store, ledger);
                });
                FaultySystem::rest();
                if (FaultySystem::strikes() == 0)
                    break;
                ++injections;
                int const failuresBefore = failures();
                SCOPED_TRACE(std::string(operation) + ": " + refusal.meaning + (refusal.fault.lasts ? " from call " : " at call ") +
                             std::to_string(nth) + ", " + struck(refusal.fault, nth) + (text.empty() ? "" : ", told as: " + text));
                if (!text.empty())
                    expectClear(text);
                if (!store) {
                    EXPECT_EQ(attempt([&] { store = open(); }), "") << "it does not open again";
                }
                if (store)
                    lookAt(*store, ledger);
                store.reset();
                lost += failures() > failuresBefore;
            }
        RecordProperty("injections", injections);
        tally(std::string("System call refused: ") + operation, injections, lost);
        EXPECT_GE(injections, fewest);
    }

private:
    static std::string struck(FaultySystem::Fault const& fault, int nth)
    {
        for (std::string const& call : FaultySystem::calls())
            if ((fault.only.empty() || std::count(fault.only.begin(), fault.only.end(), call)) && --nth == 0)
                return call;
        return "none";
    }

    void lookAt(SqliteStorage& store, Ledger& ledger) const
    {
        EXPECT_EQ(attempt([&] { EXPECT_EQ(ledger.wrong(store), "") << "in the same store"; }), "");
        EXPECT_EQ(attempt([&] { ledger.change(store, 0); }), "") << "the same store does not work again";
        EXPECT_EQ(attempt([&] { EXPECT_EQ(ledger.wrong(store), "") << "in the same store, after a change"; }), "");
        EXPECT_FALSE(isLocked()) << "a lock is left";
        EXPECT_EQ(attempt([&] { EXPECT_EQ(ledger.wrong(*open()), "") << "in another store"; }), "");
    }
};

TEST_F(Injection, OfCreation)
{
    injectEverywhere(
        "create",
        [&](std::unique_ptr<SqliteStorage>&) {
            std::filesystem::remove_all(path("folder"));
            return Ledger();
        },
        [&](std::unique_ptr<SqliteStorage>& store, Ledger&) { store = open(); });
}

TEST_F(Injection, OfOpening)
{
    Ledger ledger;
    fill(ledger);
    Files const files{content(file()), ""};
    injectEverywhere(
        "open",
        [&](std::unique_ptr<SqliteStorage>&) {
            bring(files);
            return ledger;
        },
        [&](std::unique_ptr<SqliteStorage>& store, Ledger&) { store = open(); });
}

TEST_F(Injection, OfOpeningAfterAKill)
{
    Ledger ledger;
    Files const files = interrupted(ledger);
    injectEverywhere(
        "open after a kill",
        [&](std::unique_ptr<SqliteStorage>&) {
            bring(files);
            return ledger;
        },
        [&](std::unique_ptr<SqliteStorage>& store, Ledger&) { store = open(); });
}

// The first read takes its row from the file, the second one all rows, the third one none.
TEST_F(Injection, OfReadsAfterAChangeOfAnotherObject)
{
    Ledger ledger;
    fill(ledger);
    Files const files{content(file()), ""};
    injectEverywhere(
        "read after another's change",
        [&](std::unique_ptr<SqliteStorage>& store) {
            bring(files);
            store = open();
            Ledger changed(ledger);
            changed.change(*open(), 2);
            return changed;
        },
        [&](std::unique_ptr<SqliteStorage>& store, Ledger& copy) {
            for (int read = 0; read < 3; ++read)
                EXPECT_EQ(copy.wrongAt(*store, 2), "") << "in read " << read;
        });
}

struct Use {
    char const* meaning;
    char const* told;
    void (*act)(SqliteStorage& store, Ledger& ledger);
    int fewest = fewestInjections;
};

// One call, refused with each error once and lastingly, and cut short in two ways.
constexpr int injectionsOfOneCall = isSlow ? 6 : 12;

class InjectionOf : public Injection, public testing::WithParamInterface<Use> {};

TEST_P(InjectionOf, AnOpenStore)
{
    Ledger ledger;
    fill(ledger);
    Files const files{content(file()), ""};
    injectEverywhere(
        GetParam().told,
        [&](std::unique_ptr<SqliteStorage>& store) {
            bring(files);
            store = open();
            return ledger;
        },
        [&](std::unique_ptr<SqliteStorage>& store, Ledger& copy) { GetParam().act(*store, copy); }, GetParam().fewest);
}

TEST_P(InjectionOf, AnOpenStoreAfterAnotherProcessWasKilled)
{
    Ledger ledger;
    Files const files = interrupted(ledger);
    injectEverywhere((std::string(GetParam().told) + " after another's kill").c_str(),
                     [&](std::unique_ptr<SqliteStorage>& store) {
                         bring(files);
                         store = open();
                         bring(files);
                         return ledger;
                     },
                     [&](std::unique_ptr<SqliteStorage>& store, Ledger& copy) { GetParam().act(*store, copy); });
}

INSTANTIATE_TEST_SUITE_P(
    Table, InjectionOf,
    testing::Values(Use{"Read", "read", [](SqliteStorage& store, Ledger& ledger) { EXPECT_EQ(ledger.wrongAt(store, 2), ""); },
                        injectionsOfOneCall},
                    Use{"Rows", "list", [](SqliteStorage& store, Ledger& ledger) { EXPECT_EQ(ledger.wrong(store), ""); }},
                    Use{"Write", "write", [](SqliteStorage& store, Ledger& ledger) { ledger.change(store, 3); }},
                    Use{"Remove", "remove", [](SqliteStorage& store, Ledger& ledger) { ledger.change(store, 4); }}),
    byMeaning);

// --- That no call is missed ---

// What a system call is called here, and nothing for those that reach no file.
std::string fileCall(long number)
{
    static std::map<long, char const*> const calls{
        {SYS_openat, "open"},     {SYS_read, "read"},       {SYS_write, "write"},       {SYS_pread64, "read"},  {SYS_pwrite64, "write"},
        {SYS_close, "close"},     {SYS_newfstatat, "stat"}, {SYS_fstat, "stat"},        {SYS_fcntl, "lock"},    {SYS_ftruncate, "cut"},
        {SYS_mkdirat, "mkdir"},   {SYS_unlinkat, "unlink"}, {SYS_fchmodat, "chmod"},    {SYS_fchmod, "chmod"},  {SYS_fchown, "chown"},
        {SYS_linkat, "link"},     {SYS_getcwd, "getcwd"},   {SYS_faccessat2, "access"}, {SYS_statfs, "statfs"},
#ifdef SYS_open // the older calls, which newer machines do without
        {SYS_open, "open"},       {SYS_stat, "stat"},       {SYS_lstat, "stat"},        {SYS_mkdir, "mkdir"},   {SYS_unlink, "unlink"},
        {SYS_chmod, "chmod"},     {SYS_access, "access"},
#endif
        {SYS_faccessat, "access"}};
    static std::set<long> const others{
        SYS_brk,    SYS_mmap,      SYS_munmap,      SYS_mremap,        SYS_madvise,       SYS_mprotect,        // memory
        SYS_getpid, SYS_geteuid,   SYS_getuid,      SYS_getgid,        SYS_clock_gettime, SYS_clock_nanosleep, // cannot fail
        SYS_futex,  SYS_getrandom, SYS_sched_yield, SYS_rt_sigprocmask};
    if (auto const call = calls.find(number); call != calls.end())
        return call->second;
    return others.count(number) ? "" : "system call " + std::to_string(number);
}

// The same for the functions that stand before the system's. The syncs are not carried out here.
std::string fileCall(std::string const& function)
{
    static std::map<std::string, char const*> const calls{
        {"open", "open"},     {"open64", "open"},    {"mkostemp", "open"}, {"read", "read"},        {"pread64", "read"},
        {"write", "write"},   {"pwrite64", "write"}, {"close", "close"},   {"stat", "stat"},        {"stat64", "stat"},
        {"lstat", "stat"},    {"lstat64", "stat"},   {"fstat64", "stat"},  {"fcntl64", "lock"},     {"mkdir", "mkdir"},
        {"unlink", "unlink"}, {"chmod", "chmod"},    {"fchmod", "chmod"},  {"ftruncate64", "cut"},  {"linkat", "link"},
        {"getcwd", "getcwd"}, {"fchown", "chown"},   {"access", "access"}, {"faccessat", "access"}, {"statfs", "statfs"}};
    auto const call = calls.find(function);
    return call == calls.end() ? "" : call->second;
}

template <typename Calls>
std::vector<std::string> fileCalls(Calls const& calls)
{
    std::vector<std::string> result;
    for (auto const& call : calls)
        if (std::string const name = fileCall(call); !name.empty())
            result.push_back(name);
    return result;
}

std::string recordedCalls(std::function<void()> const& work)
{
    FaultySystem::watch();
    work();
    FaultySystem::rest();
    std::string result;
    for (std::string const& call : fileCalls(FaultySystem::calls()))
        result += call + '\n';
    return result;
}

TEST_F(Injection, MissesNoCallOfTheSystem)
{
    if (!Traced::isPossible())
        GTEST_SKIP() << "this process may not trace others, as in some containers: the calls were not compared";
#if defined(UNDER_ADDRESS_SANITIZER) || defined(UNDER_THREAD_SANITIZER)
    GTEST_SKIP() << "the sanitizer makes calls of its own, such as the pipe by which it looks whether memory can be read";
#endif
    Ledger ledger;
    auto const everything = [&] { doEverything(ledger); };
    std::filesystem::current_path(m_home.path());
    auto const made = fileCalls(Traced::systemCalls({[] {}, everything}));
    std::filesystem::remove_all(path("folder"));
    std::filesystem::remove(path("relative.sqlite"));
    ledger = Ledger();
    // In a fresh process too, as some calls are made only once in each.
    auto const seen = lines(inChild([&] { return recordedCalls(everything); }));
    std::filesystem::current_path("/");
    auto const [first, second] = std::mismatch(seen.begin(), seen.end(), made.begin(), made.end());
    EXPECT_TRUE(first == seen.end() && second == made.end())
        << "call " << first - seen.begin() << " is " << (second == made.end() ? "none" : *second) << ", seen is "
        << (first == seen.end() ? "none" : *first);
    EXPECT_GT(made.size(), 300u);
}

} // namespace
