// SPDX-License-Identifier: MIT
//
// Plain names without Qt's listing: which questions are answered, and that the answers are Qt's.
#include <Settings/RunningNumber.h>
#include <TestKit/TemporaryHome.h>

#include <support/EntryKinds.h>
#include <support/Named.h>
#include <support/Tally.h>

#include <QDir>
#include <QRegExp>
#include <QTextCodec>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <random>

#include <dirent.h>
#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Number = std::optional<int>;
using Names = std::vector<std::string>;

// Asks when Qt's codecs are gone, which come to life after it.
struct AtTheEnd {
    ~AtTheEnd()
    {
        if (RunningNumber::highest(QStringLiteral("/"), QStringLiteral("*"), QStringLiteral("missing(\\d+)")).has_value())
            std::abort();
    }
} const atTheEnd;
QTextCodec const* const codec = QTextCodec::codecForLocale();

class PlainName : public testing::Test {
protected:
    PlainName() { fs::create_directory(m_folder); }

    QString folder() const { return QString::fromStdString(m_folder.string()); }

    void make(Names const& files) const
    {
        for (std::string const& file : files) {
            fs::create_directories((m_folder / file).parent_path());
            std::ofstream((m_folder / file).string()) << "content";
        }
    }

    Number highest(QString const& filter, QString const& pattern, QString const& stem = QString()) const
    {
        return RunningNumber::highest(folder(), filter, pattern, stem);
    }

    TestKit::TemporaryHome m_home;
    fs::path const m_folder = m_home.path() / "folder";
};

QString text(char16_t const* text) { return QString::fromUtf16(text); }

// --- Which filters and patterns are plain ------------------------------------------------------------------------------

struct Question {
    char const* meaning;
    char16_t const* filter;
    char16_t const* pattern;
    char16_t const* stem;
    Number answer;
};

class PlainQuestion : public PlainName, public testing::WithParamInterface<Question> {};

