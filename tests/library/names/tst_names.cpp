// SPDX-License-Identifier: MIT
#include <Storage/EmptyStorage.h>
#include <TestKit/FailingStorage.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/Patterns.h>
#include <support/Process.h>

#include <QDateTime>
#include <QFile>
#include <QLocale>

#include <algorithm>
#include <chrono>
#include <clocale>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <type_traits>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

static_assert(std::is_same_v<decltype(&Settings::generateAudioRecordFilePath), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::generateFreezedFilePath), QString (*)(QString)>);
static_assert(std::is_same_v<decltype(&Settings::generateStabilizedFilePath), QString (*)(QString, QString)>);

namespace {

using Storage::EmptyStorage;

namespace fs = std::filesystem;

using Files = std::vector<std::string>;

// File names are bytes; these tests write them in UTF-8, whatever the locale that they are started in.
char const* const locale = std::setlocale(LC_ALL, "C.UTF-8");

TEST(Names, FileNamesAreReadAsUtf8)
{
    ASSERT_STREQ(locale, "C.UTF-8");
    ASSERT_EQ(QFile::encodeName(QStringLiteral("\u00E9\u20AC")), u8"\u00E9\u20AC");
}

QString utf8(std::string const& text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }

// The path with TIME in the place of the time, which no test knows beforehand.
QString withoutTime(QString const& path)
{
    return utf8(replaced(path.toStdString(), "-[0-9]{4}\\.[0-9]{2}\\.[0-9]{2}-[0-9]{2}\\.[0-9]{2}\\.[0-9]{2}\\.", "-TIME."));
}

// The three generators, each with names that differ in their number alone.
struct Generator {
    char const* meaning;
    char const* folderKey;
    char const* before;     // the number, in the name of a file
    char const* after;      //
    char const* afterFresh; // the number, in the answer
    QString (*answer)();

    std::string file(std::string const& number) const { return before + number + after; }
    QString fresh(std::string const& number) const { return utf8(before + number + afterFresh); }
};

QString recording() { return withoutTime(Settings::generateAudioRecordFilePath()); }
QString freeze() { return Settings::generateFreezedFilePath(QStringLiteral("/a/Holiday.mov")); }
QString stabilized() { return Settings::generateStabilizedFilePath(QStringLiteral("/a/Holiday.mov"), QStringLiteral("mp4")); }

Generator const generators[] = {{"Recording", "audioRecordPath", "Rec-", "-2024.03.01-10.00.00.wav", "-TIME.wav", &recording},
                                {"Freeze", "exportPath", "Holiday (", ").png", ").png", &freeze},
                                {"Stabilized", "stabilizedFilePath", "Holiday-", ".mp4", ".mp4", &stabilized}};

void PrintTo(Generator const& generator, std::ostream* stream) { *stream << generator.meaning; }

// A store that is asked for texts only, and answers what a test tells it to.
class AnsweringStorage : public EmptyStorage {
public:
    using Answer = std::function<std::string(std::string const& key, std::string const& value)>;
    explicit AnsweringStorage(Answer answer) : m_answer(std::move(answer)) {}
    std::string getString(std::string const& key, std::string const& value) const override { return m_answer(key, value); }

private:
    Answer m_answer;
};

// Another current folder for as long as it lives.
class CurrentFolder {
public:
    explicit CurrentFolder(fs::path const& folder) { fs::current_path(folder); }
    ~CurrentFolder() { fs::current_path(m_earlier); }
    CurrentFolder(CurrentFolder const&) = delete;
    CurrentFolder& operator=(CurrentFolder const&) = delete;

private:
    fs::path m_earlier = fs::current_path();
};

// All three generators are set to one folder, which a test fills.
class Folder : public BoundLibrary {
protected:
    Folder()
    {
        fs::create_directory(m_folder);
        for (Generator const& generator : generators)
            keep(generator.folderKey, m_folder.string());
    }

    void keep(char const* key, std::string const& value) { m_productValues->setString(key, value); }
    void put(std::string const& file) const { m_home.write(m_folder / file, "content"); }
    void put(Files const& files) const
    {
        for (std::string const& file : files)
            put(file);
    }
    QString inFolder(QString const& name) const { return inHome("folder/") + name; }
    QString inFolder(char16_t const* name) const { return inFolder(QString::fromUtf16(name)); }

    // Everything below the home folder.
    Files everything() const
    {
        Files paths;
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(m_home.path()))
            paths.push_back(entry.path().string() + (entry.is_regular_file() ? " " + std::to_string(entry.file_size()) : ""));
        std::sort(paths.begin(), paths.end());
        return paths;
    }

    fs::path const m_folder = m_home.path() / "folder";
};

// --- The number, for all three -----------------------------------------------------------------------------------------

struct Numbers {
    char const* meaning;
    std::vector<std::string> taken;
    char const* fresh;
};

Numbers const numberTable[] = {
    {"EmptyFolderGivesOne", {}, "1"},
    {"OneMoreThanTheHighest", {"7"}, "8"},
    {"GapsAreNotFilled", {"1", "4"}, "5"},
    {"ComparedAsNumbersNotAsText", {"3", "10", "9"}, "11"},
    {"ZeroCountsAsNone", {"0"}, "1"},
    {"LeadingZerosAreAccepted", {"007"}, "8"},
    {"AHundredLeadingZerosAreAccepted", {std::string(100, '0') + "12"}, "13"},
    {"LastButOne", {"2147483646"}, "2147483647"},
    {"AfterTheLargestComesTheSmallest", {"2147483647"}, "-2147483648"},
    {"AfterTheLargestWithLeadingZeros", {"0002147483647"}, "-2147483648"},
    {"TheSmallestIsNotCounted", {"2147483647", "-2147483648"}, "-2147483648"},
    {"TheSmallestAloneIsNotCounted", {"-2147483648"}, "1"},
    {"OneBeyondThirtyTwoBitsCountsAsNone", {"2147483648"}, "1"},
    {"UnsignedThirtyTwoBitsCountAsNone", {"4294967295"}, "1"},
    {"NothingIsCutToThirtyTwoBits", {"4294967303"}, "1"},
    {"ElevenDigitsCountAsNone", {"99999999999"}, "1"},
    {"BeyondSixtyFourBitsCountsAsNone", {"99999999999999999999999"}, "1"},
    {"TooLargeHidesNoSmaller", {"5", "99999999999"}, "6"},
    {"NegativeIsNotCounted", {"-5"}, "1"},
    {"PlusIsNotCounted", {"+5"}, "1"},
    {"LeadingBlankIsNotCounted", {" 5"}, "1"},
    {"NoDigitIsNotCounted", {""}, "1"},
    {"LetterIsNotCounted", {"x"}, "1"},
    {"HexadecimalIsNotCounted", {"A"}, "1"},
    {"NegativeHidesNoOther", {"-5", "3"}, "4"},
    // The pattern takes every decimal digit of Unicode, the conversion those of ASCII alone.
    {"ArabicIndicDigitCountsAsNone", {u8"\u0663"}, "1"},
    {"DevanagariDigitCountsAsNone", {u8"\u0967"}, "1"},
    {"FullWidthDigitCountsAsNone", {u8"\uFF11"}, "1"},
    {"MixtureOfDigitsCountsAsNone", {u8"1\u0663"}, "1"},
    {"MixtureStartingOtherwiseCountsAsNone", {u8"\u06631"}, "1"},
    {"OtherDigitsHideNoSmaller", {u8"9\u0663", "3"}, "4"},
    {"SuperscriptIsNoDigit", {u8"\u00B2"}, "1"},
    {"RomanNumeralIsNoDigit", {u8"\u2167"}, "1"},
    // Beyond the first plane a digit is two code units, neither of which is a digit.
    {"MathematicalDigitIsNone", {u8"\U0001D7D7"}, "1"},
};

class Number : public Folder, public testing::WithParamInterface<std::tuple<Generator, Numbers>> {};

TEST_P(Number, FollowsTheHighestInTheFolder)
{
    auto const& [generator, numbers] = GetParam();
    for (std::string const& number : numbers.taken)
        put(generator.file(number));
    EXPECT_EQ(generator.answer(), inFolder(generator.fresh(numbers.fresh)));
}

auto const byGeneratorAndMeaning = [](auto const& test) {
    return std::string(std::get<0>(test.param).meaning) + std::get<1>(test.param).meaning;
};

INSTANTIATE_TEST_SUITE_P(Table, Number, testing::Combine(testing::ValuesIn(generators), testing::ValuesIn(numberTable)),
                         byGeneratorAndMeaning);

// --- What lies in the folder, for all three ----------------------------------------------------------------------------

void makeLink(fs::path const& path, char const* target) { fs::create_symlink(target, path); }

void makeFifo(fs::path const& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }

void makeSocket(fs::path const& path)
{
    // A socket's address is too short for many a path.
    CurrentFolder const current(path.parent_path());
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.filename().string().copy(address.sun_path, sizeof address.sun_path - 1);
    int const socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(socket, reinterpret_cast<sockaddr const*>(&address), sizeof address), 0);
    ::close(socket);
}

void makeFile(fs::path const& path) { std::ofstream(path) << "content"; }

struct Kind {
    char const* meaning;
    void (*make)(fs::path const& path);
    bool counts;
};

Kind const kindTable[] = {
    {"File", &makeFile, true},
    {"EmptyFile", [](fs::path const& path) { std::ofstream stream(path); }, true},
    {"FileThatMayNotBeRead",
     [](fs::path const& path) {
         makeFile(path);
         fs::permissions(path, fs::perms::none);
     },
     true},
    {"FolderNamedLikeAFile", [](fs::path const& path) { fs::create_directory(path); }, false},
    {"FifoNamedLikeAFile", &makeFifo, false},
    {"SocketNamedLikeAFile", &makeSocket, false},
    {"LinkToAFile",
     [](fs::path const& path) {
         makeFile(path.parent_path() / "target");
         makeLink(path, "target");
     },
     true},
    {"HardLink",
     [](fs::path const& path) {
         makeFile(path.parent_path() / "target");
         fs::create_hard_link(path.parent_path() / "target", path);
     },
     true},
    {"LinkToALinkToAFile",
     [](fs::path const& path) {
         makeFile(path.parent_path() / "target");
         makeLink(path.parent_path() / "link", "target");
         makeLink(path, "link");
     },
     true},
    {"LinkToAHiddenFile",
     [](fs::path const& path) {
         makeFile(path.parent_path() / ".target");
         makeLink(path, ".target");
     },
     true},
    {"LinkToAFileElsewhere",
     [](fs::path const& path) {
         makeFile(path.parent_path().parent_path() / "target");
         makeLink(path, "../target");
     },
     true},
    {"LinkToAFolder", [](fs::path const& path) { makeLink(path, "."); }, false},
    {"LinkToNothing", [](fs::path const& path) { makeLink(path, "nothing"); }, false},
    {"LinkToItself", [](fs::path const& path) { makeLink(path, path.filename().c_str()); }, false},
    // Qt leaves out what is neither file nor folder nor link, so a link to such a thing stays.
    {"LinkToAFifo",
     [](fs::path const& path) {
         makeFifo(path.parent_path() / "target");
         makeLink(path, "target");
     },
     true},
    {"LinkToASocket",
     [](fs::path const& path) {
         makeSocket(path.parent_path() / "target");
         makeLink(path, "target");
     },
     true},
    {"LinkToADevice", [](fs::path const& path) { makeLink(path, "/dev/null"); }, true},
};

