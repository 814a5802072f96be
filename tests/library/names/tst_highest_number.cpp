// SPDX-License-Identifier: MIT
//
// The highest number in a folder: what counts, that it is what Qt finds, and that the folder is listed once.
#include <Settings/RunningNumber.h>
#include <TestKit/TemporaryHome.h>

#include <support/Named.h>
#include <support/Tally.h>
#include <support/names/EntryKinds.h>
#include <support/names/FileNameCodec.h>

#include <QDir>
#include <QFileInfo>
#include <QRegExp>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <filesystem>
#include <fstream>
#include <random>

#include <fcntl.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using Names = std::vector<std::string>;
using RunningNumber::Layout;

// Not QString::fromUtf16, which drops a byte order mark.
QString text(char16_t const* text) { return QString(reinterpret_cast<QChar const*>(text)); }

class HighestNumber : public testing::Test {
protected:
    HighestNumber() { fs::create_directory(m_folder); }

    QString folder() const { return QString::fromStdString(m_folder.string()); }

    void make(Names const& files) const
    {
        for (std::string const& file : files) {
            fs::create_directories((m_folder / file).parent_path());
            std::ofstream((m_folder / file).string()) << "content";
        }
    }

    int highest(Layout const& layout) const { return RunningNumber::highest(folder(), layout); }

    TestKit::TemporaryHome m_home;
    fs::path const m_folder = m_home.path() / "folder";
};

// --- What counts -------------------------------------------------------------------------------------------------------

struct Counting {
    char const* meaning;
    char16_t const* filter;
    char16_t const* before;
    char16_t const* after;
    char16_t const* stem;
    int number;
};

class Counted : public HighestNumber, public testing::WithParamInterface<Counting> {};

TEST_P(Counted, ByLayout)
{
    make({"Clip-5.mp4", "a+b (6).png", "Clip-7", "x9y1z.png", "12.png", "a%b\\c-4.mp4", "c3.*", "Z8"});
    Counting const& row = GetParam();
    EXPECT_EQ(highest({text(row.filter), text(row.before), text(row.after), text(row.stem)}), row.number);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Counted,
    testing::Values(
        Counting{"TextBeforeTheNumber", u"Clip-*.*", u"Clip-", u"", u"", 5},
        Counting{"TextOnBothSides", u"*.png", u"+b (", u").png", u"", 6}, Counting{"EveryName", u"*", u"Clip-", u"", u"", 7},
        Counting{"FourWildcards", u"*C**-*", u"Clip-", u"", u"", 7}, Counting{"NothingBeforeTheNumber", u"*.png", u"", u".png", u"", 12},
        Counting{"FirstPlaceThatFits", u"x*", u"", u"", u"", 9}, Counting{"FirstPlaceWithWhatFollows", u"x*", u"", u"z", u"", 1},
        Counting{"PatternCharactersAreText", u"*.*", u"c", u".*", u"", 3}, Counting{"BackslashIsText", u"a*", u"b\\c-", u"", u"", 4},
        Counting{"BackslashInTheFilter", u"a%b\\c*", u"c-", u"", u"", 4}, Counting{"Stem", u"*.png", u"", u"", u"a+b (", 6},
        Counting{"StemUpToTheLastDot", u"*.png", u"", u"", u"12", 12}, Counting{"StemBeyondTheLastDot", u"*.png", u"", u"", u"12.", 0},
        Counting{"StemOfANameWithoutADot", u"*", u"Clip-", u"", u"Clip-7", 7}, Counting{"StemInOtherCase", u"*.png", u"", u"", u"A+b", 0},
        Counting{"FilterInOtherCase", u"cLIP-*.MP4", u"Clip-", u"", u"", 5},
        Counting{"LastLetterOfTheFilterInOtherCase", u"z*", u"Z", u"", u"", 8},
        Counting{"FirstLetterOfTheFilterInOtherCase", u"A+*", u"", u"", u"", 6}, Counting{"TextInOtherCase", u"*", u"clip-", u"", u"", 0},
        Counting{"EmptyFilter", u"", u"Clip-", u"", u"", 0}, Counting{"FilterForPartOfTheName", u"Clip-5.mp", u"Clip-", u"", u"", 0},
        Counting{"FilterForMoreThanTheName", u"Clip-5.mp4x", u"Clip-", u"", u"", 0}),
    byMeaning);