TEST_P(PlainQuestion, IsAnswered)
{
    make({"Clip-5.mp4", "a+b (6).png", "Clip-7", "x9y1z.png", "12.png", "a%b\\c-4.mp4", "c3.*", "Z8"});
    EXPECT_EQ(highest(text(GetParam().filter), text(GetParam().pattern), text(GetParam().stem)), GetParam().answer);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, PlainQuestion,
    testing::Values(
        Question{"TextBeforeTheNumber", u"Clip-*.*", u"Clip-(\\d+).*", u"", 5},
        Question{"TextOnBothSides", u"*.png", u"\\+b \\((\\d+)\\)\\.png", u"", 6}, Question{"NoFilter", u"*", u"Clip-(\\d+)", u"", 7},
        Question{"SeveralStars", u"*C**-*", u"Clip-(\\d+)", u"", 7}, Question{"NothingBeforeTheNumber", u"*.png", u"(\\d+)\\.png", u"", 12},
        Question{"FirstPlaceThatFits", u"x*", u"(\\d+)", u"", 9}, Question{"FirstPlaceWithWhatFollows", u"x*", u"(\\d+)z", u"", 1},
        Question{"EveryEscape", u"*", u"a\\$\\(\\)\\*\\+\\.\\?\\[\\\\\\]\\^\\{\\|\\}(\\d+)", u"", 0},
        Question{"EscapedBackslash", u"a*", u"b\\\\c-(\\d+)", u"", 4}, Question{"EscapedEnd", u"c*", u"c(\\d+)\\.\\*", u"", 3},
        Question{"AnythingAtTheEnd", u"c*", u"c(\\d+)\\..*", u"", 3}, Question{"Stem", u"*.png", u"(\\d+)", u"a+b (", 6},
        Question{"StemUpToTheLastDot", u"*.png", u"(\\d+)", u"12", 12}, Question{"StemBeyondTheLastDot", u"*.png", u"(\\d+)", u"12.", 0},
        Question{"StemOfANameWithoutADot", u"*", u"Clip-(\\d+)", u"Clip-7", 7}, Question{"StemInOtherCase", u"*.png", u"(\\d+)", u"A+b", 0},
        Question{"LastLetterInOtherCase", u"z*", u"Z(\\d+)", u"", 8}, Question{"FirstLetterInOtherCase", u"A+*", u"(\\d+)", u"", 6},
        Question{"FilterInOtherCase", u"cLIP-*.MP4", u"Clip-(\\d+)", u"", 5}, Question{"PatternInOtherCase", u"*", u"clip-(\\d+)", u"", 0},
        Question{"EmptyFilter", u"", u"Clip-(\\d+)", u"", 0}, Question{"FilterForPartOfTheName", u"Clip-5.mp", u"Clip-(\\d+)", u"", 0},
        Question{"FilterForMoreThanTheName", u"Clip-5.mp4?", u"Clip-(\\d+)", u"", Number()}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    LeftToQt, PlainQuestion,
    testing::Values(
        Question{"ManyStarsInTheFilter", u"*C**-**", u"Clip-(\\d+)", u"", Number()},
        Question{"OpenBracketInTheFilter", u"[Clip*", u"Clip-(\\d+)", u"", Number()},
        Question{"QuestionMarkInTheFilter", u"Clip-?.mp4", u"Clip-(\\d+)", u"", Number()},
        Question{"BracketInTheFilter", u"[C]lip*", u"Clip-(\\d+)", u"", Number()},
        Question{"ClosingBracketInTheFilter", u"Clip]*", u"Clip-(\\d+)", u"", Number()},
        Question{"BackslashInTheFilter", u"a%b\\c*", u"c-(\\d+)", u"", Number()},
        Question{"FilterNotAscii", u"*.\u00E9", u"Clip-(\\d+)", u"", Number()},
        Question{"PatternNotAscii", u"*", u"\u00E9(\\d+)", u"", Number()},
        Question{"StemNotAscii", u"*", u"Clip-(\\d+)", u"\u00E9", Number()},
        Question{"FirstCharacterThatIsNotAscii", u"*", u"Clip-(\\d+)", u"\u0080", Number()},
        Question{"LoneSurrogateInTheStem", u"*", u"Clip-(\\d+)", u"\xD800", Number()}, Question{"NoNumber", u"*", u"Clip", u"", Number()},
        Question{"EmptyPattern", u"*", u"", u"", Number()}, Question{"OtherDigits", u"*", u"Clip-([0-9]+)", u"", Number()},
        Question{"TwoNumbers", u"*", u"Clip-(\\d+)-(\\d+)", u"", Number()},
        Question{"TwoNumbersAtOnce", u"*", u"Clip-(\\d+)(\\d+)", u"", Number()},
        Question{"DigitAfterTheNumber", u"*", u"(\\d+)1z", u"", Number()},
        Question{"AnyCharacterBefore", u"*", u"Cl.p-(\\d+)", u"", Number()}, Question{"AnyTextBefore", u"*", u".*-(\\d+)", u"", Number()},
        Question{"AnyTextTwiceAfter", u"*", u"Clip-(\\d+).*.*", u"", Number()},
        Question{"AnyTextEscapedByHalf", u"*", u"Clip-(\\d+)\\.*", u"", Number()},
        Question{"GroupBefore", u"*", u"(Clip)-(\\d+)", u"", Number()}, Question{"Alternative", u"*", u"x|Clip-(\\d+)", u"", Number()},
        Question{"Anchor", u"*", u"^Clip-(\\d+)", u"", Number()}, Question{"End", u"*", u"Clip-(\\d+)$", u"", Number()},
        Question{"Repetition", u"*", u"Clip-+(\\d+)", u"", Number()},
        Question{"RepetitionOfTheNumber", u"*", u"Clip-(\\d+)?", u"", Number()}, Question{"Set", u"*", u"[C]lip-(\\d+)", u"", Number()},
        Question{"ClosingBracketAlone", u"*", u"]lip-(\\d+)", u"", Number()}, Question{"Braces", u"*", u"C{1}lip-(\\d+)", u"", Number()},
        Question{"EscapedGroup", u"*", u"Clip-\\(\\d+)", u"", Number()},
        Question{"EscapeWithAMeaning", u"*", u"\\bClip-(\\d+)", u"", Number()},
        Question{"EscapedLetter", u"*", u"\\Clip-(\\d+)", u"", Number()},
        Question{"EscapeAtTheEnd", u"*", u"Clip-(\\d+)\\", u"", Number()}),
    byMeaning);

TEST_F(PlainName, WithANulIsLeftToQt)
{
    EXPECT_EQ(highest(QStringLiteral("*\0"), QStringLiteral("(\\d+)")), Number());
    EXPECT_EQ(highest(QStringLiteral("*"), QStringLiteral("(\\d+)\0")), Number());
    EXPECT_EQ(highest(QStringLiteral("*"), QStringLiteral("(\\d+)"), QStringLiteral("a\0")), Number());
}

// --- Numbers -----------------------------------------------------------------------------------------------------------

TEST_F(PlainName, HasItsNumberTakenAsAnInt)
{
    QString const filter = QStringLiteral("*");
    make({"a0", "b-5", "c+5", "d 5"});
    for (char16_t const* const pattern : {u"a(\\d+)", u"b(\\d+)", u"c(\\d+)", u"d(\\d+)"})
        EXPECT_EQ(highest(filter, text(pattern)), 0);
    make({"a007"});
    EXPECT_EQ(highest(filter, text(u"a(\\d+)")), 7);
    make({"a99999999999", "a2147483648", "a18446744073709551617"});
    EXPECT_EQ(highest(filter, text(u"a(\\d+)")), 7) << "which do not fit";
    make({"a2147483646"});
    EXPECT_EQ(highest(filter, text(u"a(\\d+)")), 2147483646);
    make({"a0000000000000000000002147483647"});
    EXPECT_EQ(highest(filter, text(u"a(\\d+)")), 2147483647);
}

TEST_F(PlainName, CountsByItsFirstNumberOnly)
{
    make({"a99999999999-a3", "a1-a2", "a-a5x", "aaa4"});
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 5);
    EXPECT_EQ(highest(text(u"a9*"), text(u"a(\\d+)")), 0) << "a first number that does not fit";
    EXPECT_EQ(highest(text(u"aaa*"), text(u"aa(\\d+)")), 4) << "where places overlap";
}

