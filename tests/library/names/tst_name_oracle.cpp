// SPDX-License-Identifier: MIT
//
// The generated names told a second time, as plainly as can be, and compared with the library on random folders. What
// is random follows from a seed, which a failure prints; the environment variable EDITOR_SETTINGS_SEED repeats it.
#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/Tally.h>
#include <support/names/EntryKinds.h>
#include <support/names/FileNameCodec.h>
#include <support/names/NaiveNames.h>

#include <QFile>
#include <QLocale>
#include <QRegularExpression>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <sstream>

#include <fcntl.h>
#include <langinfo.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Files = std::vector<std::string>;

// The locale of the environment, as a program of Qt takes it over, before Qt first reads the name of a file.
char const* const locale = std::setlocale(LC_ALL, "");

QString utf8(std::string const& text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }

// --- Random folders ----------------------------------------------------------------------------------------------------

std::string printable(std::string const& bytes)
{
    std::ostringstream text;
    for (char const byte : bytes) {
        auto const code = static_cast<unsigned char>(byte);
        if (code >= 0x20 && code < 0x7F && byte != '\\')
            text << byte;
        else
            text << "\\x" << std::hex << (code < 16 ? "0" : "") << static_cast<unsigned>(code);
    }
    return text.str();
}

std::string printable(QString const& text) { return printable(text.toStdString()); }

class Chance {
public:
    explicit Chance(std::uint64_t seed) : m_engine(seed) {}

    std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_engine); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::string const& of(Files const& choices) { return choices[below(choices.size())]; }

private:
    std::mt19937_64 m_engine;
};

Files const plainPieces = {"Holiday",
                           "Holiday",
                           "holiday",
                           "Clip",
                           "a",
                           "b",
                           "aa",
                           "A",
                           "s",
                           "k",
                           "Rec",
                           " ",
                           "-",
                           "-1",
                           "7",
                           "(2)",
                           " (3)",
                           "x y",
                           "a.b",
                           ".",
                           ":",
                           "\n",
                           "png",
                           u8"\u00E9",
                           u8"\u00C9",
                           u8"e\u0301",
                           u8"\u05D0",
                           u8"\U0001F3AC",
                           u8"\U00010400",
                           u8"\U00010428",
                           u8"\u017F",
                           u8"\u212A",
                           u8"\u0663",
                           u8"\uFFFD"};
Files const oddPieces = {"%1",    "%2",  "%3",   "%%1",  "%%",   "%L2", "%L1", "%0",  "%10",   "%",  u8"%\u0661", "(a|b)",
                         "(7|8)", "(1)", "[ab]", "[^a]", "[!a]", "a*",  "*",   "?",   "a?",    "b+", "a{2}",      "(",
                         ")",     "[",   "]",    "|",    "^",    "$",   "\\",  "\\d", "(?:a)", "{"};
Files const formats = {
    "png",      "png",    "png", "PNG", "mp4", "", "p.g", "p?g", "p*", "[pj]ng", "(png)", "(png", "[", "%1", "%2", "%3", u8"\u00C4\u00D6",
    u8"\u0130", "tar.gz", "p|g", "$",   ".png"};
Files const numbers = {"1",
                       "2",
                       "3",
                       "7",
                       "8",
                       "9",
                       "10",
                       "11",
                       "99",
                       "007",
                       "0",
                       "12345",
                       "2147483646",
                       "2147483647",
                       "2147483648",
                       "4294967297",
                       "99999999999",
                       "18446744073709551617",
                       "-5",
                       "+5",
                       " 5",
                       "",
                       "x",
                       "1x",
                       u8"\u0663",
                       u8"1\u0663",
                       u8"\uFF11",
                       u8"\u00B2",
                       u8"\U0001D7CF",
                       "1.5",
                       "-2147483648"};
Files const extensions = {".png", ".PNG", ".mp4", ".mov", ".wav", ".", ""};

class Content {
public:
    explicit Content(Chance& chance) : m_chance(chance), m_isPlain(chance.oneIn(2))
    {
        for (int count = 0; count < 2; ++count) {
            m_stems.push_back(stem());
            m_formats.push_back(m_chance.of(formats));
        }
    }

    std::string const& stem(std::size_t index) const { return m_stems[index]; }
    std::string const& format(std::size_t index) const { return m_formats[index]; }

    // The path of a clip with the stem.
    std::string source(std::size_t index)
    {
        static Files const folders = {"", "/", "/a/b.c/", "relative/"};
        static Files const ends = {".mov", ".mov", ".mov", "", ".", ".final.mov", ".MOV", "/"};
        return m_chance.of(folders) + m_stems[index] + m_chance.of(ends);
    }

