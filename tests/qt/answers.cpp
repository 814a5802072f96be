// SPDX-License-Identifier: MIT
//
// Prints what the library answers for hostile products, settings and folders, so that builds with two versions of Qt can be
// compared. What is random follows from a fixed seed, and the home folder and the time of day are left out. The argument says
// how many random folders there are.
#include <Catalogue/Catalogue.h>
#include <Storage/EmptyStorage.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <QFont>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <set>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Texts = std::vector<std::string>;

using namespace std::string_literals; // texts with a NUL

// --- Answers in ASCII --------------------------------------------------------------------------------------------------

std::string home;
std::set<std::string> messages; // of Qt, cut where what follows differs between versions

std::string shown(std::string bytes)
{
    for (std::size_t at = 0; (at = bytes.find(home, at)) != std::string::npos;)
        bytes.replace(at, home.size(), "HOME");
    std::string result = "\"";
    for (char const byte : bytes) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned>(static_cast<unsigned char>(byte)));
        result += byte >= ' ' && byte <= '~' && byte != '\\' ? std::string(1, byte) : escaped;
    }
    return result + '"';
}

// As code units, which may be half a pair.
std::string shown(QString text)
{
    if (text.isNull())
        return "null";
    std::string result = "u\"";
    for (QChar const character : text.replace(QString::fromStdString(home), QLatin1String("HOME"))) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, "\\u%04x", static_cast<unsigned>(character.unicode()));
        bool const isPlain = character >= QLatin1Char(' ') && character <= QLatin1Char('~') && character != QLatin1Char('\\');
        result += isPlain ? std::string(1, character.toLatin1()) : escaped;
    }
    return result + '"';
}

std::string shown(QByteArray const& bytes) { return (bytes.isNull() ? "null bytes" : "bytes ") + shown(bytes.toStdString()); }
std::string shown(int number) { return std::to_string(number); }
std::string shown(bool flag) { return flag ? "true" : "false"; }
std::string shown(QStringList const& list)
{
    std::string result = "list";
    for (QString const& element : list)
        result += ' ' + shown(element);
    return result;
}

template <typename Answer>
void print(std::string const& question, Answer const& answer)
{
    std::printf("%s = %s\n", question.c_str(), shown(answer).c_str());
    for (std::string const& message : messages)
        std::printf("  Qt: %s\n", message.c_str());
    messages.clear();
}

// --- Preferences and locations -----------------------------------------------------------------------------------------

Texts const texts = {"",
                     "a",
                     "/x//y/./../z/",
                     " a ",
                     "a|#|b|#||#|c",
                     "|#|",
                     "|#||#",
                     "a\xFFz",
                     "\xC0\xAF",
                     "\xED\xA0\x80",
                     "a\0b:c"s,
                     "\0"s,
                     "\xEF\xBB\xBF"
                     "a",
                     u8"\u00E9e\u0301\u05D0\uFFFD\uFEFF",
                     u8"\U0001F3AC/\U00010400",
                     "%1%2%L3%99",
                     "/\\:*?\"<>|[](){}^$.+",
                     "~/x",
                     "a\r\n\t\x7F",
                     ",,x,,Y,",
                     std::string(300, 'l')};

// Answers every question for a text or bytes with one text, where it has one, and for a format with another.
class OneText : public Storage::EmptyStorage {
public:
    explicit OneText(std::string const* text, std::string const* format = nullptr) : m_text(text), m_format(format) {}
    std::string getString(std::string const& key, std::string const& value) const override
    {
        bool const isFormat = m_format && key.find("Format") != std::string::npos;
        return isFormat ? *m_format : m_text ? *m_text : value;
    }
    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const& value) const override
    {
        return m_text ? std::vector<unsigned char>(m_text->begin(), m_text->end()) : value;
    }
    void setString(std::string const& key, std::string const& value) override { print("written to " + key, value); }

private:
    std::string const* m_text;
    std::string const* m_format;
};

void printPreferences()
{
    for (Catalogue::Preference const& preference : Catalogue::preferences()) {
        Catalogue::Value const value = preference.read();
        std::visit([&](auto const& answer) { print(preference.name, answer); }, value);
        preference.write(value);
    }
    for (Catalogue::Family const& family : Catalogue::families())
        for (std::string const& member : texts)
            std::visit([&](auto const& answer) { print(family.name + (' ' + shown(member)), answer); },
                       family.read(QString::fromStdString(member)));
    QStringList list;
    for (std::string const& element : texts)
        list.append(QString::fromStdString(element));
    write("list", list, false);
    print("list", read("list", list, false));
}