TEST_F(HighestNumber, IsTheFirstGroupOfAPattern)
{
    make({"Clip-5.mp4", "clip-7.mp4", "Clip-x.mp4", "Chip-9.png"});
    EXPECT_EQ(highest({text(u"[ab]*"), {}, {}, {}, text(u"[CD]lip-(\\d+)")}), 0);
    EXPECT_EQ(highest({text(u"*.mp4"), {}, {}, {}, text(u"[CD]lip-(\\d+)")}), 5);
    EXPECT_EQ(highest({text(u"*"), {}, {}, {}, text(u"C(?:l|h)ip-(\\d+)")}), 9);
    EXPECT_EQ(highest({text(u"*"), {}, {}, text(u"Cl"), text(u"C(?:l|h)ip-(\\d+)")}), 5);
}

TEST_F(HighestNumber, OfAPatternMayStandBeforeALowerOne)
{
    for (int number = 1; number <= 40; ++number)
        make({"Clip-" + std::to_string(number) + ".mp4"});
    EXPECT_EQ(highest({text(u"*"), {}, {}, {}, text(u"[CD]lip-(\\d+)")}), 40);
}

TEST_F(HighestNumber, OfAPatternMayBeAPartOfOneThatDoesNotFit)
{
    make({"a99999999999", "a7"});
    EXPECT_EQ(highest({text(u"*"), {}, {}, {}, text(u"a(\\d\\d)")}), 99);
    EXPECT_EQ(highest({text(u"*"), {}, {}, {}, text(u"a(\\d+)")}), 7);
}

TEST_F(HighestNumber, IsAnInt)
{
    Layout const layout{text(u"*"), text(u"a")};
    make({"a0", "b-5", "c+5", "d 5"});
    for (char16_t const* const before : {u"a", u"b", u"c", u"d"})
        EXPECT_EQ(highest({text(u"*"), text(before)}), 0);
    make({"a007"});
    EXPECT_EQ(highest(layout), 7);
    make({"a99999999999", "a2147483648", "a18446744073709551617"});
    EXPECT_EQ(highest(layout), 7) << "which do not fit";
    make({"a2147483646"});
    EXPECT_EQ(highest(layout), 2147483646);
    make({"a0000000000000000000002147483647"});
    EXPECT_EQ(highest(layout), 2147483647);
}

TEST_F(HighestNumber, IsTheFirstInItsName)
{
    make({"a99999999999-a3", "a1-a2", "a-a5x", "aaa4"});
    EXPECT_EQ(highest({text(u"*"), text(u"a")}), 5);
    EXPECT_EQ(highest({text(u"a9*"), text(u"a")}), 0) << "a first number that does not fit";
    EXPECT_EQ(highest({text(u"aaa*"), text(u"aa")}), 4) << "where places overlap";
}

// --- Names outside ASCII -----------------------------------------------------------------------------------------------

struct Foreign {
    char const* meaning;
    char16_t const* stem;
    std::string name;
    int number;
};

class InOtherScripts : public HighestNumber, public testing::WithParamInterface<Foreign> {};

