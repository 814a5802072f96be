// SPDX-License-Identifier: MIT
//
// What a notifier tells of changes to stores on disk, made by this process and by another. Waits last until what they wait
// for has come, and fail after a minute.
#include <Notifier/Notifier.h>
#include <Storage/SqliteStorage.h>

#include <storage/support/MemoryFolder.h>
#include <storage/support/OtherProcess.h>
#include <support/OtherProgram.h>
#include <support/interposed/RefusedHints.h>

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <functional>
#include <optional>
#include <thread>

namespace {

namespace fs = std::filesystem;
using Storage::SqliteStorage;
using Told = std::vector<std::string>;

// Handles events until `holds`.
bool comes(std::function<bool()> const& holds)
{
    auto const end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        QCoreApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

std::size_t threads() { return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/task"), {})); }

class Telling : public testing::Test {
protected:
    fs::path inFolder(char const* relative) const { return m_folder.path() / relative; }

    // Whether this process holds the store's file, or a watch on its folder.
    bool isLookedAt() const
    {
        std::error_code error;
        for (fs::directory_entry const& entry : fs::directory_iterator("/proc/self/fd")) {
            fs::path const target = fs::read_symlink(entry.path(), error);
            if (target == m_file || target == "anon_inode:inotify")
                return true;
        }
        return false;
    }

    // Whether this process holds `file`.
    static bool isOpened(fs::path const& file)
    {
        std::error_code error;
        for (fs::directory_entry const& entry : fs::directory_iterator("/proc/self/fd"))
            if (fs::read_symlink(entry.path(), error) == file)
                return true;
        return false;
    }

    // Records the signals, and returns once watching has begun.
    void listen()
    {
        using Notifier::Notifier;
        QObject::connect(&*m_notifier, &Notifier::watching, &m_receiver, [this] { m_told.push_back("watching"); });
        QObject::connect(&*m_notifier, &Notifier::changed, &m_receiver,
                         [this](QString const& key) { m_told.push_back(key.toStdString()); });
        QObject::connect(&*m_notifier, &Notifier::rowChanged, &m_receiver, [this](QString const& store, QString const& key, bool isOwn) {
            m_told.push_back((isOwn ? "ours: " : "others': ") + store.toStdString() + ' ' + key.toStdString());
        });
        QObject::connect(&*m_notifier, &Notifier::failed, &m_receiver, [this](QString const& store, QString const& message) {
            m_told.push_back(store.toStdString() + " failed: " + message.toStdString());
        });
        EXPECT_TRUE(comes([this] { return !m_told.empty(); }));
        EXPECT_EQ(taken(), Told{"watching"});
    }

    // All changes until `last`.
    Told toldUntil(std::string const& last)
    {
        EXPECT_TRUE(comes([&] { return !m_told.empty() && m_told.back() == last; })) << last;
        return taken();
    }

    Told taken() { return std::exchange(m_told, {}); }

    MemoryFolder m_folder;
    fs::path const m_file = inFolder("store.sqlite");
    fs::path const m_commonFile = inFolder("common.sqlite");
    OtherProcess m_other{m_file};
    int m_argc = 0;
    QCoreApplication m_application{m_argc, nullptr};
    QObject m_receiver;
    Told m_told;
    std::optional<Notifier::Notifier> m_notifier{
        std::in_place,
        std::vector<Notifier::Notifier::Store>{{QStringLiteral("product"), m_file}, {QStringLiteral("common"), m_commonFile}}};
};

// --- Which changes are reported ---

TEST_F(Telling, NothingThatAStoreHeldWhileItWasLockedAtFirst)
{
    using Notifier::Notifier;
    m_other.set("title", "old");
    OtherProgram program(m_file);
    program.execute("BEGIN EXCLUSIVE");
    Storage::SqliteStorage::Options patient;
    patient.busyTimeout = std::chrono::minutes(1);
    m_notifier.emplace(
        std::vector<Notifier::Store>{{QStringLiteral("product"), m_file, patient}, {QStringLiteral("common"), m_commonFile}});
    m_notifier->watchPrefix(QString());
    QObject::connect(&*m_notifier, &Notifier::watching, &m_receiver, [this] { m_told.push_back("watching"); });
    QObject::connect(&*m_notifier, &Notifier::changed, &m_receiver, [this](QString const& key) { m_told.push_back(key.toStdString()); });
    SqliteStorage(m_commonFile).setInt("seen", 1); // makes a file that the thread opens in its next look
    ASSERT_TRUE(comes([this] { return isOpened(m_commonFile); }));
    program.execute("ROLLBACK");
    ASSERT_TRUE(comes([this] { return std::find(m_told.begin(), m_told.end(), "watching") != m_told.end(); }));
    m_other.set("zoom", "1");
    EXPECT_TRUE(comes([this] { return !m_told.empty() && m_told.back() == "zoom"; }));
    EXPECT_EQ(m_told, (Told{"watching", "zoom"}));
}

TEST_F(Telling, ChangesOfAnotherProcess)
{
    m_other.set("title", "old");
    m_notifier->watch(QStringLiteral("title"));
    listen();
    m_other.set("title", "new");
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
    m_other.remove("title");
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
}

TEST_F(Telling, ChangesOfThisProcess)
{
    SqliteStorage store(m_file);
    SqliteStorage common(m_commonFile);
    m_notifier->watch(QStringLiteral("title"));
    listen();
    store.setString("title", "new");
    EXPECT_EQ(toldUntil("ours: product title"), (Told{"title", "ours: product title"}));
    common.setString("title", "new");
    EXPECT_EQ(toldUntil("ours: common title"), (Told{"title", "ours: common title"}));
    store.remove("title");
    EXPECT_EQ(toldUntil("ours: product title"), (Told{"title", "ours: product title"}));
}

TEST_F(Telling, ChangesOfChosenKeysOnly)
{
    SqliteStorage store(m_file);
    m_notifier->watch(QStringLiteral("title"));
    m_notifier->watchPrefix(QStringLiteral("view."));
    listen();
    store.apply({{"titles", 1}, {"tit", 1}, {"view", 1}, {"my.view.", 1}, {"view.", 1}, {"view.zoom", 1}, {"title", 1}});
    EXPECT_EQ(toldUntil("ours: product view.zoom"),
              (Told{"title", "ours: product title", "view.", "ours: product view.", "view.zoom", "ours: product view.zoom"}));
}

TEST_F(Telling, ChangesThatAreReported)
{
    m_notifier->watch(QStringLiteral("title"));
    m_notifier->report(QStringLiteral("product"), QStringLiteral("title"));
    listen();
    std::thread([&] {
        m_notifier->report(QStringLiteral("elsewhere"), QStringLiteral("title"));
        m_notifier->report(QStringLiteral("product"), QStringLiteral("another"));
        m_notifier->report(QStringLiteral("common"), QStringLiteral("title"));
    }).join();
    EXPECT_EQ(toldUntil("others': common title"), (Told{"title", "others': common title"}))
        << "nothing from before, and only what is chosen";
}

TEST_F(Telling, ChangesOfEveryKey)
{
    SqliteStorage store(m_file);
    m_notifier->watchPrefix(QString());
    listen();
    store.setInt("\xC3\xA9", 1);
    EXPECT_EQ(toldUntil("ours: product \xC3\xA9"), (Told{"\xC3\xA9", "ours: product \xC3\xA9"}));
}

TEST_F(Telling, ChangesOfKeysThatAreChosenLater)
{
    SqliteStorage store(m_file);
    m_notifier->watch(QStringLiteral("a"));
    listen();
    m_notifier->watch(QStringLiteral("b"));
    store.setInt("b", 1);
    EXPECT_EQ(toldUntil("ours: product b"), (Told{"b", "ours: product b"}));
}

TEST_F(Telling, ChangesWithoutHints)
{
    RefusedHints const refused;
    m_notifier->watch(QStringLiteral("title"));
    listen();
    m_other.set("title", "new");
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
}

TEST_F(Telling, StoreThatAppearsIsReplacedOrGoes)
{
    m_notifier->watch(QStringLiteral("title"));
    listen();
    EXPECT_FALSE(fs::exists(m_file));
    m_other.set("title", "new");
    toldUntil("others': product title");
    SqliteStorage(inFolder("replacement")).setString("title", "other");
    fs::rename(inFolder("replacement"), m_file);
    toldUntil("others': product title");
    fs::remove(m_file);
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
}

// The receiver reads the store, as the editor would, until it has seen the last of many values.
TEST_F(Telling, LastOfManyQuickChangesIsNeverLost)
{
    SqliteStorage store(m_file);
    int read = 0;
    QObject::connect(&*m_notifier, &Notifier::Notifier::changed, &m_receiver, [&] { read = store.getInt("number", 0); });
    m_notifier->watch(QStringLiteral("number"));
    listen();
    m_other.count("number", 1000);
    EXPECT_TRUE(comes([&] { return read == 1000; }));
    for (int number = 1; number <= 1000; ++number) {
        store.setInt("number", -number);
        if (number % 100 == 0)
            QCoreApplication::processEvents();
    }
    EXPECT_TRUE(comes([&] { return read == -1000; }));
    EXPECT_LT(m_told.size(), 4000u) << "several are reported as one";
}

TEST_F(Telling, ErrorOnceAndWhatFollowsIt)
{
    m_other.set("title", "old");
    m_notifier->watch(QStringLiteral("title"));
    listen();
    std::ofstream(inFolder("garbage")) << "not a store";
    fs::rename(inFolder("garbage"), m_file);
    std::string const message = "product failed: " + m_file.string() +
                                ": cannot open the store: file is not a database; the file was left as it is: move it away and restore it "
                                "from a backup";
    EXPECT_EQ(toldUntil(message), Told{message});
    SqliteStorage(m_commonFile).setString("title", "still told");
    EXPECT_EQ(toldUntil("ours: common title"), (Told{"title", "ours: common title"}));
    fs::remove(m_file);
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
    m_other.set("title", "new");
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
}

TEST_F(Telling, EachOfTwoNotifiers)
{
    SqliteStorage store(m_file);
    Notifier::Notifier second({{QStringLiteral("second"), m_file}});
    m_notifier->watch(QStringLiteral("a"));
    second.watch(QStringLiteral("b"));
    listen();
    QObject::connect(&second, &Notifier::Notifier::watching, &m_receiver, [&] { m_told.push_back("watching"); });
    QObject::connect(&second, &Notifier::Notifier::rowChanged, &m_receiver,
                     [&](QString const&, QString const& key, bool isOwn) { m_told.push_back(key.toStdString() + (isOwn ? " ours" : "")); });
    toldUntil("watching");
    store.apply({{"a", 1}, {"b", 1}});
    EXPECT_TRUE(comes([&] { return m_told.size() == 3; }));
    Told told = taken();
    std::sort(told.begin(), told.end());
    EXPECT_EQ(told, (Told{"a", "b ours", "ours: product a"}));
}

TEST_F(Telling, RelativeFileStaysWithItsFolder)
{
    fs::path const before = fs::current_path();
    fs::current_path(m_folder.path());
    m_notifier.emplace(std::vector<Notifier::Notifier::Store>{{QStringLiteral("relative"), "store.sqlite"}});
    fs::current_path(before);
    m_notifier->watch(QStringLiteral("title"));
    listen();
    m_other.set("title", "new");
    EXPECT_EQ(toldUntil("others': relative title"), (Told{"title", "others': relative title"}));
}

// --- Threads ---

TEST_F(Telling, ComesInTheThreadThatTheNotifierLivesIn)
{
    SqliteStorage store(m_file);
    QThread thread;
    thread.start();
    std::atomic<QThread*> watching{nullptr};
    std::atomic<QThread*> changed{nullptr};
    QObject::connect(&*m_notifier, &Notifier::Notifier::watching, [&] { watching = QThread::currentThread(); });
    QObject::connect(&*m_notifier, &Notifier::Notifier::changed, [&] { changed = QThread::currentThread(); });
    m_notifier->moveToThread(&thread);
    m_notifier->watch(QStringLiteral("title"));
    EXPECT_TRUE(comes([&] { return watching != nullptr; }));
    store.setInt("title", 1);
    EXPECT_TRUE(comes([&] { return changed != nullptr; }));
    EXPECT_EQ(watching, &thread);
    EXPECT_EQ(changed, &thread);
    thread.quit();
    thread.wait();
}

TEST_F(Telling, NeedsKeysAndReceivers)
{
    SqliteStorage(m_file).setInt("title", 1);
    std::size_t const before = threads();
    m_notifier->watch(QStringLiteral("title"));
    EXPECT_EQ(threads(), before) << "nobody listens";
    m_notifier.emplace(std::vector<Notifier::Notifier::Store>{{QStringLiteral("product"), m_file}});
    QObject::connect(&*m_notifier, &Notifier::Notifier::changed, &m_receiver, [] {});
    EXPECT_EQ(threads(), before) << "no key is chosen";
    EXPECT_FALSE(isLookedAt());
    m_notifier->watch(QStringLiteral("title"));
    EXPECT_EQ(threads(), before + 1);
    EXPECT_TRUE(comes([this] { return isLookedAt(); }));
}

TEST_F(Telling, RestsWhenTheLastReceiverIsGone)
{
    SqliteStorage(m_file).setInt("title", 1);
    m_notifier->watch(QStringLiteral("title"));
    auto const second = std::make_unique<QObject>();
    {
        QObject first;
        QObject::connect(&*m_notifier, &Notifier::Notifier::changed, &first, [] {});
        QObject::connect(&*m_notifier, &Notifier::Notifier::rowChanged, second.get(), [] {});
        bool isWatching = false;
        QObject::connect(&*m_notifier, &Notifier::Notifier::watching, &first, [&] { isWatching = true; });
        EXPECT_TRUE(comes([&] { return isWatching; }));
        EXPECT_TRUE(isLookedAt());
    }
    bool isTold = false;
    auto const connection = QObject::connect(&*m_notifier, &Notifier::Notifier::rowChanged, &m_receiver, [&] { isTold = true; });
    m_other.set("title", "told");
    EXPECT_TRUE(comes([&] { return isTold; }));
    QObject::disconnect(connection);
    QObject::disconnect(&*m_notifier, nullptr, second.get(), nullptr);
    EXPECT_TRUE(comes([this] { return !isLookedAt(); }));

    m_other.set("title", "missed");
    listen();
    m_other.set("title", "told");
    EXPECT_EQ(toldUntil("others': product title"), (Told{"title", "others': product title"}));
}

// --- Destruction ---

TEST_F(Telling, MayEndTheNotifierInEachSignal)
{
    SqliteStorage store(m_file);
    int ended = 0;
    int later = 0;
    for (int signal = 0; signal < 4; ++signal) {
        auto* const notifier = new Notifier::Notifier({{QStringLiteral("product"), m_file}, {QStringLiteral("folder"), inFolder(".")}});
        auto const end = [&, notifier] {
            delete notifier;
            ++ended;
        };
        auto const count = [&, goal = ended + 1] { later += ended >= goal; };
        if (signal == 0)
            QObject::connect(notifier, &Notifier::Notifier::watching, &m_receiver, end);
        if (signal == 1)
            QObject::connect(notifier, &Notifier::Notifier::failed, &m_receiver, end);
        if (signal == 2)
            QObject::connect(notifier, &Notifier::Notifier::changed, &m_receiver, end);
        if (signal == 3)
            QObject::connect(notifier, &Notifier::Notifier::rowChanged, &m_receiver, end);
        QObject::connect(notifier, &Notifier::Notifier::failed, &m_receiver, count);
        QObject::connect(notifier, &Notifier::Notifier::changed, &m_receiver, count);
        QObject::connect(notifier, &Notifier::Notifier::rowChanged, &m_receiver, count);
        notifier->watchPrefix(QString());
        EXPECT_TRUE(comes([&, number = 0]() mutable {
            store.apply({{"a", ++number}, {"b", number}});
            return ended > signal;
        }));
    }
    EXPECT_EQ(ended, 4);
    EXPECT_EQ(later, 0);
}

TEST_F(Telling, EndsAtAnyMoment)
{
    SqliteStorage store(m_file);
    std::size_t const before = threads();
    for (int round = 0; round < 100; ++round) {
        m_notifier.emplace(std::vector<Notifier::Notifier::Store>{{QStringLiteral("product"), m_file}});
        QObject::connect(&*m_notifier, &Notifier::Notifier::changed, &m_receiver, [this] { m_told.push_back("changed"); });
        m_notifier->watchPrefix(QString());
        EXPECT_TRUE(comes([&] { return round % 2 == 0 || isLookedAt(); }));
        store.setInt("number", round);
        std::this_thread::sleep_for(std::chrono::microseconds(100 * round));
        m_notifier.reset();
        m_told.clear();
        QCoreApplication::processEvents();
        EXPECT_EQ(m_told, Told{}) << round;
        EXPECT_EQ(threads(), before) << round;
    }
}

} // namespace