    // A name that counts, or nearly.
    std::string name()
    {
        std::string result = wellFormed();
        if (m_chance.oneIn(6))
            result.erase(m_chance.below(result.size()), 1);
        if (m_chance.oneIn(8))
            result.insert(m_chance.below(result.size() + 1),
                          m_chance.of({"-", ".", " ", "a", "Rec-", "\n", "1", "(", "\xFF", "\xC3", "\xED\xA0\x80", u8"\u00E9"}));
        if (m_chance.oneIn(10))
            result = otherCase(result);
        if (m_chance.oneIn(15))
            result.insert(0, ".");
        return result;
    }

private:
    std::string stem()
    {
        std::string result;
        for (std::size_t pieces = m_chance.below(4); pieces > 0; --pieces)
            result += piece();
        return result;
    }

    // Every other folder is one of ASCII, which most folders are.
    std::string piece()
    {
        std::string result;
        do
            result = m_chance.of(m_chance.oneIn(m_isPlain ? 10 : 3) ? oddPieces : plainPieces);
        while (m_isPlain && std::any_of(result.begin(), result.end(), [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; }));
        return result;
    }

    std::string wellFormed()
    {
        std::size_t const index = m_chance.below(2);
        std::string const& stem = m_stems[index];
        std::string const& format = m_chance.oneIn(6) ? m_chance.of(formats) : m_formats[index];
        std::string const& number = m_chance.of(numbers);
        std::string const prefix = m_chance.oneIn(4) ? stem + m_chance.of(plainPieces) : std::string();
        switch (m_chance.below(8)) {
        case 0:
        case 1:
            return prefix + "Rec-" + number + "-2024.01.02-" + m_chance.of({"10.00.00", "x", ""}) + m_chance.of(extensions);
        case 2:
        case 3:
            return (m_chance.oneIn(4) ? otherCase(stem) + " " : prefix) + stem + " (" + number + ")." + format;
        case 4: {
            // What the pattern looks like once the placeholders of the stem are filled.
            QString const pattern = oracle::filled(oracle::filled(QStringLiteral("%1 (NUMBER).%2"), utf8(stem)), utf8(format));
            return stem + " " + QString(pattern).replace(QStringLiteral("NUMBER"), utf8(number)).toStdString() + "." + format;
        }
        case 5:
            return stem + "-" + m_chance.of({"a", "b", "aa", "7", "8", "1", "!", "Clip"}) + "-" + number + m_chance.of(extensions);
        case 6:
            return m_chance.of({"a", "b", "ab", "Clip"}) + "-" + number + m_chance.of(extensions);
        default:
            return prefix + stem + "-" + number + m_chance.of(extensions);
        }
    }

    static std::string otherCase(std::string text)
    {
        for (char& byte : text) {
            bool const isLetter = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
            byte = isLetter ? static_cast<char>(byte ^ 0x20) : byte;
        }
        return text;
    }

    Chance& m_chance;
    bool const m_isPlain;
    Files m_stems;
    Files m_formats;
};

// The path with TIME in the place of the time, which no test knows beforehand.
QString withoutTime(QString const& path)
{
    static QRegularExpression const time(QStringLiteral("-[0-9]{4}\\.[0-9]{2}\\.[0-9]{2}-[0-9]{2}\\.[0-9]{2}\\.[0-9]{2}\\."));
    return QString(path).replace(time, QStringLiteral("-TIME."));
}

std::uint64_t seedOfThisRun()
{
    char const* const given = std::getenv("EDITOR_SETTINGS_SEED");
    return given ? std::stoull(given) : std::random_device()();
}

// Where each folder takes long, as under valgrind, EDITOR_SETTINGS_FOLDERS says how many are enough.
std::uint64_t atMost(std::uint64_t folders)
{
    char const* const enough = std::getenv("EDITOR_SETTINGS_FOLDERS");
    return enough ? std::min<std::uint64_t>(folders, std::stoull(enough)) : folders;
}

struct Reading {
    char const* meaning;
    char const* codec; // null for the one of the locale; of Qt 6 it decides nothing
    int folders;
};

class NameOracle : public BoundLibrary, public testing::WithParamInterface<Reading> {
protected:
    NameOracle()
    {
        fs::create_directory(m_folder);
        m_home.write("target", "content");
        EXPECT_EQ(::mkfifo((m_home.path() / "pipe").c_str(), 0600), 0);
        QLocale::setDefault(QLocale::c());
    }
    ~NameOracle() override { QLocale::setDefault(m_earlier); }

