// SPDX-License-Identifier: MIT
//
// A window with stores below a folder, on a screen that nobody sees, and what is measured in its own thread. Prints figures,
// each behind its name. Called again as another process, it changes or holds a store.
#include <Inspector/Snapshot.h>
#include <Window/MainWindow.h>
#include <Window/list/ItemsView.h>

#include <Storage/SqliteStorage.h>
#include <support/OtherProgram.h>

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QEventLoop>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <dlfcn.h>
#include <sys/stat.h>
#include <time.h>

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

// --- Another process ---

int hold(fs::path const& file, int seconds)
{
    OtherProgram program(file);
    program.execute("BEGIN EXCLUSIVE");
    std::cout << "held" << std::endl;
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    return 0;
}

int storeTogether(fs::path const& file, int count)
{
    std::vector<Storage::SqliteStorage::Change> changes;
    for (int number = 0; number < count; ++number)
        changes.push_back({"key" + std::to_string(number), std::string(number % 3 == 0 ? "third" : "other")});
    Storage::SqliteStorage(file).apply(changes);
    return 0;
}

// As an editor does that runs for long, one by one.
int change(fs::path const& file, int count)
{
    Storage::SqliteStorage store(file);
    for (int number = 1; number <= count; ++number) {
        store.setInt("number", number);
        std::this_thread::sleep_for(1ms);
    }
    return 0;
}

int replace(fs::path const& file)
{
    fs::path const other = file.string() + ".other";
    fs::copy_file(file, other);
    Storage::SqliteStorage(other).setInt("number", -1);
    fs::remove(file.string() + ".other-journal");
    fs::rename(other, file);
    return 0;
}

// --- A folder whose file system does not answer ---

std::string dead;
std::atomic<bool> wasAsked{false};

void hangBelowDead(char const* path)
{
    if (dead.empty() || !path || std::string_view(path).substr(0, dead.size()) != dead)
        return;
    wasAsked = true;
    std::this_thread::sleep_for(2s);
}

template <typename Function>
Function next(char const* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

} // namespace

// Stand before the C library's, for all libraries.
extern "C" {
__attribute__((visibility("default"))) int stat(char const* path, struct stat* result) noexcept
{
    hangBelowDead(path);
    return next<int (*)(char const*, struct stat*)>("stat")(path, result);
}
__attribute__((visibility("default"))) int lstat(char const* path, struct stat* result) noexcept
{
    hangBelowDead(path);
    return next<int (*)(char const*, struct stat*)>("lstat")(path, result);
}
__attribute__((visibility("default"))) int statx(int folder, char const* path, int flags, unsigned mask, struct statx* result) noexcept
{
    hangBelowDead(path);
    return next<int (*)(int, char const*, int, unsigned, struct statx*)>("statx")(folder, path, flags, mask, result);
}
}

namespace {

// --- The window ---

/// Knows when a widget was painted as it is wanted.
class Application : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        bool const isTaken = QApplication::notify(receiver, event);
        if (receiver == watched && event->type() == QEvent::Paint && !painted && wanted && wanted())
            painted = Clock::now();
        return isTaken;
    }

    QObject* watched = nullptr;
    std::function<bool()> wanted{};
    std::optional<Clock::time_point> painted{};
};

[[noreturn]] void fail(std::string const& what)
{
    std::cerr << what << '\n';
    std::_Exit(1);
}

class Window {
public:
    Window(Application& application, fs::path const& folder)
        : m_application(application), m_folder(folder), m_window({folder / "product.json", folder / "stores"})
    {
        for (Inspector::ItemsView* const view : children<Inspector::ItemsView>())
            if (view->accessibleName() == QLatin1String("Settings"))
                m_view = view;
        for (QLineEdit* const field : children<QLineEdit>())
            if (field->accessibleName() == QLatin1String("Search"))
                m_search = field;
        if (!m_view || !m_search)
            fail("the window has no list of settings, or no search");
        m_application.watched = m_view->viewport();
        m_window.resize(1024, 640);
        paintedWhen([this] { return m_view->allCount() > 0; },
                    [this] {
                        m_window.show();
                        m_window.activateWindow();
                    });
    }

