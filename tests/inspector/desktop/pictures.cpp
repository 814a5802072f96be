// SPDX-License-Identifier: MIT
//
// pictures FOLDER TOOL HOME
//
// Draws the window in FOLDER, light and dark, as it is after somebody whose home folder is HOME has set a few preferences with TOOL.
// HOME is seen in paths; it must not exist, and is removed at the end. On a screen that nobody sees.
#include <Window/MainWindow.h>

#include <Host/ProductFile.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTimer>
#include <QTreeView>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>

namespace {

namespace fs = std::filesystem;

/// The home folder, removed at the end.
class Home {
public:
    explicit Home(fs::path path) : m_path(std::move(path))
    {
        if (!fs::create_directory(m_path))
            throw std::runtime_error(m_path.string() + " exists");
        ::setenv("HOME", m_path.c_str(), 1);
        for (char const* const name : {"XDG_CACHE_HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "EDITOR_SETTINGS_HOME"})
            ::unsetenv(name);
        fs::create_directories(m_path / "Films");
        std::ofstream(m_path / "Archive"); // a file where a folder was expected
    }
    ~Home()
    {
        std::error_code ignored;
        fs::remove_all(m_path, ignored);
    }
    Home(Home const&) = delete;
    Home& operator=(Home const&) = delete;

private:
    fs::path const m_path;
};

// The image with its 256 most frequent colours, which makes its file a third as long.
QImage withFewColours(QImage const& image)
{
    std::map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++counts[image.pixel(x, y)];
    std::multimap<int, QRgb, std::greater<>> sorted;
    for (auto const& [colour, count] : counts)
        sorted.emplace(count, colour);
    QVector<QRgb> table;
    for (auto const& [count, colour] : sorted)
        if (table.size() < 256)
            table.append(colour);
    return image.convertToFormat(QImage::Format_Indexed8, table, Qt::ThresholdDither);
}

class Pictures {
public:
    Pictures(QString const& folder, QString const& tool) : m_folder(folder), m_tool(tool)
    {
        if (!QFile::copy(QString::fromStdString(Host::installedProductFile().string()), m_product))
            throw std::runtime_error("there is no installed product file");
        set({QStringLiteral("exportPath"), QDir::homePath() + QStringLiteral("/Archive/films")});
        set({QStringLiteral("projectPath"), QDir::homePath() + QStringLiteral("/Films")});
        set({QStringLiteral("keepVideoAspect"), QStringLiteral("false")});
        set({QStringLiteral("userCustomColors"), QStringLiteral("#ff8800"), QStringLiteral("navy")});
        set({QStringLiteral("npsEmailToSend"), QStringLiteral("ada@example.org")});
        set({QStringLiteral("npsSendCount"), QStringLiteral("3")});
    }

    void draw(QString const& palette)
    {
        Inspector::MainWindow window({QFile::encodeName(m_product).toStdString()});
        window.resize(1060, 560);
        window.goTo("exportPath");
        window.show();
        save(window, QStringLiteral("settings"), palette);
        set({QStringLiteral("useGuideLines"), palette == QLatin1String("dark") ? QStringLiteral("true") : QStringLiteral("false")});
        set({QStringLiteral("npsSendCount"), QString::number(++m_sent)});
        wait(window, "Changes", 2);
        for (auto const& [key, name] :
             {std::pair{Qt::Key_2, "locations"}, std::pair{Qt::Key_3, "health"}, std::pair{Qt::Key_4, "changes"}}) {
            trigger(window, QKeySequence(static_cast<int>(Qt::CTRL) | key));
            for (QTreeView* const view : window.findChildren<QTreeView*>())
                if (view->isVisible())
                    view->setCurrentIndex(view->model()->index(0, 0));
            save(window, QLatin1String(name), palette);
        }
        trigger(window, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_1));
        trigger(window, QKeySequence(static_cast<int>(Qt::CTRL) | Qt::Key_E));
        window.goTo("exportPath");
        save(window, QStringLiteral("editing"), palette);
    }

private:
    void set(QStringList const& words) const
    {
        if (QProcess::execute(m_tool, QStringList{QStringLiteral("--product"), m_product, QStringLiteral("set")} + words) != 0)
            throw std::runtime_error("the command line stores nothing");
    }
    static void trigger(Inspector::MainWindow const& window, QKeySequence const& keys)
    {
        for (QAction* const action : window.findChildren<QAction*>())
            if (action->shortcut() == keys)
                action->trigger();
    }
    static int linesOf(Inspector::MainWindow const& window, char const* name)
    {
        for (QTreeView const* const view : window.findChildren<QTreeView*>())
            if (view->accessibleName() == QLatin1String(name))
                return view->model()->rowCount();
        throw std::runtime_error(std::string("there is no list of ") + name);
    }
    // Until there are so many lines, and a moment more, so that what follows from them is painted.
    static void wait(Inspector::MainWindow const& window, char const* name, int lines)
    {
        while (linesOf(window, name) < lines)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QTimer::singleShot(std::chrono::seconds(1), &window, &QCoreApplication::quit);
        QCoreApplication::exec();
    }
    void save(Inspector::MainWindow& window, QString const& name, QString const& palette) const
    {
        wait(window, "Findings", 2);
        QString const file = m_folder + QStringLiteral("/window-") + name + QLatin1Char('-') + palette + QStringLiteral(".png");
        if (!withFewColours(window.grab().toImage()).save(file, "PNG", 0))
            throw std::runtime_error("cannot write " + file.toStdString());
    }

    QString const m_folder;
    QString const m_tool;
    QString const m_product = QDir::homePath() + QStringLiteral("/lumora.json");
    int m_sent = 3;
};

QPalette dark()
{
    QPalette palette;
    QColor const window(45, 47, 51), base(32, 34, 37), text(225, 227, 230);
    for (QPalette::ColorRole const role : {QPalette::Window, QPalette::Button, QPalette::AlternateBase, QPalette::ToolTipBase})
        palette.setColor(role, window);
    for (QPalette::ColorRole const role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text, QPalette::ToolTipText})
        palette.setColor(role, text);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::Highlight, QColor(53, 112, 176));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(120, 170, 230));
    palette.setColor(QPalette::PlaceholderText, QColor(150, 153, 158));
    for (QPalette::ColorRole const role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        palette.setColor(QPalette::Disabled, role, QColor(140, 143, 148));
    return palette;
}

} // namespace

int main(int argc, char** argv)
try {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (argc != 4)
        throw std::runtime_error("usage: pictures FOLDER TOOL HOME");
    Home const home(argv[3]);
    argv[0][0] = '\0'; // folders of caches have the name of the program in them, and an editor's is another
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    QFont font(QStringLiteral("DejaVu Sans"), 8);
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    QApplication::setFont(font);
    Pictures pictures(QFile::decodeName(argv[1]), QFile::decodeName(argv[2]));
    pictures.draw(QStringLiteral("light"));
    QApplication::setPalette(dark());
    pictures.draw(QStringLiteral("dark"));
    return 0;
} catch (std::exception const& error) {
    std::fprintf(stderr, "pictures: %s\n", error.what());
    return 1;
}