    void make(std::string const& name, Chance& chance) const
    {
        std::string const path = m_folder + '/' + name;
        switch (chance.below(16)) {
        case 0:
            ::mkdir(path.c_str(), 0700);
            break;
        case 1:
            ::mkfifo(path.c_str(), 0600);
            break;
        case 2:
            static_cast<void>(::symlink(chance.of({"../target", "../target", "../missing", "..", "../pipe"}).c_str(), path.c_str()));
            break;
        default:
            ::close(::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY, 0600));
        }
    }

    void fill(Content& content, Chance& chance) const
    {
        for (std::size_t count = chance.below(13); count > 0; --count) {
            std::string const name = content.name();
            bool const isName = !name.empty() && name != "." && name != ".." && name.size() < 256 && name.find('/') == std::string::npos;
            if (isName)
                make(name, chance);
        }
    }

    // Its entries, each with its kind as `ls` marks it.
    std::string description() const
    {
        std::string result;
        for (fs::directory_entry const& entry : fs::directory_iterator(m_folder)) {
            bool const isLink = entry.is_symlink();
            std::string const mark = isLink                 ? " -> " + fs::read_symlink(entry.path()).string()
                                     : entry.is_directory() ? "/"
                                     : entry.is_fifo()      ? "|"
                                                            : "";
            result += "  \"" + printable(entry.path().filename().string()) + "\"" + mark + "\n";
        }
        return result;
    }

    void clear() const
    {
        for (fs::directory_entry const& entry : fs::directory_iterator(m_folder))
            fs::remove(entry.path());
    }

    std::string const m_folder = (m_home.path() / "folder").string();
    QLocale const m_earlier;
};

TEST_P(NameOracle, AgreesOnRandomFolders)
{
    FileNameCodec const reading(GetParam().codec);
    std::string const codec = codecDecides && GetParam().codec ? GetParam().codec : "UTF-8";
    std::uint64_t const seed = seedOfThisRun();
    RecordProperty("seed", std::to_string(seed));
    std::uint64_t const folders = atMost(static_cast<std::uint64_t>(GetParam().folders));
    std::uint64_t counted[3] = {};

    for (std::uint64_t round = 0; round < folders; ++round) {
        Chance chance(seed + round);
        Content content(chance);
        fill(content, chance);
        std::string const form = chance.oneIn(20) ? m_folder + "/missing" : m_folder + chance.of({"", "", "/", "/.", "/../folder"});
        for (char const* const key : {"audioRecordPath", "exportPath", "stabilizedFilePath"})
            m_productValues->setString(key, form);
        QStringList const names = oracle::listing(form, codec);
        EntryKinds::Limit const limit(static_cast<EntryKinds::Told>(chance.below(3)));
        long answers = 0;

        auto const compare = [&](std::size_t generator, QString const& answer, QString const& name, std::string const& source,
                                 std::string const& format) {
            QString const expected = utf8(form) + QLatin1Char('/') + name;
            QString const alone = generator == 0   ? oracle::recording({}, utf8(format))
                                  : generator == 1 ? oracle::freeze({}, utf8(source), utf8(format))
                                                   : oracle::stabilized({}, utf8(source), utf8(format));
            counted[generator] += name != alone;
            EXPECT_EQ(limit.listings(), ++answers) << "the folder is listed once for each answer";
            EXPECT_EQ(answer, expected) << "EDITOR_SETTINGS_SEED=" << seed << ", folder " << round << "\nsource \"" << printable(source)
                                        << "\", format \"" << printable(format) << "\"\nlibrary \"" << printable(answer) << "\"\noracle  \""
                                        << printable(expected) << "\"\nin the folder:\n"
                                        << description();
        };

        std::string const recordingFormat = chance.of(formats);
        m_productValues->setString("audioRecordFormat", recordingFormat);
        compare(0, withoutTime(Settings::generateAudioRecordFilePath()), oracle::recording(names, utf8(recordingFormat)), "",
                recordingFormat);
        for (std::size_t index = 0; index < 2; ++index) {
            std::string const source = content.source(index);
            std::string const& format = content.format(index);
            m_productValues->setString("freezedFileFormat", format);
            compare(1, Settings::generateFreezedFilePath(utf8(source)), oracle::freeze(names, utf8(source), utf8(format)), source, format);
            compare(2, Settings::generateStabilizedFilePath(utf8(source), utf8(format)),
                    oracle::stabilized(names, utf8(source), utf8(format)), source, format);
        }
        calls();
        clear();
        if (HasFailure())
            return;
    }
    // Else hardly a folder held a name that counts, and the agreement would tell little.
    EXPECT_GT(counted[0], folders / 20);
    EXPECT_GT(counted[1], folders / 20);
    EXPECT_GT(counted[2], folders / 20);
}

INSTANTIATE_TEST_SUITE_P(Table, NameOracle,
                         testing::Values(Reading{"InTheLocale", nullptr, times(5000, 10000, 20000)}, Reading{"InAscii", "US-ASCII", 1000},
                                         Reading{"InLatin1", "ISO-8859-1", 1000}),
                         byMeaning);