    void comes(std::function<bool()> const& holds) const
    {
        auto const end = Clock::now() + 1min;
        while (!holds()) {
            if (Clock::now() > end)
                fail("the window does not come to show what is waited for, but says: " + said());
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        }
    }
    /// Does `work`, and waits until the list is painted when that holds. Returns when it was.
    Clock::time_point paintedWhen(std::function<bool()> const& holds, std::function<void()> const& work) const
    {
        m_application.painted.reset();
        m_application.wanted = holds;
        work();
        comes([this] { return m_application.painted.has_value(); });
        return *m_application.painted;
    }
    /// A loop of its own, as the application's closes all windows with Qt 6 when it quits.
    static void runFor(std::chrono::milliseconds time)
    {
        QEventLoop loop;
        QTimer::singleShot(time, &loop, &QEventLoop::quit);
        loop.exec();
    }
    void trigger(QKeySequence const& keys)
    {
        for (QAction* const action : children<QAction>())
            if (action->shortcuts().contains(keys))
                return action->trigger();
        fail("no action has the shortcut " + keys.toString().toStdString());
    }
    void drop(fs::path const& document)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(document.string()))});
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_window, &enter);
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&m_window, &event);
    }
    /// Waits for the button with that text, and presses it.
    void press(QString const& text)
    {
        QPushButton* found = nullptr;
        comes([&] {
            for (QPushButton* const button : children<QPushButton>())
                if (button->isVisible() && button->text().remove(QLatin1Char('&')) == text)
                    found = button;
            return found && found->isEnabled();
        });
        found->click();
    }
    QString cellOf(std::string const& key, int column = Inspector::Setting::valueColumn) const
    {
        for (int row = 0; row < m_view->model()->rowCount(); ++row)
            if (m_view->model()->index(row, 0).data().toString().toStdString() == key)
                return m_view->model()->index(row, column).data().toString();
        return {};
    }

    Inspector::ItemsView& view() const { return *m_view; }
    QLineEdit& search() const { return *m_search; }
    fs::path file() const { return m_folder / "stores/product-settings.sqlite"; }

private:
    template <typename Child>
    QList<Child*> const children() const
    {
        return m_window.findChildren<Child*>();
    }
    std::string said() const
    {
        QStringList texts;
        for (QLabel const* const label : children<QLabel>())
            if (label->isVisible())
                texts += label->text();
        for (QTextEdit const* const text : children<QTextEdit>())
            if (text->isVisible())
                texts += text->toPlainText();
        return texts.join(QLatin1Char('\n')).toStdString();
    }

    Application& m_application;
    fs::path const m_folder;
    Inspector::MainWindow m_window;
    Inspector::ItemsView* m_view = nullptr;
    QLineEdit* m_search = nullptr;
};

void print(char const* name, double figure) { std::cout << name << '\t' << figure << std::endl; }

double percentile(std::vector<double> all, std::size_t percent)
{
    std::sort(all.begin(), all.end());
    return all[(all.size() * percent + 99) / 100 - 1];
}

// Of this program called again.
QStringList again(char const* verb, fs::path const& file, int number = 0)
{
    return {QLatin1String(verb), QString::fromStdString(file.string()), QString::number(number)};
}

/// Another process, which runs while the window does.
class Other : public QProcess {
public:
    explicit Other(QStringList const& arguments) { start(QCoreApplication::applicationFilePath(), arguments); }
    ~Other() override { waitForFinished(); }
    bool hasEnded() const { return state() == QProcess::NotRunning; }
};

// --- Memory and processor time ---

using Seconds = std::chrono::duration<double>;

// Of the calling thread, or of the whole process.
Seconds processorTime(clockid_t clock)
{
    timespec time = {};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

double ownMemory()
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("RssAnon:", 0) == 0)
            return std::stod(line.substr(8)) / 1024;
    fail("the system does not tell the memory of a process");
}

void measureMemory(Window& window, int)
{
    window.runFor(2s); // folders and stores are examined after the first look
    print("RssAnon in MB", ownMemory());
}

// The changes of an hour at ten a second, and a search for each 36 of them.
void measureHour(Window& window, int changes)
{
    window.runFor(2s);
    double const before = ownMemory();
    Other const other(again("change", window.file(), changes));
    for (int round = 0; round < changes / 36; ++round) {
        window.search().setText(round % 2 == 0 ? QStringLiteral("key") : QString());
        window.runFor(20ms);
    }
    window.search().clear();
    while (!other.hasEnded())
        window.runFor(1s);
    window.comes([&] { return window.cellOf("number") == QString::number(changes); });
    window.runFor(2s);
    print("MB more than before", ownMemory() - before);
}