TEST_P(InOtherScripts, NumberFollowsTheStem)
{
    QString const stem = text(GetParam().stem);
    make({GetParam().name});
    EXPECT_EQ(highest({stem + text(u"-*.*"), stem + text(u"-"), {}, stem}), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    Table, InOtherScripts,
    testing::Values(
        Foreign{"Japanese", u"\u4F11\u65E5", u8"\u4F11\u65E5-5.mp4", 5},
        Foreign{"Arabic", u"\u0639\u0637\u0644\u0629", u8"\u0639\u0637\u0644\u0629-5.mp4", 5},
        Foreign{"Decomposed", u"e\u0301te\u0301", u8"e\u0301te\u0301-5.mp4", 5},
        Foreign{"ComposedIsAnother", u"e\u0301", u8"\u00E9-5.mp4", 0},
        Foreign{"BeyondTheFirstPlane", u"\U0001F3AC", u8"\U0001F3AC-5.mp4", 5}, Foreign{"ByteOrderMark", u"\uFEFFa", u8"\uFEFFa-5.mp4", 5},
        Foreign{"ByteOrderMarkBeforeTheStem", u"a", u8"\uFEFFa-5.mp4", 0}, Foreign{"LoneSurrogate", u"\xD800", u8"?-5.mp4", 0},
        Foreign{"UpperCaseIsListedOnly", u"\u00E9", u8"\u00C9-5.mp4", 0}, Foreign{"TextAfterTheNumber", u"a", u8"a-5 \u4F11.mp4", 5},
        Foreign{"TextBeforeTheStem", u"a", u8"\u4F11a-5.mp4", 0}, Foreign{"DigitOfAnotherScriptAtTheEnd", u"a", u8"a-5\u0663.mp4", 0},
        Foreign{"DigitOfAnotherScriptInAnEarlierPlace", u"a", u8"a-\u0663a-5.mp4", 0},
        Foreign{"BytesThatAreNoText", u"a", "a-5\xFF.mp4", 0},
        Foreign{"BytesThatAreNoTextBehindAJapaneseStem", u"\u4F11", u8"\u4F11-5\xFF.mp4", 0},
        Foreign{"BytesThatAreNoTextHoldTheStem", u"\uFFFD", "\xFF-5.mp4", 0}, Foreign{"Hidden", u".\u4F11", u8".\u4F11-5.mp4", 0},
        Foreign{"SignForK", u"\u212A", u8"\u212A-5.mp4", 5}, Foreign{"LetterForTheSignForK", u"\u212A", "k-5.mp4", 0}),
    byMeaning);

TEST_F(HighestNumber, IsFoundAmongNamesThatCannotCount)
{
    make({"Clip-5.mp4", u8"Cl\u00EFp-9.mp4", u8"\u30AF\u30EA\u30C3\u30D7.mp4", "bytes\xFF.mp4", u8"Clip-\u0669.mp4", u8"\u212AClip-9.mp4",
          "Clip-9\xFF.mp4"});
    EXPECT_EQ(highest({text(u"Clip-*.*"), text(u"Clip-")}), 5);
    make({u8"Clip-8 \u00E9.mp4"});
    EXPECT_EQ(highest({text(u"Clip-*.*"), text(u"Clip-")}), 8);
}

// QFileInfo resolves what stands before a colon where a search path has that name, and the stem is then found there.
TEST_F(HighestNumber, OfANameWithAColonIsThatOfAFileInASearchPath)
{
    Layout const layout{text(u"*.png"), text(u"Clip ("), text(u").png"), text(u"Clip")};
    make({"Clip (5).png", "ab:Clip (9).png", "other/Clip (9).png"});
    EXPECT_EQ(highest(layout), 5);
    QDir::setSearchPaths(text(u"ab"), {folder() + text(u"/other")});
    EXPECT_EQ(highest(layout), 9);
    QDir::setSearchPaths(text(u"ab"), {});
    EXPECT_EQ(highest({text(u"*.png"), text(u"Clip ("), text(u").png")}), 9) << "without a stem";
}

// --- Folders -----------------------------------------------------------------------------------------------------------

struct FolderForm {
    char const* meaning;
    char16_t const* folder; // the current folder is the home folder
    int number;
    long listings;
};

class Form : public HighestNumber, public testing::WithParamInterface<FolderForm> {
protected:
    Form() : m_earlier(fs::current_path())
    {
        make({"Clip-5.mp4", u8"Clip-7 \u4F11.mp4"});
        m_home.write("Clip-2.mp4", "");
        m_home.write("a:b/Clip-3.mp4", "");
        m_home.write(fs::u8path(u8"\u00E9\u30AF/Clip-4.mp4"), "");
        fs::create_directory_symlink("folder", m_home.path() / "link");
        QDir::setSearchPaths(text(u"clips"), {text(u"/missing"), QString::fromStdString(m_home.path().string())});
        fs::current_path(m_home.path());
    }
    ~Form() override
    {
        QDir::setSearchPaths(text(u"clips"), {});
        fs::current_path(m_earlier);
    }

    fs::path const m_earlier;
};

TEST_P(Form, OfAFolderIsUnderstoodAsByQtAndListedOnce)
{
    EntryKinds::Limit const listed(EntryKinds::Told::all);
    EXPECT_EQ(RunningNumber::highest(text(GetParam().folder), {text(u"Clip-*.*"), text(u"Clip-")}), GetParam().number);
    EXPECT_EQ(listed.listings(), GetParam().listings);
}

INSTANTIATE_TEST_SUITE_P(Table, Form,
                         testing::Values(FolderForm{"Relative", u"folder", 7, 1}, FolderForm{"TrailingSeparator", u"folder/", 7, 1},
                                         FolderForm{"Dots", u"./folder//../folder/.", 7, 1}, FolderForm{"Link", u"link", 7, 1},
                                         FolderForm{"AboveWhatALinkLeadsTo", u"link/..", 2, 1}, FolderForm{"Empty", u"", 2, 1},
                                         FolderForm{"Current", u".", 2, 1}, FolderForm{"OtherScripts", u"\u00E9\u30AF", 4, 1},
                                         FolderForm{"SearchPath", u"clips:folder", 7, 1},
                                         FolderForm{"MissingInASearchPath", u"clips:missing", 0, 1},
                                         FolderForm{"ColonWithoutASearchPath", u"a:b", 3, 1},
                                         FolderForm{"ColonBehindASeparator", u"./a:b", 3, 1}, FolderForm{"Resource", u":/clips", 6, 0},
                                         FolderForm{"MissingResource", u":/missing", 0, 0}, FolderForm{"Missing", u"missing", 0, 1},
                                         FolderForm{"File", u"folder/Clip-5.mp4", 0, 1},
                                         FolderForm{"BelowAFile", u"folder/Clip-5.mp4/.", 0, 1}),
                         byMeaning);

TEST_F(HighestNumber, IsNoneWhereFolderOrFilterHoldsANul)
{
    make({"Clip-5.mp4", "Clip-7.d/Clip-3.mp4"});
    QString const nul = QString(QChar::Null) + text(u"x");
    EXPECT_EQ(RunningNumber::highest(folder() + nul, {text(u"Clip-*.*"), text(u"Clip-")}), 0);
    // Qt 5 lists such a folder under its own name, once for each file.
    EXPECT_EQ(RunningNumber::highest(folder() + text(u"/Clip-7.d") + nul, {text(u"Clip-*.*"), text(u"Clip-")}), 0);
    EXPECT_EQ(highest({text(u"*") + nul, text(u"Clip-")}), 0);
}

TEST_F(HighestNumber, OfALayoutWithAPatternTakesOneListing)
{
    make({"Clip-5.mp4", u8"Clip-7 \u4F11.mp4"});
    EntryKinds::Limit const listed(EntryKinds::Told::all);
    EXPECT_EQ(highest({text(u"*"), {}, {}, {}, text(u"[CD]lip-(\\d+)")}), 7);
    EXPECT_EQ(listed.listings(), 1);
}

TEST_F(HighestNumber, LeavesNoFolderOpen)
{
    auto const open = [] { return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()); };
    make({"a1"});
    auto const before = open();
    EXPECT_EQ(highest({text(u"*"), text(u"a")}), 1);
    EXPECT_EQ(open(), before);
}