// --- How the names of files are read -----------------------------------------------------------------------------------

TEST(FileNames, LocaleIsTheOneOfTheEnvironment)
{
    char const* const asked = std::getenv("LC_ALL");
    ASSERT_TRUE(asked) << "to be started with LC_ALL=C or LC_ALL=C.UTF-8, as ctest does";
    std::string const name = asked;
    ASSERT_TRUE(name == "C" || name == "C.UTF-8") << name;
    EXPECT_EQ(locale, name);
    EXPECT_STREQ(::nl_langinfo(CODESET), name == "C" ? "ANSI_X3.4-1968" : "UTF-8");
}

// Qt asks ICU how text is encoded, which answers with UTF-8 in every locale where it is built so, as on Debian.
TEST(FileNames, AreReadAsUtf8InEveryLocale) { EXPECT_EQ(QFile::encodeName(QStringLiteral("\u00E9\u20AC")), u8"\u00E9\u20AC"); }

struct Read {
    char const* meaning;
    char const* codec;
    std::string file;
    char16_t const* stem;
    bool counts;
    bool countsAsUtf8; // where the codec does not decide
};

class FileNameReading : public BoundLibrary, public testing::WithParamInterface<Read> {};

TEST_P(FileNameReading, DecidesWhatCounts)
{
    FileNameCodec const reading(GetParam().codec);
    m_home.write("folder/" + GetParam().file, "content");
    m_productValues->setString("stabilizedFilePath", (m_home.path() / "folder").string());
    m_productValues->setString("exportPath", (m_home.path() / "folder").string());
    QString const stem = QString::fromUtf16(GetParam().stem);
    bool const counts = codecDecides ? GetParam().counts : GetParam().countsAsUtf8;
    EXPECT_EQ(Settings::generateStabilizedFilePath(stem, QStringLiteral("mp4")),
              inHome("folder/") + stem + (counts ? QStringLiteral("-8.mp4") : QStringLiteral("-1.mp4")));
}

INSTANTIATE_TEST_SUITE_P(Table, FileNameReading,
                         testing::Values(Read{"AccentInTheLocale", nullptr, u8"\u00E9-7.mp4", u"\u00E9", true, true},
                                         Read{"SurrogatePairInTheLocale", nullptr, u8"\U0001F3AC-7.mp4", u"\U0001F3AC", true, true},
                                         Read{"AccentOfLatin1InTheLocale", nullptr, "\xE9-7.mp4", u"\u00E9", false, false},
                                         Read{"NoTextInTheLocale", nullptr, "a-7\xFF.mp4", u"a", false, false},
                                         Read{"AsciiInAscii", "US-ASCII", "a-7.mp4", u"a", true, true},
                                         Read{"AccentInAscii", "US-ASCII", u8"\u00E9-7.mp4", u"\u00E9", false, true},
                                         Read{"AccentAfterTheNumberInAscii", "US-ASCII", u8"a-7\u00E9.mp4", u"a", false, true},
                                         Read{"AccentInLatin1", "ISO-8859-1", "\xE9-7.mp4", u"\u00E9", true, false},
                                         Read{"Utf8InLatin1", "ISO-8859-1", u8"\u00E9-7.mp4", u"\u00E9", false, true},
                                         Read{"Utf8InLatin1IsTwoLetters", "ISO-8859-1", u8"\u00E9-7.mp4", u"\u00C3\u00A9", true, false},
                                         Read{"AnyByteIsTextInLatin1", "ISO-8859-1", "a-7\xFF.mp4", u"a", true, false}),
                         byMeaning);

class FileNamesInAscii : public BoundLibrary {
protected:
    FileNameCodec m_reading{"US-ASCII"};
};

// Qt 5 writes a question mark for what the codec does not know, and so finds a folder of that name.
TEST_F(FileNamesInAscii, FolderThatCannotBeWrittenIsLookedForUnderQuestionMarksWhereTheCodecDecides)
{
    m_productValues->setString("stabilizedFilePath", m_home.path().string() + u8"/\u00E9");
    QString const folder = inHome("") + QString::fromUtf16(u"\u00E9/");
    m_home.write(fs::u8path(u8"\u00E9") / "a-7.mp4", "content");
    EXPECT_EQ(Settings::generateStabilizedFilePath(QStringLiteral("a"), QStringLiteral("mp4")),
              folder + (codecDecides ? QStringLiteral("a-1.mp4") : QStringLiteral("a-8.mp4")));
    m_home.write("?/a-3.mp4", "content");
    EXPECT_EQ(Settings::generateStabilizedFilePath(QStringLiteral("a"), QStringLiteral("mp4")),
              folder + (codecDecides ? QStringLiteral("a-4.mp4") : QStringLiteral("a-8.mp4")));
}

} // namespace