// --- Names outside ASCII -----------------------------------------------------------------------------------------------

TEST_F(PlainName, IsAnsweredAmongOthersThatCannotCount)
{
    make({"Clip-5.mp4", "Cl\u00EFp-9.mp4", "\u30AF\u30EA\u30C3\u30D7.mp4", "bytes\xFF.mp4"});
    EXPECT_EQ(highest(text(u"Clip-*.*"), text(u"Clip-(\\d+).*")), 5);
}

TEST_F(PlainName, IsNotAnsweredAmongOthersThatMayCount)
{
    QString const filter = text(u"Clip-*.*");
    QString const pattern = text(u"Clip-(\\d+).*");
    for (char const* const name : {"Clip-\u0669.mp4", "Clip-9 \u00E9.mp4", "\u212AClip-9.mp4", "Clip-9\xFF.mp4"}) {
        make({"Clip-5.mp4", name});
        EXPECT_EQ(highest(filter, pattern), Number()) << name;
        fs::remove(m_folder / name);
        EXPECT_EQ(highest(filter, pattern), 5) << name;
    }
}

// Qt takes what stands before a colon for a search path where there is one of that name, and looks for the stem there.
TEST_F(PlainName, WithAColonIsLeftToQtWhereThereIsAStem)
{
    make({"Clip (5).png", "ab:Clip (9).png", "other/Clip (9).png"});
    QString const pattern = text(u"Clip \\((\\d+)\\)\\.png");
    QDir::setSearchPaths(text(u"ab"), {folder() + text(u"/other")});
    EXPECT_TRUE(QFileInfo(text(u"ab:Clip (9).png")).completeBaseName().startsWith(text(u"Clip")));
    QDir::setSearchPaths(text(u"ab"), {});
    EXPECT_EQ(highest(text(u"*.png"), pattern, text(u"Clip")), Number());
    EXPECT_EQ(highest(text(u"*.png"), pattern), 9);
    fs::remove(m_folder / "ab:Clip (9).png");
    EXPECT_EQ(highest(text(u"*.png"), pattern, text(u"Clip")), 5);
}