// The type of a link is asked for by a path, of which the kernel takes 4095 bytes.
TEST_F(HighestNumber, CountsALinkOnlyWhereItsPathIsShortEnough)
{
    make({"a1"});
    fs::create_symlink("a1", m_folder / "a5");
    auto const ofLength = [&](std::size_t length) {
        return folder() + QString(static_cast<int>(length - m_folder.native().size()), QLatin1Char('/'));
    };
    EXPECT_EQ(RunningNumber::highest(ofLength(3000), {text(u"*"), text(u"a")}), 5);
    EXPECT_EQ(RunningNumber::highest(ofLength(5000), {text(u"*"), text(u"a")}), 0);
    fs::current_path(m_folder);
    auto const dots = [](int count) { return text(u"./").repeated(count); };
    EXPECT_EQ(RunningNumber::highest(dots(2046), {text(u"*"), text(u"a")}), 5);
    EXPECT_EQ(RunningNumber::highest(dots(2047), {text(u"*"), text(u"a")}), 1);
    fs::current_path("/");
}

TEST_F(HighestNumber, IsFoundAmongNamesThatAreNotReadAsUtf8)
{
    make({"a1", "a5\xE9", u8"a7\u4F11"});
    {
        FileNameCodec const latin1("ISO-8859-1");
        EntryKinds::Limit const listed(EntryKinds::Told::all);
        EXPECT_EQ(highest({text(u"a*"), text(u"a"), text(u"\u00E9")}), codecDecides ? 5 : 0);
        EXPECT_EQ(listed.listings(), 1);
    }
    EXPECT_EQ(highest({text(u"a*"), text(u"a"), text(u"\u00E9")}), 0);
    EXPECT_EQ(highest({text(u"a*"), text(u"a")}), 7);
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

class EntryKind : public HighestNumber, public testing::WithParamInterface<EntryKinds::Told> {
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

    Layout const m_layout{text(u"*"), text(u"a")};
};

TEST_P(EntryKind, OfPipesFoldersAndBrokenLinksDoesNotCount)
{
    EntryKinds::Limit const limit(GetParam());
    EXPECT_EQ(highest(m_layout), 1);
    EXPECT_EQ(limit.withheld() > 0, GetParam() != EntryKinds::Told::all);
}

TEST_P(EntryKind, OfLinksIsThatOfTheirTargets)
{
    EntryKinds::Limit const limit(GetParam());
    fs::create_symlink("target/file", m_folder / "a3");
    EXPECT_EQ(highest(m_layout), 3);
    fs::create_symlink("a3", m_folder / "a4");
    EXPECT_EQ(highest(m_layout), 4) << "a link to a link";
    // Qt takes no pipe, and takes a link to one.
    fs::create_symlink("pipe", m_folder / "a5");
    EXPECT_EQ(highest(m_layout), 5);
    EXPECT_EQ(QDir(folder()).entryList({text(u"a5"), text(u"a20")}, QDir::Files), QStringList(text(u"a5")));
    // What the kernel makes for a process alone has no kind at all.
    int const event = ::eventfd(0, EFD_CLOEXEC);
    fs::create_symlink("/proc/self/fd/" + std::to_string(event), m_folder / "a6");
    EXPECT_EQ(highest(m_layout), 6);
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

Names const parts = {"a", "A", "s",    "K",        "1",        "12",        "007",      "2147483647", "2147483648",
                     "-", " ", "(",    ")",        ".",        ".png",      "+",        "%",          "\\n",
                     "_", "*", "^",    "$",        "{",        "}",         "99999999", "Rec-1-2-3.", "]",
                     "?", ":", "\xFF", u8"\u00E9", u8"\u30AF", u8"e\u0301", u8"\u0663", u8"\uFEFF",   u8"\u212A"};

// A text in a layout, with no digit next to the number.
QString besideANumber(Chance& chance, std::size_t most)
{
    QString const result = QString::fromStdString(chance.some(parts, most));
    bool const touches = !result.isEmpty() && (result.front().isDigit() || result.back().isDigit());
    return touches ? QLatin1Char('-') + result + QLatin1Char('-') : result;
}

Layout anyLayout(Chance& chance)
{
    QString const before = besideANumber(chance, 3);
    QString const after = besideANumber(chance, 2);
    QString const all = text(u"*");
    QString const filters[] = {all, all + after, before + all, before + text(u"*.*"), all + before + all};
    QString const filter = filters[chance.below(5)];
    QString const stem =
        chance.oneIn(2) ? QString() : before.left(static_cast<int>(chance.below(static_cast<std::size_t>(before.size()) + 1)));
    bool const holdsWildcards = QRegExp(text(u"[][?\\\\]")).indexIn(filter) >= 0 || filter.count(QLatin1Char('*')) > 4;
    if (!holdsWildcards && !chance.oneIn(5))
        return {filter, before, after, stem};
    QString const pattern = (chance.oneIn(3) ? before : QRegExp::escape(before)) + text(u"(\\d+)") + QRegExp::escape(after);
    return {filter, {}, {}, stem, pattern};
}

// The names that pass, one after the other through the pattern.
int highestByQt(QString const& folder, Layout const& layout)
{
    QString const texts = QRegExp::escape(layout.before) + text(u"(\\d+)") + QRegExp::escape(layout.after);
    QRegExp number(layout.pattern.isEmpty() ? texts : layout.pattern);
    int highest = 0;
    for (QString const& name : QDir(folder).entryList({layout.filter}, QDir::Files))
        if (QFileInfo(name).completeBaseName().startsWith(layout.stem) && number.indexIn(name) >= 0)
            highest = std::max(highest, number.cap(1).toInt());
    return highest;
}

class RandomFolder : public HighestNumber {
protected:
    RandomFolder() { std::ofstream((m_home.path() / "target").string()) << "content"; }

    void makeEntry(std::string const& name, Chance& chance) const
    {
        fs::path const path = m_folder / name;
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

    void fill(Layout const& layout, Chance& chance) const
    {
        static Names const numbers = {"1", "7", "0012", "4294967297", "2147483647", u8"5\u0663"};
        for (std::size_t count = chance.below(10); count > 0; --count) {
            std::string const name = (chance.oneIn(3) ? chance.some(parts, 1) : "") + layout.before.toStdString() + chance.of(numbers) +
                                     layout.after.toStdString() + (chance.oneIn(2) ? chance.some(parts, 2) : "");
            bool const isName = name != "." && name != ".." && name.size() <= NAME_MAX && name.find('/') == std::string::npos;
            if (isName)
                makeEntry(name, chance);
        }
    }
};

TEST_F(RandomFolder, HoldsTheNumberThatQtFinds)
{
    int const folders = times(1000, 5000, 20000);
    int counted = 0;
    for (int round = 0; round < folders; ++round) {
        Chance chance(seed() + static_cast<unsigned>(round));
        Layout const layout = anyLayout(chance);
        fs::create_directory(m_folder);
        fill(layout, chance);
        EntryKinds::Limit const limit(static_cast<EntryKinds::Told>(chance.below(3)));
        int const expected = highestByQt(folder(), layout);
        ASSERT_EQ(highest(layout), expected) << "EDITOR_SETTINGS_SEED=" << seed() << ", folder " << round << ", filter "
                                             << layout.filter.toStdString() << ", before " << layout.before.toStdString() << ", after "
                                             << layout.after.toStdString() << ", stem " << layout.stem.toStdString() << ", pattern "
                                             << layout.pattern.toStdString();
        counted += expected > 0;
        fs::remove_all(m_folder);
    }
    EXPECT_GT(counted, folders / 8);
}

} // namespace