void printLocations()
{
    for (Catalogue::Location const& location : Catalogue::locations()) {
        bool const ofAnyText = std::holds_alternative<QString (*)(std::string const&)>(location.function) ||
                               std::holds_alternative<std::string (*)(std::string const&)>(location.function);
        Texts const none = {""};
        for (std::string const& argument : ofAnyText ? texts : location.arguments.empty() ? none : location.arguments)
            print(location.name + (' ' + shown(argument)), location.path(argument));
    }
    QFont const font = Settings::countFiguresDownFont();
    print("font", font.family());
    print("size", font.pointSize());
    print("normal", font.weight() == static_cast<int>(QFont::Normal));
}

void printSettings()
{
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    for (std::string const& text : texts) {
        auto const store = std::make_shared<OneText>(&text);
        TestKit::ScopedBinding const binding({product, store, store, Lumora::ioPath("resources")});
        print("stored", text);
        printPreferences();
    }
    auto const store = std::make_shared<OneText>(nullptr);
    for (std::string const& text : texts) {
        *product = TestKit::FixedProductInfo();
        product->vendor = product->product = product->sharedData = product->extensions = text;
        product->kind = text.empty() ? 1 : 0;
        TestKit::ScopedBinding const binding({product, store, store, Lumora::ioPath(text)});
        print("product", text);
        printLocations();
        printPreferences();
    }
}

// --- Choices -----------------------------------------------------------------------------------------------------------

class Chance {
public:
    std::size_t below(std::size_t end) { return m_engine() % end; }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::string const& of(Texts const& choices) { return choices[below(choices.size())]; }
    std::string some(Texts const& choices, std::size_t most)
    {
        std::string result;
        for (std::size_t count = below(most + 1); count > 0; --count)
            result += of(choices);
        return result;
    }

private:
    std::mt19937_64 m_engine{1};
};

// --- The user's folders ------------------------------------------------------------------------------------------------

Texts const dirsPieces = {"XDG_VIDEOS_DIR=",
                          "XDG_MUSIC_DIR=",
                          "XDG_VIDEOS_DIR",
                          "\"",
                          "\"",
                          "$HOME",
                          "$HOME/",
                          "/abs",
                          "/",
                          "..",
                          "rel",
                          "\n",
                          "\n",
                          "#",
                          " ",
                          "\t",
                          "\r",
                          "=",
                          "\\",
                          "\xFF",
                          u8"\u00E9",
                          "\0"s,
                          "\xEF\xBB\xBF"};

void printUserFolders(TestKit::TemporaryHome const& folder, int rounds)
{
    Chance chance;
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    auto const store = std::make_shared<OneText>(nullptr);
    TestKit::ScopedBinding const binding({product, store, store, {}});
    for (int round = 0; round < rounds; ++round) {
        std::string const key = chance.oneIn(2) ? "XDG_VIDEOS_DIR=\"" : "XDG_MUSIC_DIR=\"";
        std::string const text = chance.some(dirsPieces, 4) + "\n" + key + chance.some(dirsPieces, 4) + "\"\n" + chance.some(dirsPieces, 4);
        folder.write(".config/user-dirs.dirs", text);
        print("movies for " + shown(text), Settings::defaultProjectPath());
        print("music", Settings::defaultAudioRecordPath());
    }
    fs::remove(folder.path() / ".config/user-dirs.dirs");
}

// --- Names -------------------------------------------------------------------------------------------------------------

Texts const pieces = {"Holiday",
                      "holiday",
                      "Clip",
                      "a",
                      "b",
                      "A",
                      "s",
                      "K",
                      " ",
                      "-",
                      "-1",
                      "7",
                      " (3)",
                      "x y",
                      "a.b",
                      ".",
                      ":",
                      "\n",
                      "%1",
                      "%2",
                      "%L2",
                      "(a|b)",
                      "(1)",
                      "[ab]",
                      "[^a]",
                      "a*",
                      "?",
                      "b+",
                      "a{2}",
                      "(",
                      ")",
                      "[",
                      "]",
                      "|",
                      "^",
                      "$",
                      "\\",
                      "\\d",
                      "{",
                      u8"\u00E9",
                      u8"\u00C9",
                      u8"e\u0301",
                      u8"\u05D0",
                      u8"\U0001F3AC",
                      u8"\U00010400",
                      u8"\u017F",
                      u8"\u212A",
                      u8"\u0663",
                      u8"\uFFFD",
                      u8"\uFEFF",
                      "\xFF",
                      "\xE9"};