// Qt's expressions give up on such a name, which passes.
TEST_F(PlainName, IsLeftToQtWhereItGivesUp)
{
    make({"7aaaaab" + std::string(235, 'a') + 'c'});
    QString const filter = text(u"*a*a*a*a*b*c");
    EXPECT_EQ(QDir(folder()).entryList({filter}, QDir::Files).size(), 0);
    EXPECT_EQ(highest(filter, text(u"(\\d+)a")), Number());
}

// --- Folders -----------------------------------------------------------------------------------------------------------

TEST_F(PlainName, IsLookedForInAbsoluteFoldersOnly)
{
    make({"a1"});
    QString const filter = text(u"*");
    QString const pattern = text(u"a(\\d+)");
    EXPECT_EQ(RunningNumber::highest(folder(), filter, pattern), 1);
    EXPECT_EQ(RunningNumber::highest(folder() + text(u"/"), filter, pattern), 1);
    EXPECT_EQ(RunningNumber::highest(folder() + text(u"//../folder/."), filter, pattern), 1);
    for (QString const& other :
         {QString(), text(u""), text(u"."), text(u"folder"), text(u":/folder"), text(u"folder:a"), QStringLiteral("/\0")})
        EXPECT_EQ(RunningNumber::highest(other, filter, pattern), Number()) << other.toStdString();
}

TEST_F(PlainName, IsNotFoundWhereThereIsNoFolder)
{
    make({"file"});
    fs::create_symlink("missing", m_folder / "broken");
    EXPECT_EQ(::mkfifo((m_folder / "pipe").c_str(), 0600), 0);
    for (char16_t const* const name : {u"/missing", u"/file", u"/broken", u"/file/.", u"/pipe"}) {
        EXPECT_EQ(RunningNumber::highest(folder() + text(name), text(u"*"), text(u"(\\d+)")), 0);
    }
}

TEST_F(PlainName, LeavesNoFolderOpen)
{
    auto const open = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()); };
    make({"a1", "one/two/demo.b", "three/\u00E9"});
    auto const before = open();
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 1);
    EXPECT_EQ(open(), before);
}

TEST_F(PlainName, IsFoundInAFolderOfAnyName)
{
    make({"\u00E9\u30AF/a3", "link/../a4"});
    EXPECT_EQ(RunningNumber::highest(folder() + text(u"/\u00E9\u30AF"), text(u"*"), text(u"a(\\d+)")), 3);
}

// Qt follows a link before it goes up.
TEST_F(PlainName, IsFoundAboveWhatALinkLeadsTo)
{
    make({"one/two/three/file", "one/two/a2", "a7"});
    fs::create_symlink("one/two/three", m_folder / "link");
    EXPECT_EQ(RunningNumber::highest(folder() + text(u"/link/.."), text(u"*"), text(u"a(\\d+)")), 2);
    EXPECT_EQ(QDir(folder() + text(u"/link/..")).entryList({text(u"a*")}, QDir::Files), QStringList(text(u"a2")));
}