class EntryKind : public Folder, public testing::WithParamInterface<std::tuple<Generator, Kind>> {};

TEST_P(EntryKind, CountsAsFileOrNot)
{
    auto const& [generator, kind] = GetParam();
    kind.make(m_folder / generator.file("7"));
    EXPECT_EQ(generator.answer(), inFolder(generator.fresh(kind.counts ? "8" : "1")));
}

INSTANTIATE_TEST_SUITE_P(Table, EntryKind, testing::Combine(testing::ValuesIn(generators), testing::ValuesIn(kindTable)),
                         byGeneratorAndMeaning);

// --- The folder, for all three -----------------------------------------------------------------------------------------

// The setting is used as it is stored. The current folder is the home folder, and the folder holds number 7.
struct FolderForm {
    char const* meaning;
    char const* stored;
    char const* before; // the name, in the answer
    bool isTheFolder;
};

FolderForm const folderTable[] = {
    {"Relative", "folder", "folder/", true},
    {"TrailingSeparatorIsKeptDoubled", "folder/", "folder//", true},
    {"TrailingSeparatorsAreKept", "folder//", "folder///", true},
    {"LeadingDotIsKept", "./folder", "./folder/", true},
    {"DotsAreKept", "folder/../folder/.", "folder/../folder/./", true},
    {"DotsAfterAMissingFolderFindNothing", "missing/../folder", "missing/../folder/", false},
    {"DoubledSeparatorIsKept", ".//folder", ".//folder/", true},
    {"LinkIsKept", "link", "link/", true},
    {"BrokenLinkIsEmpty", "broken", "broken/", false},
    {"MissingIsEmpty", "missing", "missing/", false},
    {"FileIsEmpty", "file", "file/", false},
    {"OtherCaseIsMissing", "Folder", "Folder/", false},
    {"BackslashIsNoSeparator", ".\\folder", ".\\folder/", false},
    {"TildeIsNoHome", "~/folder", "~/folder/", false},
    {"VariableIsNotExpanded", "$HOME/folder", "$HOME/folder/", false},
    {"AddressIsNoPath", "file:folder", "file:folder/", false},
    {"PercentSignsAreKept", "%1%2%3", "%1%2%3/", false},
    {"WildcardsFindNothing", "f*", "f*/", false},
    {"BlanksAreKept", " folder ", " folder /", false},
    {"NonAsciiIsFound", u8"\u00E9\U0001F3AC", u8"\u00E9\U0001F3AC/", true},
    {"DecomposedIsAnother", u8"e\u0301\U0001F3AC", u8"e\u0301\U0001F3AC/", false},
    {"RightToLeftIsFound", u8"\u05D0\u05D1", u8"\u05D0\u05D1/", true},
    {"InvalidUtf8IsReplaced", "\xFF", u8"\uFFFD/", false},
};

class FolderSetting : public Folder, public testing::WithParamInterface<std::tuple<Generator, FolderForm>> {};

TEST_P(FolderSetting, IsUsedAsStored)
{
    auto const& [generator, form] = GetParam();
    CurrentFolder const current(m_home.path());
    put(generator.file("7"));
    m_home.write("file", "content");
    for (char const* const link : {"link", u8"\u00E9\U0001F3AC", u8"\u05D0\u05D1", "\xFF"})
        makeLink(m_home.path() / link, "folder");
    makeLink(m_home.path() / "broken", "nothing");
    keep(generator.folderKey, form.stored);
    EXPECT_EQ(generator.answer(), utf8(form.before) + generator.fresh(form.isTheFolder ? "8" : "1"));
}

INSTANTIATE_TEST_SUITE_P(Table, FolderSetting, testing::Combine(testing::ValuesIn(generators), testing::ValuesIn(folderTable)),
                         byGeneratorAndMeaning);

class EachGenerator : public Folder, public testing::WithParamInterface<Generator> {
protected:
    Generator const& generator() const { return GetParam(); }
    QString fresh(char const* number) const { return inFolder(generator().fresh(number)); }

    // Binds the library to a store that answers with the folder at the first question for it, and with `second` from
    // the second on, before which it does `meanwhile`.
    QString answerOfChanging(std::string const& second, std::function<void()> const& meanwhile = {}) const
    {
        int asked = 0;
        auto const store = std::make_shared<AnsweringStorage>([&](std::string const& key, std::string const& value) {
            if (key != generator().folderKey)
                return value;
            if (++asked == 1)
                return m_folder.string();
            if (meanwhile)
                meanwhile();
            return second;
        });
        TestKit::ScopedBinding const binding({m_productInfo, m_common, store, {}});
        return generator().answer();
    }
};

TEST_P(EachGenerator, EmptySettingListsTheCurrentFolderAndNamesTheRoot)
{
    put(generator().file("7"));
    CurrentFolder const current(m_folder);
    keep(generator().folderKey, "");
    EXPECT_EQ(generator().answer(), QLatin1Char('/') + generator().fresh("8"));
}

TEST_P(EachGenerator, FolderWithNulFindsNothingAndIsKeptInFullLength)
{
    put(generator().file("7"));
    keep(generator().folderKey, m_folder.string() + std::string("\0x", 2));
    EXPECT_EQ(generator().answer(), inHome("folder") + QString::fromUtf16(u"\0x/", 3) + generator().fresh("1"));
}

TEST_P(EachGenerator, TwoCallsGiveTheSameNumber)
{
    put(generator().file("7"));
    EXPECT_EQ(generator().answer(), fresh("8"));
    EXPECT_EQ(generator().answer(), fresh("8"));
}

TEST_P(EachGenerator, NumberIsTakenByTheFileThatBearsIt)
{
    for (char const* const number : {"1", "2", "3"}) {
        EXPECT_EQ(generator().answer(), fresh(number));
        put(generator().file(number));
    }
}

TEST_P(EachGenerator, HighestNumberIsFreeOnceItsFileIsGone)
{
    put(Files{generator().file("3"), generator().file("5"), generator().file("8")});
    EXPECT_EQ(generator().answer(), fresh("9"));
    fs::remove(m_folder / generator().file("3"));
    EXPECT_EQ(generator().answer(), fresh("9"));
    fs::remove(m_folder / generator().file("8"));
    EXPECT_EQ(generator().answer(), fresh("6"));
}

TEST_P(EachGenerator, AmongManyFilesTheHighestIsFound)
{
    for (int number = 1; number <= 300; ++number)
        put(generator().file(std::to_string(number)));
    EXPECT_EQ(generator().answer(), fresh("301"));
}

TEST_P(EachGenerator, OwnAnswerIsCounted)
{
    QString const path = generator().folderKey == std::string("audioRecordPath") ? Settings::generateAudioRecordFilePath() : fresh("1");
    makeFile(path.toStdString());
    EXPECT_EQ(generator().answer(), fresh("2"));
}

TEST_P(EachGenerator, FolderThatVanishesBetweenCallsCountsAsEmpty)
{
    put(generator().file("7"));
    EXPECT_EQ(generator().answer(), fresh("8"));
    fs::remove_all(m_folder);
    EXPECT_EQ(generator().answer(), fresh("1"));
}

TEST_P(EachGenerator, LowerFoldersAreNotSearched)
{
    put("deeper/" + generator().file("7"));
    put("deeper.d/" + generator().file("9"));
    EXPECT_EQ(generator().answer(), fresh("1"));
}

TEST_P(EachGenerator, NothingIsMadeOrChanged)
{
    put(generator().file("7"));
    Files const before = everything();
    generator().answer();
    keep(generator().folderKey, (m_home.path() / "missing").string());
    generator().answer();
    m_productValues->remove(generator().folderKey);
    generator().answer();
    EXPECT_EQ(everything(), before);
    for (std::string const& call : calls())
        EXPECT_EQ(call.find("product.set"), std::string::npos) << call;
}

TEST_P(EachGenerator, FilesAreFoundInTheDefaultFolder)
{
    char const* const folder = generator().folderKey == std::string("exportPath")        ? "Videos/Lumora Library"
                               : generator().folderKey == std::string("audioRecordPath") ? "Music/Lumora Video Editor/Recorded Audio"
                                                                                         : "Videos/Lumora Video Editor/Stabilized";
    m_productValues->remove(generator().folderKey);
    EXPECT_EQ(generator().answer(), inHome(folder) + QLatin1Char('/') + generator().fresh("1"));
    m_home.write(fs::path(folder) / generator().file("7"), "content");
    EXPECT_EQ(generator().answer(), inHome(folder) + QLatin1Char('/') + generator().fresh("8"));
}

TEST_P(EachGenerator, FolderMayVanishWhileItIsAskedFor)
{
    put(generator().file("7"));
    bool const asksTwice = generator().folderKey != std::string("exportPath");
    EXPECT_EQ(answerOfChanging(m_folder.string(), [&] { fs::remove_all(m_folder); }), fresh("8"));
    EXPECT_NE(fs::exists(m_folder), asksTwice);
}

TEST_P(EachGenerator, ChangedFolderIsListedAndTheNewOneNamedWhereItIsAskedForTwice)
{
    put(generator().file("7"));
    m_home.write("other/" + generator().file("3"), "content");
    bool const asksTwice = generator().folderKey != std::string("exportPath");
    EXPECT_EQ(answerOfChanging((m_home.path() / "other").string()), inHome(asksTwice ? "other/" : "folder/") + generator().fresh("8"));
    EXPECT_EQ(answerOfChanging(""), (asksTwice ? QStringLiteral("/") : inHome("folder/")) + generator().fresh("8"));
}