// --- Searches ---

struct Typed {
    char const* text;
    int found;
};

// Of 10,000 keys, each third of which has the value "third", beside the editor's preferences.
constexpr Typed searches[] = {{"key0", 1},       {"key99", 111},        {"key999", 11}, {"third", 3334},        {"other", 6666},
                              {"7 other", 2289}, {"key 7 third", 1150}, {"nowhere", 0}, {"@undeclared", 10001}, {"@unset", 52},
                              {"key1 9", 291},   {"5 5", 3439}};

Milliseconds search(Window& window, Typed const& typed)
{
    Clock::time_point const begin = Clock::now();
    return window.paintedWhen([&] { return window.view().foundCount() == typed.found; },
                              [&] { window.search().setText(QLatin1String(typed.text)); }) -
           begin;
}

void measureSearches(Window& window, int rounds)
{
    std::vector<double> all;
    double worst = 0;
    Typed const nothing{"", window.view().allCount()};
    for (Typed const& typed : searches) {
        window.search().setText(QLatin1String(typed.text));
        if (int const found = window.view().foundCount(); found != typed.found)
            fail(std::string(typed.text) + " finds " + std::to_string(found) + " lines");
    }
    search(window, nothing);
    for (Typed const& typed : searches) {
        std::vector<double> of;
        for (int round = 0; round < rounds; ++round) {
            of.push_back(search(window, typed).count());
            search(window, nothing);
        }
        worst = std::max(worst, percentile(of, 95));
        all.insert(all.end(), of.begin(), of.end());
    }
    print("median in ms", percentile(all, 50));
    print("95th percentile in ms", percentile(all, 95));
    print("of the slowest search in ms", worst);
}

// --- Changes of others ---

void measureChanges(Window& window, int count)
{
    QProcess changer;
    changer.start(QStringLiteral(CHANGER), {QString::fromStdString(window.file().string())});
    window.search().setText(QStringLiteral("number"));
    std::vector<double> all;
    Seconds const before = processorTime(CLOCK_PROCESS_CPUTIME_ID);
    for (int number = 1; number <= count; ++number) {
        window.runFor(std::chrono::milliseconds(7 * number % 41)); // at any moment between two looks
        auto const painted =
            window.paintedWhen([&] { return window.cellOf("number") == QString::number(number); }, [&] { changer.write("change\n"); });
        window.comes([&] { return changer.canReadLine(); });
        Clock::time_point const returned{Clock::duration(changer.readLine().trimmed().toLongLong())};
        all.push_back(std::max(0.0, Milliseconds(painted - returned).count()));
    }
    print("median in ms", percentile(all, 50));
    print("95th percentile in ms", percentile(all, 95));
    print("processor time of each in ms", Milliseconds(processorTime(CLOCK_PROCESS_CPUTIME_ID) - before).count() / count);
    changer.closeWriteChannel();
    changer.waitForFinished();
}

// --- Rest ---

void measureRest(Window& window, int seconds)
{
    window.runFor(2s); // until all was looked at
    Seconds const before = processorTime(CLOCK_PROCESS_CPUTIME_ID);
    window.runFor(std::chrono::seconds(seconds));
    print("millionths of a core", 1e6 * (processorTime(CLOCK_PROCESS_CPUTIME_ID) - before).count() / seconds);
}

// --- The longest gap between two turns of the loop ---

/// Beats in the window's thread. Other programs make a gap longer, but not the processor time that the thread took in it.
class Heartbeat {
public:
    Heartbeat()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.start(5);
    }
    ~Heartbeat()
    {
        beat();
        print("longest gap in ms", m_longest.count());
        print("most processor time in a gap in ms", m_most.count());
    }
    Heartbeat(Heartbeat const&) = delete;
    Heartbeat& operator=(Heartbeat const&) = delete;

private:
    void beat()
    {
        Clock::time_point const now = Clock::now();
        Seconds const taken = processorTime(CLOCK_THREAD_CPUTIME_ID);
        m_longest = std::max<Milliseconds>(m_longest, now - m_last);
        m_most = std::max<Milliseconds>(m_most, taken - m_taken);
        m_last = now;
        m_taken = taken;
    }

    QTimer m_timer;
    Clock::time_point m_last = Clock::now();
    Seconds m_taken = processorTime(CLOCK_THREAD_CPUTIME_ID);
    Milliseconds m_longest{0};
    Milliseconds m_most{0};
};