TEST_F(PlainName, IsLeftToQtWhereAPathMayGetTooLong)
{
    // The longest name and the NUL still fit behind the first, and no longer behind the second.
    std::string const longest = std::string(PATH_MAX - NAME_MAX - 2, '/');
    EXPECT_EQ(RunningNumber::highest(QString::fromStdString(longest), text(u"*"), text(u"missing(\\d+)")), 0);
    EXPECT_EQ(RunningNumber::highest(QString::fromStdString(longest + '/'), text(u"*"), text(u"missing(\\d+)")), Number());
}

TEST_F(PlainName, IsLeftToQtWhereNamesAreReadOtherwise)
{
    make({"a1"});
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("ISO-8859-1"));
    Number const number = highest(text(u"*"), text(u"a(\\d+)"));
    QTextCodec::setCodecForLocale(nullptr);
    EXPECT_EQ(number, Number());
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 1);
}

// --- Kinds of entries --------------------------------------------------------------------------------------------------

void makeSocket(fs::path const& path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.native().size(), sizeof address.sun_path);
    path.native().copy(address.sun_path, sizeof address.sun_path - 1);
    int const descriptor = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(::bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ::close(descriptor);
}

class EntryKind : public PlainName, public testing::WithParamInterface<EntryKinds::Told> {
protected:
    EntryKind()
    {
        make({"a1", "target/file", ".a90"});
        EXPECT_EQ(::mkfifo((m_folder / "a20").c_str(), 0600), 0);
        EXPECT_EQ(::mkfifo((m_folder / "pipe").c_str(), 0600), 0);
        makeSocket(m_folder / "a21");
        fs::create_directory(m_folder / "a22");
        fs::create_symlink("target", m_folder / "a23");
        fs::create_symlink("missing", m_folder / "a24");
        fs::create_symlink("a25", m_folder / "a25");
    }
};

TEST_P(EntryKind, OfPipesFoldersAndBrokenLinksDoesNotCount)
{
    EntryKinds::Limit const limit(GetParam());
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 1);
    EXPECT_EQ(limit.withheldFromTheCall() > 0, GetParam() != EntryKinds::Told::all);
}

TEST_P(EntryKind, OfLinksIsThatOfTheirTargets)
{
    EntryKinds::Limit const limit(GetParam());
    fs::create_symlink("target/file", m_folder / "a3");
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 3);
    fs::create_symlink("a3", m_folder / "a4");
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 4) << "a link to a link";
    // Qt takes no pipe, and takes a link to one.
    fs::create_symlink("pipe", m_folder / "a5");
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 5);
    EXPECT_EQ(QDir(folder()).entryList({text(u"a5"), text(u"a20")}, QDir::Files), QStringList(text(u"a5")));
    // What the kernel makes for a process alone has no kind at all.
    int const event = ::eventfd(0, EFD_CLOEXEC);
    fs::create_symlink("/proc/self/fd/" + std::to_string(event), m_folder / "a6");
    EXPECT_EQ(highest(text(u"*"), text(u"a(\\d+)")), 6);
    EXPECT_EQ(QDir(folder()).entryList({text(u"a6")}, QDir::Files), QStringList(text(u"a6")));
    ::close(event);
}

INSTANTIATE_TEST_SUITE_P(Told, EntryKind, testing::Values(EntryKinds::Told::all, EntryKinds::Told::none, EntryKinds::Told::everyOther));

// --- The same as Qt ----------------------------------------------------------------------------------------------------

class Chance {
public:
    explicit Chance(unsigned seed) : m_engine(seed) {}
    std::size_t below(std::size_t end) { return std::uniform_int_distribution<std::size_t>(0, end - 1)(m_engine); }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    std::string const& of(Names const& choices) { return choices[below(choices.size())]; }
    std::string some(Names const& choices, std::size_t most)
    {
        std::string result;
        for (std::size_t count = below(most + 1); count > 0; --count)
            result += of(choices);
        return result;
    }

private:
    std::mt19937_64 m_engine;
};