TEST_P(EachGenerator, FailureOfTheStorePassesThrough)
{
    int const reads = generator().folderKey == std::string("audioRecordPath") ? 3 : 2;
    for (int failing = 1; failing <= reads + 1; ++failing) {
        auto const store = std::make_shared<TestKit::FailingStorage>(failing, m_productValues);
        TestKit::ScopedBinding const binding({m_productInfo, m_common, store, {}});
        if (failing <= reads)
            EXPECT_THROW(generator().answer(), TestKit::StorageFailure) << "call " << failing;
        else
            EXPECT_EQ(generator().answer(), fresh("1"));
    }
}

// An ordinary user meets folders that may not be read; to the superuser all are open.
TEST_P(EachGenerator, FolderThatMayNotBeReadCountsAsEmpty)
{
    bool const asOrdinaryUser = true;
    put(generator().file("7"));
    ::chmod(m_home.path().c_str(), 0755);
    auto const answerAt = [&](mode_t mode) {
        ::chmod(m_folder.c_str(), mode);
        std::string const answer = inChild([&] { return generator().answer().toStdString(); }, asOrdinaryUser);
        ::chmod(m_folder.c_str(), 0755);
        return utf8(answer);
    };
    EXPECT_EQ(answerAt(0755), fresh("8"));
    EXPECT_EQ(answerAt(0311), fresh("1"));
    EXPECT_EQ(answerAt(0000), fresh("1"));
}

TEST_P(EachGenerator, FolderInOneThatMayNotBeEnteredCountsAsEmpty)
{
    bool const asOrdinaryUser = true;
    put("inner/" + generator().file("7"));
    keep(generator().folderKey, (m_folder / "inner").string());
    ::chmod(m_home.path().c_str(), 0755);
    ::chmod(m_folder.c_str(), 0644);
    EXPECT_EQ(utf8(inChild([&] { return generator().answer().toStdString(); }, asOrdinaryUser)),
              inHome("folder/inner/") + generator().fresh("1"));
    ::chmod(m_folder.c_str(), 0755);
    EXPECT_EQ(utf8(inChild([&] { return generator().answer().toStdString(); }, asOrdinaryUser)),
              inHome("folder/inner/") + generator().fresh("8"));
}

TEST_P(EachGenerator, NumbersAndTimeAreWrittenTheSameInEveryLanguage)
{
    put(generator().file("1233"));
    QLocale const earlier;
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(generator().answer(), fresh("1234"));
    QLocale::setDefault(earlier);
}

INSTANTIATE_TEST_SUITE_P(Table, EachGenerator, testing::ValuesIn(generators), byMeaning);

char const productStorageLine[] =
    "^EditorSettings: productStorage is not bound or has been destroyed; call Settings::init with a live store first\n$";
char const productInfoLine[] = "^EditorSettings: productInfo is not bound or has been destroyed; "
                               "call Settings::init with a live product-information object first\n$";

class EachGeneratorDeathTest : public EachGenerator {};

TEST_P(EachGeneratorDeathTest, DestroyedStoreGivesNoDefault)
{
    m_productStore.reset();
    EXPECT_EXIT(generator().answer(), testing::KilledBySignal(SIGABRT), productStorageLine);
}

TEST_P(EachGeneratorDeathTest, StoreThatGoesAfterItsFirstAnswerIsMissedAtTheNext)
{
    std::shared_ptr<AnsweringStorage> store;
    store = std::make_shared<AnsweringStorage>([&](std::string const&, std::string const& value) {
        store.reset();
        return value;
    });
    TestKit::ScopedBinding const binding({m_productInfo, m_common, store, {}});
    EXPECT_EXIT(generator().answer(), testing::KilledBySignal(SIGABRT), productStorageLine);
}

INSTANTIATE_TEST_SUITE_P(Table, EachGeneratorDeathTest, testing::ValuesIn(generators), byMeaning);

class FreezeDeathTest : public Folder {};

TEST_F(FreezeDeathTest, ProductIsAskedForTheDefaultEvenWhereAFolderIsStored)
{
    m_productInfo.reset();
    EXPECT_EXIT(freeze(), testing::KilledBySignal(SIGABRT), productInfoLine);
    EXPECT_EQ(stabilized(), inFolder(u"Holiday-1.mp4")) << "has no need of the product";
}

// --- What is asked, in which order -------------------------------------------------------------------------------------

class Questions : public BoundLibrary {
protected:
    static std::string question(char const* key, QString const& value)
    {
        return std::string("product.getString(\"") + key + "\", \"" + value.toStdString() + "\")";
    }
};

TEST_F(Questions, RecordingAsksForFolderFormatAndFolder)
{
    Settings::generateAudioRecordFilePath();
    std::string const folder = question("audioRecordPath", inHome("Music/Lumora Video Editor/Recorded Audio"));
    EXPECT_EQ(calls(), (Calls{folder, "product.getString(\"audioRecordFormat\", \"wav\")", folder}));
}

TEST_F(Questions, FreezeAsksForFormatAndFolderOnce)
{
    freeze();
    EXPECT_EQ(calls(), (Calls{"product.getString(\"freezedFileFormat\", \"png\")", "productInfo.productKind()",
                              question("exportPath", inHome("Videos/Lumora Library"))}));
}

TEST_F(Questions, StabilizedAsksForTheFolderTwiceAndForNoFormat)
{
    m_productValues->setString("stabilizedFileFormat", "avi");
    stabilized();
    std::string const folder = question("stabilizedFilePath", inHome("Videos/Lumora Video Editor/Stabilized"));
    EXPECT_EQ(calls(), (Calls{folder, folder}));
    EXPECT_EQ(stabilized(), inHome("Videos/Lumora Video Editor/Stabilized/Holiday-1.mp4"));
}

TEST_F(Questions, DefaultIsComputedEvenWhereAFolderIsStored)
{
    for (Generator const& generator : generators)
        m_productValues->setString(generator.folderKey, "/stored");
    std::string const recordings = question("audioRecordPath", inHome("Music/Lumora Video Editor/Recorded Audio"));
    Settings::generateAudioRecordFilePath();
    EXPECT_EQ(calls(), (Calls{recordings, "product.getString(\"audioRecordFormat\", \"wav\")", recordings}));
    m_product->kind = 1;
    freeze();
    EXPECT_EQ(calls(), (Calls{"product.getString(\"freezedFileFormat\", \"png\")", "productInfo.productKind()",
                              question("exportPath", inHome("Videos/Lumora Video Editor"))}));
}

TEST_F(Questions, DefaultIsComputedAtEachQuestion)
{
    for (auto const& [answer, expected] : {std::pair(&recording, "/second/Music/Lumora Video Editor/Recorded Audio/Rec-1-TIME.wav"),
                                           std::pair(&stabilized, "/second/Videos/Lumora Video Editor/Stabilized/Holiday-1.mp4")}) {
        ::setenv("HOME", "/first", 1);
        auto const store = std::make_shared<AnsweringStorage>([](std::string const&, std::string const& value) {
            ::setenv("HOME", "/second", 1);
            return value;
        });
        TestKit::ScopedBinding const binding({m_productInfo, m_common, store, {}});
        EXPECT_EQ(answer(), QString::fromUtf8(expected));
    }
}

// --- Recordings --------------------------------------------------------------------------------------------------------

struct Recorded {
    char const* meaning;
    Files files;
    char const* answer;
};

class Recording : public Folder, public testing::WithParamInterface<Recorded> {};

TEST_P(Recording, FollowsTheFilesInTheFolder)
{
    put(GetParam().files);
    EXPECT_EQ(recording(), inFolder(utf8(GetParam().answer)));
}