// A change waits for the store meanwhile.
void measureWhileHeld(Window& window, int seconds)
{
    window.trigger(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_E));
    if (!window.view().setCurrent(Inspector::settingId("key0", Catalogue::Store::product)))
        fail("key0 is not listed");
    Other other(again("hold", window.file(), seconds));
    window.comes([&] { return other.canReadLine(); });
    Heartbeat const heartbeat;
    window.trigger(QKeySequence(Qt::Key_F5));
    window.trigger(QKeySequence(Qt::Key_Delete));
    window.comes([&] { return other.hasEnded(); });
    window.runFor(500ms);
}

void measureImport(Window& window, int count)
{
    int const before = window.view().allCount();
    Heartbeat const heartbeat;
    Other const other(again("store", window.file(), count));
    window.comes([&] { return window.view().allCount() > before; });
    window.runFor(2s);
}

// A document that was dropped onto the window, stored in one step.
void measureTaken(Window& window, int count)
{
    fs::path const document = window.file().parent_path() / "document.json";
    std::string entries;
    for (int number = 0; number < count; ++number)
        entries +=
            (number ? "," : "") + ("\"favorites_" + std::to_string(number)) + R"(": {"kind": "string", "class": "roaming", "value": "x"})";
    std::ofstream(document) << R"({"format": "editor-settings export", "version": 1, "made": "2026-01-01T00:00:00.000Z", "product": "P",
        "stores": {"product": {)"
                            << entries << R"(}, "common": {}}})";
    int const before = window.view().allCount();
    window.trigger(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_E));
    Heartbeat const heartbeat;
    window.drop(document);
    window.press(QStringLiteral("Store %1").arg(count));
    window.comes([&] { return window.view().allCount() == before + count; });
    window.runFor(2s);
}

void measureDoctor(Window& window, int times)
{
    Heartbeat const heartbeat;
    for (int time = 0; time < times; ++time) {
        window.trigger(QKeySequence(Qt::Key_F5));
        window.runFor(2s);
    }
}

void measureDeadFolder(Window& window, int seconds)
{
    if (!window.view().setCurrent(Inspector::settingId("exportPath", Catalogue::Store::product)))
        fail("exportPath is not listed");
    Heartbeat const heartbeat;
    window.trigger(QKeySequence(Qt::Key_F5));
    window.runFor(std::chrono::seconds(seconds));
    if (!wasAsked)
        fail("nobody asked for the folder");
    dead.clear();
}

void measureReplaced(Window& window, int)
{
    Heartbeat const heartbeat;
    Other const other(again("replace", window.file()));
    window.comes([&] { return window.cellOf("number") == QLatin1String("-1"); });
    window.runFor(2s);
}

struct Subject {
    char const* verb;
    void (*measure)(Window&, int);
};

constexpr Subject subjects[] = {{"memory", measureMemory},   {"hour", measureHour},        {"searches", measureSearches},
                                {"changes", measureChanges}, {"rest", measureRest},        {"held", measureWhileHeld},
                                {"import", measureImport},   {"taken", measureTaken},      {"doctor", measureDoctor},
                                {"dead", measureDeadFolder}, {"replaced", measureReplaced}};

int measure(Application& application, std::string const& verb, fs::path const& folder, int number)
{
    for (Subject const& subject : subjects)
        if (verb == subject.verb) {
            if (verb == "dead")
                dead = (folder / "dead").string();
            Window window(application, folder);
            subject.measure(window, number);
            return 0;
        }
    return 2;
}

} // namespace

// VERB FOLDER NUMBER
// NOLINTNEXTLINE(bugprone-exception-escape): a measurement that fails may end the process
int main(int argc, char** argv)
{
    if (argc != 4)
        return 2;
    std::string const verb = argv[1];
    int const number = std::atoi(argv[3]);
    if (verb == "hold")
        return hold(argv[2], number);
    if (verb == "store")
        return storeTogether(argv[2], number);
    if (verb == "change")
        return change(argv[2], number);
    if (verb == "replace")
        return replace(argv[2]);
    Application application(argc, argv);
    return measure(application, verb, argv[2], number);
}