bool isName(std::string const& name)
{
    return !name.empty() && name != "." && name != ".." && name.size() <= NAME_MAX && name.find('/') == std::string::npos;
}

class SameAsQt : public testing::Test {
protected:
    SameAsQt() { std::ofstream((m_home.path() / "target").string()) << "content"; }

    void make(fs::path const& path, Chance& chance) const
    {
        switch (chance.below(10)) {
        case 0:
            ::mkdir(path.c_str(), 0700);
            break;
        case 1:
            ::mkfifo(path.c_str(), 0600);
            break;
        case 2:
            static_cast<void>(::symlink(chance.of({"../target", "missing", "..", "/dev/null"}).c_str(), path.c_str()));
            break;
        default:
            ::close(::open(path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600));
        }
    }

    static EntryKinds::Told anyKinds(Chance& chance) { return static_cast<EntryKinds::Told>(chance.below(3)); }

    TestKit::TemporaryHome m_home;
};

Names const parts = {"a", "A",   "s", "K", "1", "12", "007", "2147483647", "2147483648", "-",          " ", "(", ")", ".",    ".png",  "+",
                     "%", "\\n", "_", "*", "^", "$",  "{",   "}",          "99999999",   "Rec-1-2-3.", "]", "?", ":", "\xFF", "\u00E9"};

// The literal composition: the names that pass, one after the other through the pattern.
int highestByQt(QString const& folder, QString const& filter, QString const& pattern, QString const& stem)
{
    QRegExp number(pattern);
    int highest = 0;
    for (QString const& name : QDir(folder).entryList({filter}, QDir::Files))
        if (QFileInfo(name).completeBaseName().startsWith(stem) && number.indexIn(name) >= 0)
            highest = std::max(highest, number.cap(1).toInt());
    return highest;
}

TEST_F(SameAsQt, NumberInRandomFolders)
{
    fs::path const path = m_home.path() / "folder";
    QString const folder = QString::fromStdString(path.string());
    int const folders = times(1000, 20000);
    int answered = 0;
    int counted = 0;
    for (int round = 0; round < folders; ++round) {
        Chance chance(seed() + static_cast<unsigned>(round));
        fs::create_directory(path);
        std::string const before = chance.some(parts, 3);
        std::string const after = chance.some(parts, 2);
        for (std::size_t count = chance.below(10); count > 0; --count) {
            std::string const name = chance.some(parts, chance.oneIn(3) ? 1 : 0) + before +
                                     chance.of({"1", "7", "0012", "4294967297", "2147483647"}) + after +
                                     chance.some(parts, chance.oneIn(2) ? 2 : 0);
            if (isName(name))
                make(path / name, chance);
        }
        QString const filter = QString::fromStdString(chance.of({"*", "*" + after, before + "*", "*" + chance.of(parts), before + "*.*"}));
        QString const start = QRegExp::escape(QString::fromStdString(before));
        QString const end = chance.oneIn(2) ? QRegExp::escape(QString::fromStdString(after)) : text(u".*");
        QString const pattern = (chance.oneIn(10) ? QString::fromStdString(before) : start) + text(u"(\\d+)") + end;
        QString const stem = QString::fromStdString(chance.oneIn(2) ? std::string() : before.substr(0, chance.below(before.size() + 1)));

        EntryKinds::Limit const limit(anyKinds(chance));
        int const expected = highestByQt(folder, filter, pattern, stem);
        if (Number const number = RunningNumber::highest(folder, filter, pattern, stem)) {
            ASSERT_EQ(*number, expected) << "EDITOR_SETTINGS_SEED=" << seed() << ", folder " << round << ", filter " << filter.toStdString()
                                         << ", pattern " << pattern.toStdString() << ", stem " << stem.toStdString();
            ++answered;
            counted += expected > 0;
        }
        fs::remove_all(path);
    }
    EXPECT_GT(answered, folders / 4);
    EXPECT_GT(counted, folders / 8);
}

} // namespace
