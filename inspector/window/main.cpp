// SPDX-License-Identifier: MIT
#include <Window/MainWindow.h>
#include <Window/start/Application.h>

#include <Host/Home.h>
#include <Host/ProductFile.h>
#include <Settings/Version.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

constexpr int wrongUsage = 2;

int fail(QString const& text, int status)
{
    std::fprintf(stderr, "editor-settings-inspector: %s\n", text.toLocal8Bit().constData());
    return status;
}

// Help needs no screen.
bool asksForText(char const* argument)
{
    return std::strcmp(argument, "-h") == 0 || std::strcmp(argument, "--help") == 0 || std::strcmp(argument, "--version") == 0;
}

QString option(QCommandLineParser const& parser, char const* name, char const* variable)
{
    QString const given = parser.value(QLatin1String(name));
    return parser.isSet(QLatin1String(name)) ? given : qEnvironmentVariable(variable);
}

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        QStringLiteral("Shows and changes the preferences of Lumora Video Editor. It opens for looking only."));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Display this help and exit.")});
    parser.addOption({QStringLiteral("version"), QStringLiteral("Display program version information and exit.")});
    parser.addOption({QStringLiteral("product"),
                      QStringLiteral("The product file; by default the installed one. [EDITOR_SETTINGS_PRODUCT]"), QStringLiteral("FILE")});
    parser.addOption({QStringLiteral("home"),
                      QStringLiteral("The folder that holds both stores; by default that of the user's data. [EDITOR_SETTINGS_HOME]"),
                      QStringLiteral("FOLDER")});
    parser.addOption({QStringLiteral("allow-network"), QStringLiteral("Stores on a network too, where two machines can damage them.")});
    parser.addOption(
        {QStringLiteral("measure"),
         QStringLiteral("Print the milliseconds from the start to the first painting, and to that of the settings, and exit.")});
    parser.addPositionalArgument(QStringLiteral("KEY"), QStringLiteral("The setting to begin with."), QStringLiteral("[KEY]"));
}

/// Prints when the window was painted first, and when with its lines; then ends the program.
class Measurement : public QObject {
public:
    Measurement(Inspector::MainWindow& window, QElapsedTimer const& sinceStart) : QObject(&window), m_sinceStart(sinceStart)
    {
        qApp->installEventFilter(this);
        connect(&window, &Inspector::MainWindow::filled, this, [this] { m_isFilled = true; });
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !m_isPainted)
            tell("first paint", m_isPainted = true);
        else if (event->type() == QEvent::Paint && m_isFilled && !m_isShown)
            tell("rows shown", m_isShown = true);
        return false;
    }

private:
    // Once all of the window is painted.
    void tell(char const* what, bool)
    {
        QMetaObject::invokeMethod(
            this,
            [=] {
                std::printf("%s: %lld ms\n", what, static_cast<long long>(m_sinceStart.elapsed()));
                if (m_isShown)
                    QCoreApplication::quit();
            },
            Qt::QueuedConnection);
    }

    QElapsedTimer const m_sinceStart;
    bool m_isPainted = false;
    bool m_isFilled = false;
    bool m_isShown = false;
};

int showWindow(QCommandLineParser const& parser, QElapsedTimer const& sinceStart)
try {
    if (std::string const ignored = Host::ignoreRelativeDataFolder(); !ignored.empty())
        fail(QStringLiteral("XDG_DATA_HOME is '%1', which is not absolute, so it counts as not set").arg(QString::fromStdString(ignored)),
             0);
    QString const product = option(parser, "product", "EDITOR_SETTINGS_PRODUCT");
    QString const home = option(parser, "home", "EDITOR_SETTINGS_HOME");
    Inspector::Place place = {product.isEmpty() ? Host::installedProductFile()
                                                : std::filesystem::path(QFile::encodeName(product).toStdString())};
    if (!home.isEmpty())
        place.storeFolder = QFile::encodeName(home).toStdString();
    place.allowsNetworkFileSystem = parser.isSet(QStringLiteral("allow-network"));
    Inspector::MainWindow window(place);
    if (parser.isSet(QStringLiteral("measure")))
        new Measurement(window, sinceStart);
    QStringList const keys = parser.positionalArguments();
    if (!keys.isEmpty())
        window.goTo(keys.first().toStdString());
    window.show();
    return QApplication::exec();
} catch (std::exception const& error) {
    return fail(QString::fromLocal8Bit(error.what()), 1);
}

} // namespace

// NOLINTNEXTLINE(bugprone-exception-escape): only a lack of memory is thrown here, which ends the process
int main(int argc, char** argv)
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    std::signal(SIGXFSZ, SIG_IGN); // a write beyond the limit of file sizes then fails as on a full disk
    bool const isText = std::any_of(argv + 1, argv + argc, asksForText);
    std::unique_ptr<QCoreApplication> const application =
        isText ? std::make_unique<QCoreApplication>(argc, argv) : Inspector::makeApplication(argc, argv);
    QCoreApplication::setApplicationVersion(QLatin1String(EDITOR_SETTINGS_VERSION_STRING));
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QCoreApplication::arguments()))
        return fail(parser.errorText(), wrongUsage);
    if (parser.isSet(QStringLiteral("help")))
        return std::fputs(parser.helpText().toLocal8Bit().constData(), stdout) < 0;
    if (parser.isSet(QStringLiteral("version")))
        return std::puts(EDITOR_SETTINGS_VERSION_STRING) < 0;
    if (parser.positionalArguments().size() > 1)
        return fail(QStringLiteral("expected one KEY at most"), wrongUsage);
    for (char const* const name : {"product", "home"})
        if (parser.isSet(QLatin1String(name)) && parser.value(QLatin1String(name)).isEmpty())
            return fail(QStringLiteral("--%1: the name is empty").arg(QLatin1String(name)), wrongUsage);
    if (isText)
        return fail(QStringLiteral("an option before it takes --help or --version for its value"), wrongUsage);
    return showWindow(parser, sinceStart);
}