Texts const formats = {"png",   "png",  "PNG", "mp4", "",   "p.g",      "p?g", "p*",   "[pj]ng",
                       "(png)", "(png", "[",   "%1",  "%3", u8"\u0130", "p|g", "p\0g"s};
Texts const numbers = {"1",           "7",  "8",  "10", "007",      "0",         "2147483646", "2147483647",  "2147483648",
                       "99999999999", "-5", "+5", "x",  u8"\u0663", u8"1\u0663", u8"\uFF11",   u8"\U0001D7CF"};
Texts const forms = {"folder", "folder/", "./folder//../folder", "HOME/folder", "link", "missing", "", "folder\0x"s, "\xFF", "file:folder"};

// The digits of the time as the zero of their script.
QString withoutTime(QString path)
{
    auto const number = path.lastIndexOf(QLatin1String("/Rec-")) + 5;
    auto const time = path.indexOf(QLatin1Char('-'), number + 1) + 1;
    for (auto at = time; at < time + 19 && at < path.size(); ++at)
        if (path.at(at).isDigit())
            path[at] = QChar(static_cast<ushort>(path.at(at).unicode() - path.at(at).digitValue()));
    return path;
}

void fill(fs::path const& folder, std::string const& stem, std::string const& format, Chance& chance)
{
    for (std::size_t count = chance.below(12); count > 0; --count) {
        std::string const number = chance.of(numbers);
        Texts const names = {stem + " (" + number + ")." + format, stem + '-' + number + "." + format, "Rec-" + number + "-a-b." + format,
                             chance.some(pieces, 2) + stem + '-' + number + chance.some(pieces, 2)};
        std::string const name = names[chance.below(names.size())].c_str();
        bool const isName = !name.empty() && name != "." && name != ".." && name.size() < 256 && name.find('/') == std::string::npos;
        if (!isName)
            continue;
        std::string const path = folder / name;
        if (chance.oneIn(8))
            static_cast<void>(::symlink(chance.oneIn(2) ? "../target" : "missing", path.c_str()));
        else
            ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }
}

void printNames(TestKit::TemporaryHome const& folder, int rounds)
{
    Chance chance;
    folder.write("target", "content");
    fs::create_symlink("folder", folder.path() / "link");
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    for (int round = 0; round < rounds; ++round) {
        fs::create_directory(folder.path() / "folder");
        std::string const stem = chance.some(pieces, 3);
        std::string const format = chance.of(formats);
        fill(folder.path() / "folder", stem, format, chance);
        std::string form = chance.oneIn(3) ? chance.of(forms) : "folder";
        if (form == "HOME/folder")
            form = (folder.path() / "folder").string();
        auto const store = std::make_shared<OneText>(&form, &format);
        TestKit::ScopedBinding const binding({product, store, store, {}});
        QString const source = QString::fromStdString("/films/" + stem + ".mov");
        print("recording", withoutTime(Settings::generateAudioRecordFilePath()));
        print("freeze of " + shown(source), Settings::generateFreezedFilePath(source));
        print("stabilized as " + shown(format), Settings::generateStabilizedFilePath(source, QString::fromStdString(format)));
        fs::remove_all(folder.path() / "folder");
    }
}

void printSamples(TestKit::TemporaryHome const& folder)
{
    auto const product = std::make_shared<TestKit::FixedProductInfo>();
    auto const store = std::make_shared<OneText>(nullptr);
    TestKit::ScopedBinding const binding({product, store, store, Lumora::ioPath("resources")});
    for (std::string const& extension : formats) {
        product->extensions = extension;
        folder.write("resources/resources/samples/stock/projects/below/first." + std::string(extension.c_str()), "");
        print("sample", Settings::sampleProjectPath());
        fs::remove_all(folder.path() / "resources");
    }
}

} // namespace

int main(int argc, char** argv)
{
    int const rounds = argc > 1 ? std::atoi(argv[1]) : 100;
    std::setlocale(LC_ALL, "");
    TestKit::TemporaryHome const folder;
    home = folder.path().string();
    fs::current_path(folder.path());
    qInstallMessageHandler([](QtMsgType, QMessageLogContext const&, QString const& message) {
        // Qt 6 alone warns of a placeholder with digits beyond ASCII, and fills it as Qt 5 does.
        if (!message.startsWith(QLatin1String("QString::arg(): the replacement")))
            messages.insert(message.left(40).toStdString());
    });
    printSettings();
    printUserFolders(folder, rounds);
    printNames(folder, rounds);
    printSamples(folder);
    fs::current_path("/");
}