INSTANTIATE_TEST_SUITE_P(
    Table, Recording,
    testing::ValuesIn(std::vector<Recorded>{
        {"AllExtensionsCount", {"Rec-3-2024.03.01-10.00.00.wav", "Rec-10-2024.03.02-11.30.00.mp3", "notes.txt"}, "Rec-11-TIME.wav"},
        {"ExtensionInUpperCaseCounts", {"Rec-5-a-b.WAV"}, "Rec-6-TIME.wav"},
        {"AnyTextForTheTimeCounts", {"Rec-5-a-b.c"}, "Rec-6-TIME.wav"},
        {"LettersForTheNumber", {"Rec-x-y-z.wav"}, "Rec-1-TIME.wav"},
        {"TwoDashesOnly", {"Rec-5-a.wav"}, "Rec-1-TIME.wav"},
        {"OneDashOnly", {"Rec-5.wav"}, "Rec-1-TIME.wav"},
        {"ThreeDashesWithNothingBetween", {"Rec-5--.x"}, "Rec-6-TIME.wav"},
        {"MoreDashes", {"Rec-5-a-b-c-d.wav"}, "Rec-6-TIME.wav"},
        {"NoDot", {"Rec-5-a-b"}, "Rec-1-TIME.wav"},
        {"DotBeforeTheLastDashOnly", {"Rec-5-a.b-c"}, "Rec-1-TIME.wav"},
        {"DotAtTheEnd", {"Rec-5-a-b."}, "Rec-6-TIME.wav"},
        {"LowerCaseDoesNotCount", {"rec-5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"UpperCaseDoesNotCount", {"REC-5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"LowerCaseIsListedAndCountsByWhatFollows", {"rec-1-Rec-7-x.y"}, "Rec-8-TIME.wav"},
        {"UpperCaseIsListedAndCountsByWhatFollows", {"REC-1-Rec-7-x.y"}, "Rec-8-TIME.wav"},
        {"FirstMatchInTheNameCounts", {"Rec-2-Rec-9-b.x"}, "Rec-3-TIME.wav"},
        {"LaterMatchCountsWhereTheFirstHasNoDigits", {"Rec-a-Rec-9-b.x"}, "Rec-10-TIME.wav"},
        {"LaterMatchInsideAWordCounts", {"Rec-a-bRec-9-b.x"}, "Rec-10-TIME.wav"},
        {"OtherDigitsHideALaterMatch", {u8"Rec-\u0663-Rec-9-b.x"}, "Rec-1-TIME.wav"},
        {"TextBefore", {"xRec-5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"BlankBefore", {" Rec-5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"HiddenFile", {".Rec-5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"DashBeforeTheNumber", {"Rec--5-a-b.wav"}, "Rec-1-TIME.wav"},
        {"LetterAfterTheNumber", {"Rec-5x-a-b.wav"}, "Rec-1-TIME.wav"},
        {"BlankAfterTheNumber", {"Rec-5 -a-b.wav"}, "Rec-1-TIME.wav"},
        {"MathematicalDigitAfterTheNumber", {u8"Rec-5\U0001D7D7-a-b.wav"}, "Rec-1-TIME.wav"},
        {"OtherDash", {u8"Rec\u20135\u2013a\u2013b.wav"}, "Rec-1-TIME.wav"},
        {"LineBreak", {"Rec-5-a\n-b.wav"}, "Rec-6-TIME.wav"},
        {"LineBreakAfterTheExtension", {"Rec-5-a-b.wav\n"}, "Rec-6-TIME.wav"},
        {"LineBreakBeforeALaterMatch", {"Rec-x\nRec-5-a-b.wav"}, "Rec-6-TIME.wav"},
        {"LineBreakInTheNumber", {"Rec-5\n-a-b.wav"}, "Rec-1-TIME.wav"},
        {"NonAsciiText", {u8"Rec-5-\u00E9-\u05D0.\U0001F3AC"}, "Rec-6-TIME.wav"},
        // Qt leaves out a name whose bytes are not text, rather than guess at it.
        {"BytesThatAreNoText", {"Rec-5-\xFF-b.wav"}, "Rec-1-TIME.wav"},
        {"TextCutShort", {"Rec-5-a-b.wav\xC3"}, "Rec-1-TIME.wav"},
        {"OverlongText", {"Rec-5-\xC0\xAF-b.wav"}, "Rec-1-TIME.wav"},
        {"HalfOfASurrogatePair", {"Rec-5-\xED\xA0\x80-b.wav"}, "Rec-1-TIME.wav"},
        {"BytesThatAreNoTextHideNoOther", {"Rec-5-\xFF-b.wav", "Rec-3-a-b.wav"}, "Rec-4-TIME.wav"},
        {"ReplacementCharacterIsText", {u8"Rec-5-\uFFFD-b.wav"}, "Rec-6-TIME.wav"},
        {"NameOf255Bytes", {"Rec-5-a-b." + std::string(245, 'x')}, "Rec-6-TIME.wav"},
        {"NumberThatFillsTheName", {"Rec-" + std::string(245, '0') + "5-a-.x"}, "Rec-6-TIME.wav"},
    }),
    byMeaning);

struct RecordingFormat {
    char const* meaning;
    std::string stored;
    char16_t const* answer;
};

class RecordingExtension : public Folder, public testing::WithParamInterface<RecordingFormat> {};

TEST_P(RecordingExtension, IsTheFormatInLowerCase)
{
    put("Rec-5-a-b.mp3");
    keep("audioRecordFormat", GetParam().stored);
    EXPECT_EQ(recording(), inFolder(GetParam().answer));
}

INSTANTIATE_TEST_SUITE_P(Table, RecordingExtension,
                         testing::ValuesIn(std::vector<RecordingFormat>{
                             {"LowerCase", "mp3", u"Rec-6-TIME.mp3"},
                             {"UpperCase", "WAV", u"Rec-6-TIME.wav"},
                             {"MixedCase", "Wav", u"Rec-6-TIME.wav"},
                             {"Empty", "", u"Rec-6-TIME."},
                             {"LeadingDot", ".WAV", u"Rec-6-TIME..wav"},
                             {"Blanks", " W ", u"Rec-6-TIME. w "},
                             {"Separator", "A/B", u"Rec-6-TIME.a/b"},
                             {"Backslash", "A\\B", u"Rec-6-TIME.a\\b"},
                             {"Wildcards", "W*?[A]", u"Rec-6-TIME.w*?[a]"},
                             {"PercentSignsAreNoPlaceholders", "%1%2%3", u"Rec-6-TIME.%1%2%3"},
                             {"PlaceholderOfItsOwn", "%L1%99", u"Rec-6-TIME.%l1%99"},
                             {"Umlauts", u8"\u00C4\u00D6", u"Rec-6-TIME.\u00E4\u00F6"},
                             {"TurkishCapitalI", u8"\u0130", u"Rec-6-TIME.i\u0307"},
                             {"CapitalIWithoutTurkishRules", "WAVI", u"Rec-6-TIME.wavi"},
                             {"SigmaAtTheEnd", u8"\u039F\u03A3", u"Rec-6-TIME.\u03BF\u03C3"},
                             {"BeyondTheFirstPlane", u8"\U00010400", u"Rec-6-TIME.\U00010428"},
                             {"Decomposed", u8"E\u0301", u"Rec-6-TIME.e\u0301"},
                             {"InvalidUtf8", "W\xFF", u"Rec-6-TIME.w\uFFFD"},
                             {"LineBreak", "W\nV", u"Rec-6-TIME.w\nv"},
                         }),
                         byMeaning);

TEST_F(Folder, RecordingFormatIsKeptInFullLength)
{
    keep("audioRecordFormat", std::string("W\0V", 3));
    EXPECT_EQ(recording(), inFolder(QString::fromUtf16(u"Rec-1-TIME.w\0v", 14)));
}

// The time in the name of a recording, "2024.03.09-17.05.31", of one made in an empty folder.
std::string timeOfRecording()
{
    std::string const path = Settings::generateAudioRecordFilePath().toStdString();
    std::vector<std::string> const time =
        captured(path, "^.*/Rec-1-([0-9]{4}\\.[0-9]{2}\\.[0-9]{2}-[0-9]{2}\\.[0-9]{2}\\.[0-9]{2})\\.wav$");
    return time.empty() ? "not a time in " + path : time[0];
}

TEST_F(Folder, RecordingBearsTheLocalTime)
{
    QDateTime const before = QDateTime::currentDateTime();
    QString const time = QString::fromStdString(timeOfRecording());
    QDateTime const after = QDateTime::currentDateTime();
    EXPECT_LE(before.toString(QStringLiteral("yyyy.MM.dd-HH.mm.ss")), time);
    EXPECT_LE(time, after.toString(QStringLiteral("yyyy.MM.dd-HH.mm.ss")));
}

TEST_F(Folder, RecordingBearsTheTimeOfTheZone)
{
    char const* const earlier = std::getenv("TZ");
    std::optional<std::string> const zone = earlier ? std::optional<std::string>(earlier) : std::nullopt;
    // A zone's name in TZ tells how far it lies behind UTC.
    for (auto const& [name, seconds] :
         {std::pair("EAST-13:45", 13 * 3600 + 45 * 60), std::pair("WEST+11:30", -11 * 3600 - 30 * 60), std::pair("UTC0", 0)}) {
        ::setenv("TZ", name, 1);
        auto const localNow = [shift = seconds] {
            // std::time may be some milliseconds behind this clock, which Qt asks.
            std::time_t const now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now()) + shift;
            char text[32];
            std::strftime(text, sizeof text, "%Y.%m.%d-%H.%M.%S", std::gmtime(&now));
            return std::string(text);
        };
        std::string const before = localNow();
        std::string const time = timeOfRecording();
        std::string const after = localNow();
        EXPECT_LE(before, time) << name;
        EXPECT_LE(time, after) << name;
    }
    zone ? ::setenv("TZ", zone->c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
}

// --- Freeze frames and stabilized clips --------------------------------------------------------------------------------

struct Clip {
    char const* meaning;
    char16_t const* source;
    std::string format;
    Files files;
    char16_t const* answer;
};

class Freeze : public Folder, public testing::WithParamInterface<Clip> {};

TEST_P(Freeze, IsNamedAfterTheSource)
{
    Clip const& clip = GetParam();
    put(clip.files);
    keep("freezedFileFormat", clip.format);
    EXPECT_EQ(Settings::generateFreezedFilePath(QString::fromUtf16(clip.source)), inFolder(clip.answer));
}

INSTANTIATE_TEST_SUITE_P(
    Sources, Freeze,
    testing::ValuesIn(std::vector<Clip>{
        {"LastExtensionGoes", u"/a/Holiday.final.mov", "png", {}, u"Holiday.final (1).png"},
        {"OfAnotherFolderAndExtension", u"/y/Holiday.final.avi", "png", {"Holiday.final (4).png"}, u"Holiday.final (5).png"},
        {"Relative", u"b/Holiday.mov", "png", {"Holiday (4).png"}, u"Holiday (5).png"},
        {"NameOnly", u"Holiday.mov", "png", {"Holiday (4).png"}, u"Holiday (5).png"},
        {"NoExtension", u"/a.b/Holiday", "png", {"Holiday (4).png"}, u"Holiday (5).png"},
        {"EmptyExtension", u"Holiday.", "png", {"Holiday (4).png"}, u"Holiday (5).png"},
        {"DoubledSeparators", u"//a//Holiday.mov", "png", {}, u"Holiday (1).png"},
        {"Backslash", u"a\\Holiday.mov", "png", {"Holiday (4).png", "a\\Holiday (6).png"}, u"a\\Holiday (7).png"},
        {"Drive", u"C:/Holiday.mov", "png", {}, u"Holiday (1).png"},
        {"Address", u"file:///a/Holiday.mov", "png", {}, u"Holiday (1).png"},
        {"ResourceOfQt", u":/a/Holiday.mov", "png", {}, u"Holiday (1).png"},
        {"LeadingColon", u":Holiday.mov", "png", {":Holiday (4).png"}, u":Holiday (5).png"},
        {"ColonInside", u"a:Holiday.mov", "png", {"a:Holiday (4).png"}, u"a:Holiday (5).png"},
        {"Empty", u"", "png", {}, u" (1).png"},
        {"ExtensionOnly", u".mov", "png", {}, u" (1).png"},
        {"FolderWithSeparator", u"a/", "png", {}, u" (1).png"},
        {"Root", u"/", "png", {}, u" (1).png"},
        {"Dot", u"a/.", "png", {}, u" (1).png"},
        {"DotDot", u"a/..", "png", {}, u". (1).png"},
        {"EmptyStemCountsItsOwn", u"", "png", {" (4).png"}, u" (5).png"},
        {"EmptyStemCountsAllSources", u".mov", "png", {"Holiday (4).png", " (2).png", "x(9).png", "Trip (3).jpg"}, u" (5).png"},
        {"HiddenSourceGivesHiddenName", u"x/.hidden.mov", "png", {".hidden (5).png"}, u".hidden (1).png"},
        {"TwoLeadingDots", u"..mov", "png", {}, u". (1).png"},
        {"Blanks", u" Holiday .mov", "png", {" Holiday  (4).png", "Holiday (6).png"}, u" Holiday  (5).png"},
        {"LineBreak", u"a\nb.mov", "png", {"a\nb (4).png"}, u"a\nb (5).png"},
        {"LineBreakAtTheEnd", u"a\n.mov", "png", {"a\n (4).png", "a (6).png"}, u"a\n (5).png"},
        {"Composed", u"\u00E9.mov", "png", {u8"\u00E9 (4).png", u8"e\u0301 (6).png"}, u"\u00E9 (5).png"},
        {"Decomposed", u"e\u0301.mov", "png", {u8"\u00E9 (4).png", u8"e\u0301 (6).png"}, u"e\u0301 (7).png"},
        {"UpperCaseAccent", u"\u00C9.mov", "png", {u8"\u00E9 (4).png"}, u"\u00C9 (1).png"},
        {"RightToLeft", u"\u05D0\u05D1.mov", "png", {u8"\u05D0\u05D1 (4).png"}, u"\u05D0\u05D1 (5).png"},
        {"RightToLeftMark", u"Holiday\u200F.mov", "png", {"Holiday (4).png", u8"Holiday\u200F (6).png"}, u"Holiday\u200F (7).png"},
        {"SurrogatePair", u"\U0001F3AC.mov", "png", {u8"\U0001F3AC (4).png"}, u"\U0001F3AC (5).png"},
        {"ReplacementCharacter", u"\uFFFD.mov", "png", {"\xFF (4).png", u8"\uFFFD (6).png"}, u"\uFFFD (7).png"},
        {"PatternCharacters", u"a+b (c).mov", "png", {"a+b (c) (2).png"}, u"a+b (c) (3).png"},
        {"AllPatternCharacters", u"$()*+.?[\\]^{|}.mov", "png", {"$()*+.?[\\]^{|} (4).png"}, u"$()*+.?[\\]^{|} (5).png"},
        {"NumberInTheSource", u"Holiday (3).mov", "png", {"Holiday (3).png", "Holiday (9).png"}, u"Holiday (3) (1).png"},
        {"NumberedSourceCountsItsOwn", u"Holiday (3).mov", "png", {"Holiday (3) (4).png"}, u"Holiday (3) (5).png"},
    }),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Files, Freeze,
    testing::ValuesIn(std::vector<Clip>{
        {"OwnAndOthers",
         u"/Users/me/Movies/Holiday.final.mov",
         "png",
         {"Holiday.final (1).png", "Holiday.final (4).png", "Holiday.final (2) copy.png", "Holiday.png", "Trip (9).png"},
         u"Holiday.final (5).png"},
        {"WithoutNumber", u"Holiday.mov", "png", {"Holiday.png"}, u"Holiday (1).png"},
        {"OtherExtension", u"Holiday.mov", "png", {"Holiday (7).jpg"}, u"Holiday (1).png"},
        {"ExtensionInUpperCase", u"Holiday.mov", "png", {"Holiday (3).PNG"}, u"Holiday (1).png"},
        {"ExtensionInUpperCaseAfterTheFormat", u"Holiday.mov", "png", {"Holiday (3).png.PNG"}, u"Holiday (4).png"},
        {"StemInLowerCase", u"Holiday.mov", "png", {"holiday (3).png"}, u"Holiday (1).png"},
        {"StemInLowerCaseBeforeAMatch", u"Holiday.mov", "png", {"holiday Holiday (3).png"}, u"Holiday (1).png"},
        {"LongerStem", u"Holiday.mov", "png", {"Holiday2 (3).png"}, u"Holiday (1).png"},
        {"ShorterStem", u"Holiday.final.mov", "png", {"Holiday (3).png"}, u"Holiday.final (1).png"},
        {"TextBefore", u"Holiday.mov", "png", {"My Holiday (3).png"}, u"Holiday (1).png"},
        {"MatchLaterInTheName", u"Holiday.mov", "png", {"Holiday at Holiday (3).png"}, u"Holiday (4).png"},
        {"FirstMatchInTheNameCounts", u"Holiday.mov", "png", {"Holiday (2).png Holiday (9).png"}, u"Holiday (3).png"},
        {"OtherDigitsHideALaterMatch", u"Holiday.mov", "png", {u8"Holiday (\u0663).png Holiday (9).png"}, u"Holiday (1).png"},
        {"DotIsNoWildcard", u"Holiday.final.mov", "png", {"Holiday.final Holidayxfinal (3).png"}, u"Holiday.final (1).png"},
        {"DotBeforeTheFormatIsNoWildcard", u"Holiday.mov", "png", {"Holiday (3)xpng.png"}, u"Holiday (1).png"},
        {"CopyOfANumber", u"Holiday.mov", "png", {"Holiday (2) copy.png"}, u"Holiday (1).png"},
        {"FormatTwice", u"Holiday.mov", "png", {"Holiday (2).png.png"}, u"Holiday (3).png"},
        {"FormatInside", u"Holiday.mov", "png", {"Holiday (2).png copy.png"}, u"Holiday (3).png"},
        {"LongerFormat", u"Holiday.mov", "png", {"Holiday (2).pngx"}, u"Holiday (1).png"},
        {"FormatInsideOtherExtension", u"Holiday.mov", "png", {"Holiday (2).png.jpg"}, u"Holiday (1).png"},
        {"NoBlank", u"Holiday.mov", "png", {"Holiday(2).png"}, u"Holiday (1).png"},
        {"TwoBlanks", u"Holiday.mov", "png", {"Holiday  (2).png"}, u"Holiday (1).png"},
        {"OtherBlank", u"Holiday.mov", "png", {u8"Holiday\u00A0(2).png"}, u"Holiday (1).png"},
        {"OtherBrackets", u"Holiday.mov", "png", {"Holiday [2].png"}, u"Holiday (1).png"},
        {"NoBrackets", u"Holiday.mov", "png", {"Holiday 2.png"}, u"Holiday (1).png"},
        {"TextAfterTheNumber", u"Holiday.mov", "png", {"Holiday (2a).png"}, u"Holiday (1).png"},
        {"LineBreakAfterTheNumber", u"Holiday.mov", "png", {"Holiday (2\n).png"}, u"Holiday (1).png"},
        {"LineBreakBeforeALaterMatch", u"Holiday.mov", "png", {"Holiday\nHoliday (2).png"}, u"Holiday (3).png"},
        {"BytesThatAreNoText", u"Holiday.mov", "png", {"Holiday \xFF Holiday (2).png"}, u"Holiday (1).png"},
        {"HiddenFile", u".hidden.mov", "png", {".hidden (2).png", ".hidden Holiday (4).png"}, u".hidden (1).png"},
        {"StabilizedClip", u"Holiday.mov", "png", {"Holiday-2.png"}, u"Holiday (1).png"},
        // Begins with the stem as a whole, but not up to its own last dot.
        {"StemThatReachesIntoTheExtension", u"Holiday (2).png.mov", "png", {"Holiday (2).png"}, u"Holiday (2).png (1).png"},
        {"MatchWithoutStemBeforeTheLastDot", u"Holiday (2).p.mov", "p (3).png", {"Holiday (2).p (3).png"}, u"Holiday (2).p (1).p (3).png"},
    }),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Formats, Freeze,
    testing::ValuesIn(std::vector<Clip>{
        {"UpperCaseIsKept", u"Holiday.mov", "PNG", {"Holiday (3).PNG", "Holiday (8).png"}, u"Holiday (4).PNG"},
        {"UmlautsAreKept", u"Holiday.mov", u8"\u00C4\u00D6", {u8"Holiday (3).\u00C4\u00D6"}, u"Holiday (4).\u00C4\u00D6"},
        {"UmlautsInOtherCase", u"Holiday.mov", u8"\u00C4\u00D6", {u8"Holiday (3).\u00E4\u00F6"}, u"Holiday (1).\u00C4\u00D6"},
        {"UmlautsInOtherCaseAreListed", u"Holiday.mov", u8"\u00C4", {u8"Holiday (3).\u00C4.\u00E4"}, u"Holiday (4).\u00C4"},
        {"TurkishCapitalIIsKept", u"Holiday.mov", u8"\u0130", {u8"Holiday (3).\u0130"}, u"Holiday (4).\u0130"},
        {"Empty", u"Holiday.mov", "", {"Holiday (3).", "Holiday (8).png"}, u"Holiday (4)."},
        {"EmptyAfterAnExtension", u"Holiday.mov", "", {"Holiday (3).png."}, u"Holiday (4)."},
        {"LeadingDot", u"Holiday.mov", ".png", {"Holiday (3).png", "Holiday (2)..png"}, u"Holiday (3)..png"},
        {"TwoExtensions", u"Holiday.mov", "tar.gz", {"Holiday (3).tar.gz", "Holiday (8).gz"}, u"Holiday (4).tar.gz"},
        {"InvalidUtf8", u"Holiday.mov", "p\xFF", {}, u"Holiday (1).p\uFFFD"},
        {"Separator", u"Holiday.mov", "a/b", {}, u"Holiday (1).a/b"},
        {"LineBreak", u"Holiday.mov", "p\ng", {"Holiday (3).p\ng"}, u"Holiday (4).p\ng"},
        // The format is at work in the filter and in the pattern: a character has the meaning that it has in each.
        {"QuestionMarkListsPngButNeedsNoLetter", u"Holiday.mov", "p?g", {"Holiday (3).png"}, u"Holiday (1).p?g"},
        {"QuestionMarkMakesALetterOptional", u"Holiday.mov", "p?g", {"Holiday (4).pg.png", "Holiday (6).g.pxg"}, u"Holiday (7).p?g"},
        {"QuestionMarkDoesNotCountItself", u"Holiday.mov", "p?g", {"Holiday (3).p?g"}, u"Holiday (1).p?g"},
        {"DotIsALetterInTheFilter", u"Holiday.mov", "p.g", {"Holiday (3).png", "Holiday (2).p.g"}, u"Holiday (3).p.g"},
        {"DotIsAnyInThePattern", u"Holiday.mov", "p.g", {"Holiday (3).pxg.p.g"}, u"Holiday (4).p.g"},
        {"StarListsAndRepeats", u"Holiday.mov", "p*", {"Holiday (3).png", "Holiday (5).jpg"}, u"Holiday (4).p*"},
        {"StarAloneNeedsNoExtension", u"Holiday.mov", "*", {"Holiday (3).png"}, u"Holiday (4).*"},
        {"PlusRepeatsInThePattern", u"Holiday.mov", "p+", {"Holiday (3).p+", "Holiday (8).pp"}, u"Holiday (4).p+"},
        {"SetMatchesInBoth",
         u"Holiday.mov",
         "[pj][np]g",
         {"Holiday (3).png", "Holiday (5).jpg", "Holiday (8).gif"},
         u"Holiday (6).[pj][np]g"},
        {"OpenSetListsNothing", u"Holiday.mov", "[", {"Holiday (3).[", "Holiday (3)."}, u"Holiday (1).["},
        {"OpenGroupMatchesNothing", u"Holiday.mov", "(png", {"Holiday (3).(png", "Holiday (4).png.(png"}, u"Holiday (1).(png"},
        {"ClosedGroupAloneMatchesNothing", u"Holiday.mov", "png)", {"Holiday (3).png)"}, u"Holiday (1).png)"},
        {"GroupNeedsItsContent", u"Holiday.mov", "(png)", {"Holiday (3).(png)"}, u"Holiday (1).(png)"},
        {"GroupComesAfterTheNumber", u"Holiday.mov", "(7)", {"Holiday (3).7.(7)"}, u"Holiday (4).(7)"},
        {"LongerAlternativeWins", u"Holiday.mov", "x|Holi", {"Holiday (3).x|Holi"}, u"Holiday (4).x|Holi"},
        {"EarlierAlternativeHasNoNumber", u"Holiday.mov", "x|Holi", {"Holiday Holiday (3).x|Holi"}, u"Holiday (1).x|Holi"},
        {"BackslashIsAClassInThePattern", u"Holiday.mov", "p\\w", {"Holiday (3).p\\w", "Holiday (2).pn.p\\w"}, u"Holiday (3).p\\w"},
        {"EndAnchorHoldsInThePattern", u"Holiday.mov", "png$", {"Holiday (3).png$", "Holiday (4).png"}, u"Holiday (1).png$"},
        {"PercentSign", u"Holiday.mov", "%", {"Holiday (3).%"}, u"Holiday (4).%"},
        {"FirstPlaceholder", u"Holiday.mov", "%1", {"Holiday (3).%1"}, u"Holiday (4).%1"},
        {"SecondPlaceholder", u"Holiday.mov", "%2", {"Holiday (3).%2"}, u"Holiday (4).%2"},
        {"ThirdPlaceholder", u"Holiday.mov", "%3", {"Holiday (3).%3"}, u"Holiday (4).%3"},
    }),
    byMeaning);

// Three arguments are filled in one after the other, and each fills the placeholders of the lowest number that are there
// then: first the stem, then the number, then the format. In the pattern it is the stem and then the format.
INSTANTIATE_TEST_SUITE_P(
    PercentSigns, Freeze,
    testing::ValuesIn(std::vector<Clip>{
        {"FirstTakesTheNumber", u"Shot %1.mov", "png", {}, u"Shot 1 (png).%3"},
        {"FirstNeverCountsItself", u"Shot %1.mov", "png", {"Shot 1 (png).%3", "Shot %1 (5).png"}, u"Shot 1 (png).%3"},
        {"FirstTakesTheFormatInThePattern", u"Shot %1.mov", "png", {"Shot %1 Shot png (5).%2.png"}, u"Shot 6 (png).%3"},
        {"SecondTakesTheNumberTwice", u"%2.mov", "png", {}, u"1 (1).png"},
        {"SecondTakesTheFormatInThePattern", u"%2.mov", "png", {"%2 png (5).png"}, u"6 (6).png"},
        {"SecondNeverCountsItself", u"%2.mov", "png", {"1 (1).png", "%2 (5).png"}, u"1 (1).png"},
        {"ThirdTakesTheFormat", u"%3.mov", "png", {}, u"png (1).png"},
        {"ThirdStaysInThePattern", u"%3.mov", "png", {"%3 (5).png"}, u"png (6).png"},
        {"FourthStays", u"%4.mov", "png", {"%4 (5).png"}, u"%4 (6).png"},
        {"TwoDigitsStay", u"%10%99.mov", "png", {"%10%99 (5).png"}, u"%10%99 (6).png"},
        {"TwoDigitsAreOnePlaceholder", u"%01.mov", "png", {}, u"1 (png).%3"},
        {"ThreeDigitsAreTwoAndADigit", u"%100%012.mov", "png", {}, u"%10012 (png).%3"},
        {"ZeroComesFirst", u"%0.mov", "png", {}, u"1 (png).%3"},
        {"AllOfOneNumberTakeIt", u"%1%1.mov", "png", {}, u"11 (png).%3"},
        {"TwoNumbersTakeTwo", u"%1%2.mov", "png", {}, u"1png (png).%3"},
        {"NumberMakesALongerPlaceholder", u"%3%2%1.mov", "png", {}, u"%3%21 (png).%3"},
        {"NumberMakesTheFirstPlaceholder", u"%%1.mov", "png", {}, u"png (%2).%3"},
        {"NumberMakesTheSecondPlaceholder", u"%%1.mov", "png", {"%%1 %png (1).%2.png"}, u"png (png).%3"},
        {"NumberMakesTheThirdPlaceholder", u"%%1.mov", "png", {"%%1 %png (2).%2.png"}, u"%3 (png).%3"},
        {"LocalizedFirst", u"%L1.mov", "png", {}, u"1 (png).%3"},
        {"LocalizedSecond", u"%L2.mov", "png", {}, u"1 (1).png"},
        {"LocalizedTakesOneL", u"%LL1.mov", "png", {"%LL1 (5).png"}, u"%LL1 (6).png"},
        {"LocalizedInLowerCaseStays", u"%l1.mov", "png", {"%l1 (5).png"}, u"%l1 (6).png"},
        {"LocalizedWithoutNumberStays", u"%L.mov", "png", {"%L (5).png"}, u"%L (6).png"},
        {"OtherDigitsAreNumbersToo", u"%\u0661.mov", "png", {}, u"1 (png).%3"},
        {"MixedDigitsAreOneNumber", u"%1\u0661.mov", "png", {u8"%1\u0661 (5).png"}, u"%1\u0661 (6).png"},
        {"AloneStays", u"%.mov", "png", {"% (5).png"}, u"% (6).png"},
        {"AtTheEndStays", u"100%.mov", "png", {"100% (5).png"}, u"100% (6).png"},
        {"BeforeALetterStays", u"%n.mov", "png", {"%n (5).png"}, u"%n (6).png"},
        {"WithPatternCharacters", u"50% (1).mov", "png", {"50% (1) (5).png"}, u"50% (1) (6).png"},
        {"SplitByADotStays", u"%.1.mov", "png", {"%.1 (5).png"}, u"%.1 (6).png"},
        {"WithPlaceholdersInTheFormat", u"%1.mov", "%1", {}, u"1 (%1).%3"},
        {"WithTheSecondInTheFormat", u"%2.mov", "%1", {"%2 %1 (5).%1"}, u"6 (6).%1"},
        // The format is an alternative of its own here and finds its number in any name that is not narrowed out, such as one
        // that is the stem itself and so ends in the middle of it.
        {"NarrowedByTheNameUpToItsLastDot", u"%1 a7.(7)|b.mov", "(7)|b", {"%1 a7.(7)|b"}, u"1 a7.(7)|b ((7)|b).%3"},
        {"FormatBringsTheNumber", u"%1 a7.(7)|b.mov", "(7)|b", {"%1 a7.(7)|b.(7)|b"}, u"8 a7.(7)|b ((7)|b).%3"},
        {"AfterTheLargest", u"%2.mov", "png", {"%2 png (2147483647).png"}, u"-2147483648 (-2147483648).png"},
    }),
    byMeaning);

TEST_F(Folder, FreezeWritesTheNumberInTheDefaultLanguageWhereTheSourceAsksForIt)
{
    put("%L2 png (1233).png");
    QLocale const earlier;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(Settings::generateFreezedFilePath(QStringLiteral("%L2.mov")), inFolder(u"1.234 (1234).png"));
    QLocale::setDefault(QLocale(QLocale::Arabic, QLocale::Egypt));
    EXPECT_EQ(Settings::generateFreezedFilePath(QStringLiteral("%L2.mov")), inFolder(u"\u0661\u066C\u0662\u0663\u0664 (1234).png"));
    QLocale::setDefault(earlier);
}

TEST_F(Folder, FreezeOfALongNameIsCountedAndMayBecomeLonger)
{
    std::string const stem(244, 'x');
    put(stem + " (9999).png");
    QString const answer = Settings::generateFreezedFilePath(utf8("/a/" + stem + ".mov"));
    EXPECT_EQ(answer, inFolder(utf8(stem + " (10000).png")));
    EXPECT_EQ(answer.size() - inFolder(u"").size(), 256);
}

TEST_F(Folder, NamesOfSourcesAreKeptInFullLength)
{
    QString const source = QString::fromUtf16(u"/a/b\0c.mov", 10);
    EXPECT_EQ(Settings::generateFreezedFilePath(source), inFolder(QString::fromUtf16(u"b\0c (1).png", 11)));
    EXPECT_EQ(Settings::generateStabilizedFilePath(source, QString::fromUtf16(u"d\0e", 3)),
              inFolder(QString::fromUtf16(u"b\0c-1.d\0e", 9)));
    QString const half = QString(QChar(0xD83C)) + QStringLiteral(".mov");
    EXPECT_EQ(Settings::generateFreezedFilePath(half), inFolder(QString(QChar(0xD83C)) + QStringLiteral(" (1).png")));
    EXPECT_EQ(Settings::generateStabilizedFilePath(half, QStringLiteral("mp4")),
              inFolder(QString(QChar(0xD83C)) + QStringLiteral("-1.mp4")));
}

TEST_F(Folder, NullSourceIsEmpty)
{
    EXPECT_EQ(Settings::generateFreezedFilePath(QString()), inFolder(u" (1).png"));
    EXPECT_EQ(Settings::generateStabilizedFilePath(QString(), QString()), inFolder(u"-1."));
}

TEST_F(Folder, ArgumentsOfTheCallerStayAsTheyAre)
{
    QString const source = QStringLiteral("/a/Holiday.final.mov");
    QString const format = QStringLiteral("MP4");
    Settings::generateFreezedFilePath(source);
    EXPECT_EQ(Settings::generateStabilizedFilePath(source, format), inFolder(u"Holiday-1.MP4"));
    EXPECT_EQ(source, QStringLiteral("/a/Holiday.final.mov"));
    EXPECT_EQ(format, QStringLiteral("MP4"));
}

TEST_F(Folder, SourceNeedNotExistAndIsNotLookedAt)
{
    put("Holiday.mov");
    for (QString const& source : {inFolder(u"Holiday.mov"), QStringLiteral("/missing/Holiday.mov")}) {
        EXPECT_EQ(Settings::generateFreezedFilePath(source), inFolder(u"Holiday (1).png"));
        EXPECT_EQ(Settings::generateStabilizedFilePath(source, QStringLiteral("mp4")), inFolder(u"Holiday-1.mp4"));
    }
    fs::create_directory(m_home.path() / "Trip.d");
    EXPECT_EQ(Settings::generateFreezedFilePath(inHome("Trip.d")), inFolder(u"Trip (1).png")) << "a folder is a name like any other";
}

class Stabilized : public Folder, public testing::WithParamInterface<Clip> {};

TEST_P(Stabilized, IsNamedAfterTheSource)
{
    Clip const& clip = GetParam();
    put(clip.files);
    EXPECT_EQ(Settings::generateStabilizedFilePath(QString::fromUtf16(clip.source), utf8(clip.format)), inFolder(clip.answer));
}

INSTANTIATE_TEST_SUITE_P(
    Sources, Stabilized,
    testing::ValuesIn(std::vector<Clip>{
        {"AllExtensionsGo", u"/a/Holiday.final.mov", "mp4", {}, u"Holiday-1.mp4"},
        {"SharesItsNumbersUpToTheFirstDot", u"/a/Holiday.raw.mov", "mp4", {"Holiday-4.mp4"}, u"Holiday-5.mp4"},
        {"Relative", u"b/Holiday.mov", "mp4", {"Holiday-4.mp4"}, u"Holiday-5.mp4"},
        {"NoExtension", u"/a.b/Holiday", "mp4", {"Holiday-4.mp4"}, u"Holiday-5.mp4"},
        {"EmptyExtension", u"Holiday.", "mp4", {"Holiday-4.mp4"}, u"Holiday-5.mp4"},
        {"Backslash", u"a\\Holiday.mov", "mp4", {}, u"a\\Holiday-1.mp4"},
        {"Drive", u"C:/Holiday.mov", "mp4", {}, u"Holiday-1.mp4"},
        {"LeadingColon", u":Holiday.mov", "mp4", {":Holiday-4.mp4"}, u":Holiday-5.mp4"},
        {"Empty", u"", "mp4", {}, u"-1.mp4"},
        {"ExtensionOnly", u".mov", "mp4", {"-4.mp4"}, u"-5.mp4"},
        {"FolderWithSeparator", u"a/", "mp4", {"-4.mp4"}, u"-5.mp4"},
        {"HiddenSourceHasAnEmptyStem", u"x/.hidden.mov", "mp4", {".hidden-4.mp4", "-2.mp4"}, u"-3.mp4"},
        {"DotDot", u"a/..", "mp4", {}, u"-1.mp4"},
        {"EmptyStemNeedsADashFirst", u"", "mp4", {"Holiday-4.mp4"}, u"-1.mp4"},
        {"EmptyStemCountsALaterNumber", u"", "mp4", {"--4.mp4", "-a-6.mp4"}, u"-7.mp4"},
        {"Blanks", u" Holiday .mov", "mp4", {" Holiday -4.mp4", "Holiday-6.mp4"}, u" Holiday -5.mp4"},
        {"LineBreak", u"a\nb.mov", "mp4", {"a\nb-4.mp4"}, u"a\nb-5.mp4"},
        {"Composed", u"\u00E9.mov", "mp4", {u8"\u00E9-4.mp4", u8"e\u0301-6.mp4"}, u"\u00E9-5.mp4"},
        {"Decomposed", u"e\u0301.mov", "mp4", {u8"\u00E9-4.mp4", u8"e\u0301-6.mp4"}, u"e\u0301-7.mp4"},
        {"UpperCaseAccent", u"\u00C9.mov", "mp4", {u8"\u00E9-4.mp4"}, u"\u00C9-1.mp4"},
        {"UpperCaseAccentIsListedInAnyCase", u"\u00C9.mov", "mp4", {u8"\u00E9-\u00C9-4.mp4"}, u"\u00C9-5.mp4"},
        // The filter compares character by character what Unicode holds for the same letter.
        {"BeyondTheFirstPlaneIsListedInAnyCase", u"\U00010400.mov", "mp4", {u8"\U00010428-\U00010400-4.mp4"}, u"\U00010400-5.mp4"},
        {"KelvinSignIsListedAsK", u"k.mov", "mp4", {u8"\u212A-k-4.mp4"}, u"k-5.mp4"},
        {"LongSIsListedAsS", u"s.mov", "mp4", {u8"\u017F-s-4.mp4"}, u"s-5.mp4"},
        {"FinalSigmaIsListedAsSigma", u"\u03C3.mov", "mp4", {u8"\u03C2-\u03C3-4.mp4"}, u"\u03C3-5.mp4"},
        {"TurkishCapitalIIsNotListedAsI", u"i.mov", "mp4", {u8"\u0130-i-4.mp4"}, u"i-1.mp4"},
        {"SharpSIsNotListedAsTwo", u"ss.mov", "mp4", {u8"\u00DF-ss-4.mp4"}, u"ss-1.mp4"},
        {"RightToLeft", u"\u05D0\u05D1.mov", "mp4", {u8"\u05D0\u05D1-4.mp4"}, u"\u05D0\u05D1-5.mp4"},
        {"SurrogatePair", u"\U0001F3AC.mov", "mp4", {u8"\U0001F3AC-4.mp4"}, u"\U0001F3AC-5.mp4"},
        {"PercentSignsStay", u"%1.mov", "mp4", {"%1-4.mp4"}, u"%1-5.mp4"},
        {"AllPercentSignsStay", u"%3%2%L1%.mov", "mp4", {"%3%2%L1%-4.mp4"}, u"%3%2%L1%-5.mp4"},
    }),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(
    Files, Stabilized,
    testing::ValuesIn(std::vector<Clip>{
        {"OwnAndOthers",
         u"/Users/me/Movies/Holiday.final.mov",
         "mp4",
         {"Holiday-1.mp4", "Holiday-3.mov", "Holiday-x.mp4", "Trip-8.mp4"},
         u"Holiday-4.mp4"},
        {"OtherExtension", u"Holiday.mov", "mp4", {"Holiday-3.mov"}, u"Holiday-4.mp4"},
        {"EmptyExtension", u"Holiday.mov", "mp4", {"Holiday-3."}, u"Holiday-4.mp4"},
        {"NoExtension", u"Holiday.mov", "mp4", {"Holiday-5"}, u"Holiday-1.mp4"},
        {"DotBeforeTheDashOnly", u"Holiday.mov", "mp4", {"Holiday.a-5"}, u"Holiday-1.mp4"},
        {"TextAfterTheNumber", u"Holiday.mov", "mp4", {"Holiday-2-final.mp4"}, u"Holiday-3.mp4"},
        {"LetterAfterTheNumber", u"Holiday.mov", "mp4", {"Holiday-2b.mp4"}, u"Holiday-3.mp4"},
        {"BlankAfterTheNumber", u"Holiday.mov", "mp4", {"Holiday-2 .mp4"}, u"Holiday-3.mp4"},
        {"LineBreakAfterTheNumber", u"Holiday.mov", "mp4", {"Holiday-2\n.mp4"}, u"Holiday-3.mp4"},
        {"FractionCountsUpToItsDot", u"Holiday.mov", "mp4", {"Holiday-2.5.mp4"}, u"Holiday-3.mp4"},
        {"ExponentCountsUpToItsLetter", u"Holiday.mov", "mp4", {"Holiday-2e3.mp4"}, u"Holiday-3.mp4"},
        {"HexadecimalCountsItsZero", u"Holiday.mov", "mp4", {"Holiday-0x10.mp4"}, u"Holiday-1.mp4"},
        {"GroupedDigitsCountUpToTheComma", u"Holiday.mov", "mp4", {"Holiday-2,345.mp4"}, u"Holiday-3.mp4"},
        {"MathematicalDigitEndsTheNumber", u"Holiday.mov", "mp4", {u8"Holiday-2\U0001D7D7.mp4"}, u"Holiday-3.mp4"},
        {"SuperscriptEndsTheNumber", u"Holiday.mov", "mp4", {u8"Holiday-2\u00B2.mp4"}, u"Holiday-3.mp4"},
        {"LowerCase", u"Holiday.mov", "mp4", {"holiday-5.mp4"}, u"Holiday-1.mp4"},
        {"UpperCase", u"Holiday.mov", "mp4", {"HOLIDAY-5.MP4"}, u"Holiday-1.mp4"},
        {"LowerCaseIsListedAndCountsByWhatFollows", u"Holiday.mov", "mp4", {"holiday-Holiday-5.mp4"}, u"Holiday-6.mp4"},
        {"FirstMatchInTheNameCounts", u"Holiday.mov", "mp4", {"Holiday-2.Holiday-9.mp4"}, u"Holiday-3.mp4"},
        {"LaterMatchCountsWhereTheFirstHasNoDigits", u"Holiday.mov", "mp4", {"Holiday-x-Holiday-9.mp4"}, u"Holiday-10.mp4"},
        {"OtherDigitsHideALaterMatch", u"Holiday.mov", "mp4", {u8"Holiday-\u0663-Holiday-9.mp4"}, u"Holiday-1.mp4"},
        {"TextBefore", u"Holiday.mov", "mp4", {"My Holiday-5.mp4"}, u"Holiday-1.mp4"},
        {"HiddenFile", u"Holiday.mov", "mp4", {".Holiday-5.mp4"}, u"Holiday-1.mp4"},
        {"LongerStem", u"Holiday.mov", "mp4", {"Holiday2-5.mp4"}, u"Holiday-1.mp4"},
        {"LongerStemWithADash", u"Holiday.mov", "mp4", {"Holiday-raw-5.mp4"}, u"Holiday-1.mp4"},
        {"TwoDashes", u"Holiday.mov", "mp4", {"Holiday--5.mp4"}, u"Holiday-1.mp4"},
        {"FreezeFrame", u"Holiday.mov", "mp4", {"Holiday (5).mp4"}, u"Holiday-1.mp4"},
        {"BytesThatAreNoText", u"Holiday.mov", "mp4", {"Holiday-5-\xFF.mp4"}, u"Holiday-1.mp4"},
        {"NameOf255Bytes", u"Holiday.mov", "mp4", {"Holiday-5." + std::string(245, 'x')}, u"Holiday-6.mp4"},
    }),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(Formats, Stabilized,
                         testing::ValuesIn(std::vector<Clip>{
                             {"UpperCaseIsKept", u"Holiday.mov", "MP4", {"Holiday-3.mp4"}, u"Holiday-4.MP4"},
                             {"Empty", u"Holiday.mov", "", {"Holiday-3.mp4"}, u"Holiday-4."},
                             {"LeadingDotIsDoubled", u"Holiday.mov", ".mp4", {"Holiday-3.mp4"}, u"Holiday-4..mp4"},
                             {"Separator", u"Holiday.mov", "a/b", {"Holiday-3.mp4"}, u"Holiday-4.a/b"},
                             {"NonAscii", u"Holiday.mov", u8"\u00C4\u0130", {"Holiday-3.mp4"}, u"Holiday-4.\u00C4\u0130"},
                             {"Wildcards", u"Holiday.mov", "[*?", {"Holiday-3.mp4"}, u"Holiday-4.[*?"},
                             {"PatternCharacters", u"Holiday.mov", "(\\|", {"Holiday-3.mp4"}, u"Holiday-4.(\\|"},
                             {"PercentSignsAreNoPlaceholders", u"Holiday.mov", "%1%2%3", {"Holiday-3.mp4"}, u"Holiday-4.%1%2%3"},
                         }),
                         byMeaning);

// The stem is at work both as a wildcard filter and as a pattern: a file counts where it passes the one as a whole and
// holds a match of the other.
INSTANTIATE_TEST_SUITE_P(PatternCharacters, Stabilized,
                         testing::ValuesIn(std::vector<Clip>{
                             {"BracketsGiveATakenName", u"Clip (1).mov", "mp4", {"Clip (1)-1.mp4"}, u"Clip (1)-1.mp4"},
                             {"BracketsFilterTheNameWithoutThem", u"Clip (1).mov", "mp4", {"Clip 1-7.mp4"}, u"Clip (1)-1.mp4"},
                             {"BracketsHoldTheNumberThatCounts", u"Clip (1).mov", "mp4", {"Clip (1)-Clip 1-7.mp4"}, u"Clip (1)-2.mp4"},
                             {"AlternativeLettersCountAsNone", u"(a|b).mov", "mp4", {"(a|b)-a-4.mp4"}, u"(a|b)-1.mp4"},
                             {"AlternativeDigitsCount", u"(7|8).mov", "mp4", {"(7|8)-8-3.mp4"}, u"(7|8)-9.mp4"},
                             {"FirstOfTwoGroupsCounts", u"(7)(8).mov", "mp4", {"(7)(8)-78-3.mp4"}, u"(7)(8)-8.mp4"},
                             {"GroupThatDoesNotCapture", u"(?:a).mov", "mp4", {"(?:a)-a-4.mp4"}, u"(?:a)-5.mp4"},
                             {"AlternativeWithoutTheNumber", u"a|b.mov", "mp4", {"a|b-4.mp4"}, u"a|b-1.mp4"},
                             {"AlternativeWithTheNumber", u"x|b.mov", "mp4", {"X|b-4.mp4"}, u"x|b-5.mp4"},
                             {"StarIsInvalidAtTheStart", u"*.mov", "mp4", {"*-4.mp4", "a-6.mp4"}, u"*-1.mp4"},
                             {"StarMatchesAllInTheFilterAndRepeatsInThePattern", u"a*.mov", "mp4", {"abc-4.mp4", "bc-6.mp4"}, u"a*-5.mp4"},
                             {"QuestionMarkMatchesOneInTheFilter", u"a?.mov", "mp4", {"ab-4.mp4", "a-6.mp4", "abc-8.mp4"}, u"a?-5.mp4"},
                             {"QuestionMarkIsInvalidAtTheStart", u"?.mov", "mp4", {"a-4.mp4"}, u"?-1.mp4"},
                             {"QuestionMarkMatchesASurrogatePair", u"a?.mov", "mp4", {u8"a\U0001F3AC-4.mp4"}, u"a?-5.mp4"},
                             {"TwoQuestionMarksAreInvalid", u"a?\?.mov", "mp4", {"abc-4.mp4"}, u"a?\?-1.mp4"},
                             {"SetMatchesInBoth", u"[ab].mov", "mp4", {"a-4.mp4", "b-6.mp4", "c-9.mp4"}, u"[ab]-7.mp4"},
                             {"SetDoesNotCountItself", u"[ab].mov", "mp4", {"[ab]-7.mp4"}, u"[ab]-1.mp4"},
                             {"SetInOtherCaseIsListedOnly", u"[ab].mov", "mp4", {"A-4.mp4"}, u"[ab]-1.mp4"},
                             {"ExcludingSet", u"[^a].mov", "mp4", {"a-4.mp4", "b-6.mp4"}, u"[^a]-7.mp4"},
                             {"ExcludingSetFindsNoHiddenFile", u"[^a]b.mov", "mp4", {".b-4.mp4"}, u"[^a]b-1.mp4"},
                             {"ExcludingSetOfTheFilterIncludesInThePattern", u"[!a].mov", "mp4", {"b-!-4.mp4", "a-9.mp4"}, u"[!a]-5.mp4"},
                             {"OpenSetIsInvalid", u"[ab.mov", "mp4", {"[ab-4.mp4"}, u"[ab-1.mp4"},
                             {"ClosedSetAloneIsInvalid", u"a].mov", "mp4", {"a]-4.mp4"}, u"a]-1.mp4"},
                             {"OpenGroupIsInvalid", u"a(.mov", "mp4", {"a(-4.mp4"}, u"a(-1.mp4"},
                             {"ClosedGroupAloneIsInvalid", u"a).mov", "mp4", {"a)-4.mp4"}, u"a)-1.mp4"},
                             {"OpenRepetitionIsInvalid", u"a{.mov", "mp4", {"a{-4.mp4"}, u"a{-1.mp4"},
                             {"PlusDoesNotCountItself", u"a+.mov", "mp4", {"a+-4.mp4"}, u"a+-1.mp4"},
                             {"PlusRepeats", u"a+.mov", "mp4", {"a+-aa-4.mp4"}, u"a+-5.mp4"},
                             {"RepetitionRepeats", u"a{2}.mov", "mp4", {"a{2}-aa-4.mp4"}, u"a{2}-5.mp4"},
                             {"StartAnchorHolds", u"^a.mov", "mp4", {"^a-4.mp4"}, u"^a-1.mp4"},
                             {"EndAnchorHolds", u"a$.mov", "mp4", {"a$-4.mp4"}, u"a$-1.mp4"},
                             {"BackslashIsAClassInThePattern", u"\\d.mov", "mp4", {"\\d-4.mp4", "\\d-3-6.mp4"}, u"\\d-7.mp4"},
                             {"BackslashBeforeTheDashIsADash", u"a\\.mov", "mp4", {"a\\-4.mp4", "a\\-a-6.mp4"}, u"a\\-7.mp4"},
                         }),
                         byMeaning);

// --- Silence -----------------------------------------------------------------------------------------------------------

std::vector<std::string> messages;

// What Qt reports while `work` runs.
std::vector<std::string> messagesOfQt(std::function<void()> const& work)
{
    messages.clear();
    QtMessageHandler const earlier = qInstallMessageHandler(
        [](QtMsgType, QMessageLogContext const&, QString const& message) { messages.push_back(message.toStdString()); });
    work();
    qInstallMessageHandler(earlier);
    return messages;
}

TEST_F(Folder, NothingIsPrintedAndNothingThrown)
{
    put(Files{"Rec-5-\xFF-b.wav", "Holiday (99999999999).png", "Holiday-99999999999.mp4", "%1 (1).png"});
    makeLink(m_folder / "Holiday-4.mp4", "nothing");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    auto const work = [&] {
        for (std::string const& folder : {m_folder.string(), (m_home.path() / "missing").string(), (m_folder / "%1 (1).png").string()}) {
            for (Generator const& generator : generators)
                keep(generator.folderKey, folder);
            for (char const* const name :
                 {"", "Holiday", "(", ")", "*", "?", "+", "%", "%1", "%2", "%3", "%%1", "%99%1%2", "\\", "a{", "\n"}) {
                keep("freezedFileFormat", name);
                keep("audioRecordFormat", name);
                EXPECT_NO_THROW(Settings::generateAudioRecordFilePath());
                EXPECT_NO_THROW(Settings::generateFreezedFilePath(utf8(name)));
                EXPECT_NO_THROW(Settings::generateStabilizedFilePath(utf8(name), utf8(name)));
            }
        }
    };
    EXPECT_EQ(messagesOfQt(work), std::vector<std::string>{});
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

// Qt itself complains of a set without end, for every name with a number that it compares with the filter.
TEST_F(Folder, OpenSetIsReportedByQt)
{
    put(Files{"a-1.png", "b (2).png"});
    // Qt 6 adds the pattern.
    std::string const complaint = "QRegularExpressionPrivate::doMatch(): called on an invalid QRegularExpression object";
    auto const beginnings = [&](std::vector<std::string> const& all) {
        std::set<std::string> result;
        for (std::string const& message : all)
            result.insert(message.substr(0, complaint.size()));
        return result;
    };
    std::set<std::string> const expected = {complaint};
    EXPECT_EQ(beginnings(messagesOfQt([] { Settings::generateStabilizedFilePath(QStringLiteral("[ab.mov"), QString()); })), expected);
    keep("freezedFileFormat", "[");
    EXPECT_EQ(beginnings(messagesOfQt([] { Settings::generateFreezedFilePath(QString()); })), expected);
}

} // namespace
