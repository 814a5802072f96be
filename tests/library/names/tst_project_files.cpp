// SPDX-License-Identifier: MIT
#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/Process.h>

#include <QCoreApplication>
#include <QTranslator>

#include <clocale>
#include <optional>
#include <type_traits>

#include <sys/stat.h>

static_assert(std::is_same_v<decltype(&Settings::projectNameDefault), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::supportedProjectFileExtensions), QStringList (*)()>);
static_assert(std::is_same_v<decltype(&Settings::projectFileExtension), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::projectFileSaveFilter), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::projectFileOpenFilter), QString (*)()>);
static_assert(std::is_same_v<decltype(&Settings::sampleProjectPath), QString (*)()>);

namespace {

// --- Extensions and filters ---

struct Extensions {
    char const* meaning;
    std::string text;
    QStringList list;
    QString toSave;
    QString saveFilter;
    QString openFilter;
};

class ProjectExtensions : public BoundLibrary, public testing::WithParamInterface<Extensions> {
protected:
    ProjectExtensions() { m_product->extensions = GetParam().text; }
};

TEST_P(ProjectExtensions, AreTakenAsTheProductGivesThem)
{
    EXPECT_EQ(Settings::supportedProjectFileExtensions(), GetParam().list);
    EXPECT_EQ(calls(), Calls{"productInfo.projectFileExtensions()"});
    EXPECT_EQ(Settings::projectFileExtension(), GetParam().toSave);
    EXPECT_FALSE(Settings::projectFileExtension().isNull()) << "empty where there is none";
    EXPECT_EQ(calls(), Calls(2, "productInfo.projectFileExtensions()"));
}

TEST_P(ProjectExtensions, MakeTheFilters)
{
    EXPECT_EQ(Settings::projectFileSaveFilter(), GetParam().saveFilter);
    EXPECT_EQ(calls(), Calls{"productInfo.projectFileExtensions()"});
    EXPECT_EQ(Settings::projectFileOpenFilter(), GetParam().openFilter);
    EXPECT_EQ(calls(), Calls{"productInfo.projectFileExtensions()"});
}

QString text(char16_t const* text) { return QString::fromUtf16(text); }

INSTANTIATE_TEST_SUITE_P(
    Table, ProjectExtensions,
    testing::Values(
        Extensions{"Two", "ext1,ext2", {text(u"ext1"), text(u"ext2")}, text(u"ext1"), text(u"*.ext1"), text(u"*.ext1 *.ext2")},
        Extensions{"InTheOrderOfTheProduct", "z,a,m", {text(u"z"), text(u"a"), text(u"m")}, text(u"z"), text(u"*.z"), text(u"*.z *.a *.m")},
        Extensions{"One", "ext1", {text(u"ext1")}, text(u"ext1"), text(u"*.ext1"), text(u"*.ext1")},
        Extensions{"Twice", "a,a", {text(u"a"), text(u"a")}, text(u"a"), text(u"*.a"), text(u"*.a *.a")},
        Extensions{"EmptyAtBothEnds", ",ext2,", {text(u"ext2")}, text(u"ext2"), text(u"*.ext2"), text(u"*.ext2")},
        Extensions{"EmptyBetween", "a,,b,", {text(u"a"), text(u"b")}, text(u"a"), text(u"*.a"), text(u"*.a *.b")},
        Extensions{"None", "", {}, text(u""), text(u"*."), text(u"*.")},
        Extensions{"CommasOnly", ",,,", {}, text(u""), text(u"*."), text(u"*.")},
        Extensions{"Case", "Ext1,EXT2", {text(u"Ext1"), text(u"EXT2")}, text(u"Ext1"), text(u"*.Ext1"), text(u"*.Ext1 *.EXT2")},
        Extensions{
            "BlankAfterAComma", "ext1, ext2", {text(u"ext1"), text(u" ext2")}, text(u"ext1"), text(u"*.ext1"), text(u"*.ext1 *. ext2")},
        Extensions{"BlanksOnly", " ,  ", {text(u" "), text(u"  ")}, text(u" "), text(u"*. "), text(u"*.  *.  ")},
        Extensions{"DotBefore", ".ext1,a.b", {text(u".ext1"), text(u"a.b")}, text(u".ext1"), text(u"*..ext1"), text(u"*..ext1 *.a.b")},
        Extensions{"Placeholders", "%1,%2 %1", {text(u"%1"), text(u"%2 %1")}, text(u"%1"), text(u"*.%1"), text(u"*.%1 *.%2 %1")},
        Extensions{"Wildcards", "*,[a]?", {text(u"*"), text(u"[a]?")}, text(u"*"), text(u"*.*"), text(u"*.* *.[a]?")},
        Extensions{"OtherSeparators", "a;b c|d", {text(u"a;b c|d")}, text(u"a;b c|d"), text(u"*.a;b c|d"), text(u"*.a;b c|d")},
        Extensions{"LineBreak", "a\n,b", {text(u"a\n"), text(u"b")}, text(u"a\n"), text(u"*.a\n"), text(u"*.a\n *.b")},
        Extensions{"NotAscii",
                   "\xC3\xA9xt,\xF0\x9F\x8E\xAC",
                   {text(u"\u00E9xt"), text(u"\U0001F3AC")},
                   text(u"\u00E9xt"),
                   text(u"*.\u00E9xt"),
                   text(u"*.\u00E9xt *.\U0001F3AC")},
        // Only the comma of ASCII separates.
        Extensions{"FullWidthComma",
                   "a\xEF\xBC\x8C"
                   "b",
                   {text(u"a\uFF0Cb")},
                   text(u"a\uFF0Cb"),
                   text(u"*.a\uFF0Cb"),
                   text(u"*.a\uFF0Cb")},
        Extensions{"NotUtf8", "a\xFF,b", {text(u"a\uFFFD"), text(u"b")}, text(u"a\uFFFD"), text(u"*.a\uFFFD"), text(u"*.a\uFFFD *.b")},
        Extensions{"EmbeddedNul",
                   std::string("a\0b,c", 5),
                   {QStringLiteral("a\0b"), text(u"c")},
                   QStringLiteral("a\0b"),
                   QStringLiteral("*.a\0b"),
                   QStringLiteral("*.a\0b *.c")}),
    byMeaning);

class ProjectFiles : public BoundLibrary {};

TEST_F(ProjectFiles, ExtensionsAreAskedForAtEachCall)
{
    EXPECT_EQ(Settings::projectFileExtension(), text(u"ext1"));
    m_product->extensions = "other";
    EXPECT_EQ(Settings::projectFileExtension(), text(u"other"));
    EXPECT_EQ(Settings::projectFileOpenFilter(), text(u"*.other"));
    EXPECT_EQ(Settings::projectFileSaveFilter(), text(u"*.other"));
    EXPECT_EQ(Settings::supportedProjectFileExtensions(), QStringList(text(u"other")));
}

// --- The name of a new project ---

struct Translation {
    std::string context;
    std::string source;
    std::string disambiguation;
    int number;
    bool operator==(Translation const& other) const
    {
        return context == other.context && source == other.source && disambiguation == other.disambiguation && number == other.number;
    }
};

void PrintTo(Translation const& translation, std::ostream* stream)
{
    *stream << translation.context << ", " << translation.source << ", " << translation.disambiguation << ", " << translation.number;
}

/// A language whose every text is `text`, and which keeps what it was asked.
class Language final : public QTranslator {
public:
    explicit Language(QString text) : m_text(std::move(text)) { QCoreApplication::installTranslator(this); }

    QString translate(char const* context, char const* source, char const* disambiguation, int number) const override
    {
        asked.push_back({context, source, disambiguation ? disambiguation : "(null)", number});
        return m_text;
    }
    bool isEmpty() const override { return false; }

    mutable std::vector<Translation> asked;

private:
    QString m_text;
};

class NewProject : public BoundLibrary {
private:
    int m_argumentCount = 1;
    char m_program[5] = "test";
    char* m_arguments[2] = {m_program, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

TEST_F(ProjectFiles, NewProjectHasItsEnglishNameWithoutAnApplication)
{
    ASSERT_FALSE(QCoreApplication::instance());
    EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project"));
    EXPECT_EQ(calls(), Calls{});
    Settings::init({});
    EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project")) << "no collaborator is needed";
}

TEST_F(NewProject, HasItsEnglishNameWithoutATranslation) { EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project")); }

TEST_F(NewProject, IsAskedForInTheContextOfQObject)
{
    Language const german(text(u"Neues Projekt"));
    Settings::projectNameDefault();
    EXPECT_EQ(german.asked, (std::vector<Translation>{{"QObject", "New Project", "(null)", -1}}));
}

TEST_F(NewProject, ChangesItsNameWithTheLanguage)
{
    EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project"));
    {
        Language const german(text(u"Neues Projekt"));
        EXPECT_EQ(Settings::projectNameDefault(), text(u"Neues Projekt"));
        Language const french(text(u"Nouveau projet \u00E9t\u00E9"));
        EXPECT_EQ(Settings::projectNameDefault(), text(u"Nouveau projet \u00E9t\u00E9")) << "the last one installed comes first";
        EXPECT_EQ(german.asked.size(), 1u);
    }
    EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project"));
}

TEST_F(NewProject, FallsBackWhereALanguageHasNoTranslation)
{
    {
        Language const silent{QString()};
        EXPECT_EQ(Settings::projectNameDefault(), text(u"New Project"));
        EXPECT_EQ(silent.asked.size(), 1u);
    }
    Language const german(text(u"%n Neues %1"));
    Language const silent{QString()};
    EXPECT_EQ(Settings::projectNameDefault(), text(u"%n Neues %1")) << "no number and no argument is put in";
}

// --- Sample projects ---

/// What lies below the folder of sample projects.
struct Entry {
    enum class Kind { file, folder, link, pipe };
    Kind kind;
    std::string path;
    std::string target; // of a link
};

Entry file(std::string path) { return {Entry::Kind::file, std::move(path), {}}; }
Entry folder(std::string path) { return {Entry::Kind::folder, std::move(path), {}}; }
Entry link(std::string path, std::string target) { return {Entry::Kind::link, std::move(path), std::move(target)}; }
Entry pipe(std::string path) { return {Entry::Kind::pipe, std::move(path), {}}; }

class SampleProjects : public BoundLibrary {
protected:
    SampleProjects()
    {
        // Names of files are decoded as the locale says. Without one, those outside ASCII could not be told.
        ::setenv("LC_ALL", "C.UTF-8", 1);
        std::setlocale(LC_ALL, "");
        bindRoot(m_home.path().string());
    }

    static void bindRoot(std::string const& root)
    {
        SettingsContext context = s_instance;
        context.resourcesRoot = Lumora::ioPath(root);
        Settings::init(context);
    }

    std::filesystem::path folderOfSamples() const { return m_home.path() / "resources/samples/stock/projects"; }

    void make(Entry const& entry) const
    {
        std::filesystem::path const path = folderOfSamples() / entry.path;
        std::filesystem::create_directories(path.parent_path());
        switch (entry.kind) {
        case Entry::Kind::file:
            m_home.write(path, "a project");
            break;
        case Entry::Kind::folder:
            std::filesystem::create_directory(path);
            break;
        case Entry::Kind::link:
            std::filesystem::create_symlink(entry.target, path);
            break;
        case Entry::Kind::pipe:
            ASSERT_EQ(::mkfifo(path.c_str(), 0644), 0) << path;
            break;
        }
    }

    /// The path below the folder of sample projects; "null" for none.
    std::string found() const
    {
        QString const path = Settings::sampleProjectPath();
        if (path.isNull())
            return "null";
        std::string const text = path.toStdString();
        std::string const prefix = folderOfSamples().string() + '/';
        return text.compare(0, prefix.size(), prefix) == 0 ? text.substr(prefix.size()) : "elsewhere: " + text;
    }
};

struct Tree {
    char const* meaning;
    std::string extensions;
    std::vector<Entry> entries;
    std::string found;
    std::string control; // a file that is found where no other matches
};

class SampleProject : public SampleProjects, public testing::WithParamInterface<Tree> {};

TEST_P(SampleProject, IsTheFileThatMatches)
{
    m_product->extensions = GetParam().extensions;
    std::filesystem::create_directories(folderOfSamples());
    for (Entry const& entry : GetParam().entries)
        make(entry);
    EXPECT_EQ(found(), GetParam().found);
    if (GetParam().found != "null")
        return;
    make(file(GetParam().control));
    EXPECT_EQ(found(), GetParam().control) << "the folder was searched";
}

std::string repeated(char const* text, int count)
{
    std::string result;
    for (int round = 0; round < count; ++round)
        result += text;
    return result;
}

std::string const none = "null";
std::string const control = "control/sample.ext1";

INSTANTIATE_TEST_SUITE_P(
    Kinds, SampleProject,
    testing::Values(
        Tree{"InTheFolderItself", "ext1,ext2", {file("demo.ext1")}, "demo.ext1", {}},
        Tree{"InASubFolderOnly", "ext1,ext2", {folder("a"), file("b/c/demo.ext1")}, "b/c/demo.ext1", {}},
        Tree{"InADeepFolder", "ext1,ext2", {file(repeated("folder/", 100) + "demo.ext1")}, repeated("folder/", 100) + "demo.ext1", {}},
        Tree{"Nothing", "ext1,ext2", {}, none, control}, Tree{"EmptyFolders", "ext1,ext2", {folder("a"), folder("b")}, none, control},
        Tree{"FolderNamedAsAProject", "ext1,ext2", {folder("x.ext1")}, none, control},
        Tree{"InAFolderNamedAsAProject", "ext1,ext2", {file("x.ext1/y.ext2")}, "x.ext1/y.ext2", {}},
        Tree{"HiddenFile", "ext1,ext2", {file(".hidden.ext1"), file(".ext1")}, none, control},
        Tree{"InAHiddenFolder", "ext1,ext2", {file(".hidden/demo.ext1")}, none, control},
        Tree{"InAFolderBelowAHiddenOne", "ext1,ext2", {file("a/.hidden/b/demo.ext1")}, none, control},
        Tree{"LinkToAProject", "ext1,ext2", {file("real.other"), link("link.ext1", "real.other")}, none, control},
        Tree{"LinkToAHiddenProject", "ext1,ext2", {file(".real.ext1"), link("link.ext1", ".real.ext1")}, none, control},
        Tree{"LinkToAProjectElsewhere", "ext1,ext2", {file("../elsewhere.ext1"), link("link.ext1", "../elsewhere.ext1")}, none, control},
        Tree{"BrokenLink", "ext1,ext2", {link("link.ext1", "missing.ext1")}, none, control},
        Tree{"LinkToItself", "ext1,ext2", {link("link.ext1", "link.ext1")}, none, control},
        Tree{"LinkToAFolder", "ext1,ext2", {file("../elsewhere/demo.ext1"), link("link", "../elsewhere")}, none, control},
        Tree{"LinkToTheFolderAbove", "ext1,ext2", {folder("a"), link("a/link", "..")}, none, control},
        Tree{"NamedPipe", "ext1,ext2", {pipe("pipe.ext1")}, none, control}),
    byMeaning);

INSTANTIATE_TEST_SUITE_P(Names, SampleProject,
                         testing::Values(Tree{"SecondExtension", "ext1,ext2", {file("demo.ext1.bak"), file("demo.ext2")}, "demo.ext2", {}},
                                         Tree{"CaseOfTheFile", "ext1,ext2", {file("A.EXT1")}, "A.EXT1", {}},
                                         Tree{"CaseOfTheProduct", "eXT1", {file("demo.Ext1")}, "demo.Ext1", {}},
                                         Tree{"CaseOutsideAscii", "\xC3\xA9xt", {file("demo.\xC3\x89XT")}, "demo.\xC3\x89XT", {}},
                                         Tree{"SeveralDots", "ext1,ext2", {file("demo.old.ext1")}, "demo.old.ext1", {}},
                                         Tree{"NearMisses",
                                              "ext1,ext2",
                                              {file("demo.ext1.bak"), file("demo.ext12"), file("demo.ext"), file("demoext1"), file("ext1"),
                                               file("demo.xext1"), file("demo.ext1 "), file("demo.ext1\n"), file("demo.ext1.")},
                                              none,
                                              control},
                                         Tree{"LastExtensionOfTwo", "a.b", {file("demo.b"), file("demo.a.b")}, "demo.a.b", {}},
                                         Tree{"BlanksAndBreaks", "ext1,ext2", {file("my  demo\n.ext1")}, "my  demo\n.ext1", {}},
                                         Tree{"PatternCharacters", "ext1,ext2", {file("[x](y)*?\\.ext1")}, "[x](y)*?\\.ext1", {}},
                                         Tree{"NotAscii",
                                              "ext1,ext2",
                                              {file("\xC3\xBC/gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC.ext1")},
                                              "\xC3\xBC/gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC.ext1",
                                              {}},
                                         Tree{"LongestNames",
                                              "ext1,ext2",
                                              {file(std::string(255, 'f') + '/' + std::string(250, 'x') + ".ext1")},
                                              std::string(255, 'f') + '/' + std::string(250, 'x') + ".ext1",
                                              {}},
                                         // Qt leaves out what it cannot decode, with all that lies below.
                                         Tree{"FileThatIsNotUtf8", "ext1,ext2", {file("demo\xFF.ext1")}, none, control},
                                         Tree{"InAFolderThatIsNotUtf8", "ext1,ext2", {file("folder\xFF/demo.ext1")}, none, control}),
                         byMeaning);

// What the open filter is split into decides, whatever the extensions were meant to be.
INSTANTIATE_TEST_SUITE_P(
    Filters, SampleProject,
    testing::Values(
        Tree{"NoExtensionLeavesOutProjects", "", {file("demo.ext1"), file("demo"), file("demo.ext1. ")}, none, "control/sample."},
        Tree{"CommasOnlyLeaveOutProjects", ",,", {file("demo.ext1"), file("demo")}, none, "control/sample."},
        // "*.ext1", "*." and "ext2"
        Tree{"BlankAfterACommaTakesTheFirst", "ext1, ext2", {file("demo.ext1")}, "demo.ext1", {}},
        Tree{"BlankAfterACommaTakesADotAtTheEnd", "ext1, ext2", {file("demo.")}, "demo.", {}},
        Tree{"BlankAfterACommaTakesTheBareWord", "ext1, ext2", {file("EXT2")}, "EXT2", {}},
        Tree{"BlankAfterACommaLeavesOutTheSecond", "ext1, ext2", {file("demo.ext2"), file("demo. ext2"), file(" ext2")}, none, control},
        // "*.ext1", "*.", "" and "ext2"; no name is empty.
        Tree{"TwoBlanksTakeTheBareWord", "ext1,  ext2", {file("ext2")}, "ext2", {}},
        Tree{"TwoBlanksTakeNothingMore",
             "ext1,  ext2",
             {file("demo.ext2"), file("demo.  ext2"), file("demo"), file("  ext2")},
             none,
             control},
        // "*.ext1", "*." and "*", which takes everything.
        Tree{"LoneAsteriskTakesAnyFile", "ext1, *", {file("anything")}, "anything", {}},
        Tree{
            "LoneAsteriskLeavesOutHiddenFilesAndLinks", "ext1, *", {file(".hidden"), link("link", ".hidden"), pipe("pipe")}, none, control},
        Tree{"AsteriskTakesAnyExtension", "*", {file("plain"), file("demo.any")}, "demo.any", {}},
        Tree{"QuestionMarkTakesOneCharacter", "ext?", {file("demo.ext"), file("demo.ext12"), file("demo.extX")}, "demo.extX", {}},
        Tree{"BracketsTakeOneOfASet", "[ab]", {file("demo.c"), file("demo.ab"), file("demo.B")}, "demo.B", {}},
        Tree{"ParenthesesAndDotsStandForThemselves",
             "e(x).t+",
             {file("demo.extt"), file("demo.ex.t"), file("demo.e(x).t+")},
             "demo.e(x).t+",
             {}},
        // Not a pattern, which Qt says on standard error, and no name matches it.
        Tree{"OpenBracketTakesNothing", "ext[,ext1", {file("demo.ext["), file("demo.ext")}, none, control},
        Tree{"SlashTakesNothing", "a/b,ext1", {file("demo.a/b"), file("a/b")}, none, control},
        Tree{"Placeholder", "%1", {file("demo.ext1"), file("demo.%1")}, "demo.%1", {}}),
    byMeaning);

TEST_F(SampleProjects, ProductIsAskedOnceAndNoStore)
{
    EXPECT_EQ(found(), "null");
    EXPECT_EQ(calls(), Calls{"productInfo.projectFileExtensions()"});
    make(file("demo.ext1"));
    EXPECT_EQ(found(), "demo.ext1");
    EXPECT_EQ(calls(), Calls{"productInfo.projectFileExtensions()"});
}

TEST_F(SampleProjects, FolderIsSearchedAtEachCall)
{
    make(file("demo.ext1"));
    EXPECT_EQ(found(), "demo.ext1");
    std::filesystem::remove(folderOfSamples() / "demo.ext1");
    EXPECT_EQ(found(), "null");
    make(file("other.ext2"));
    EXPECT_EQ(found(), "other.ext2");
}

TEST_F(SampleProjects, FirstOfSeveralIsTakenInTheOrderOfTheFileSystem)
{
    for (char name = 'a'; name <= 'z'; ++name) {
        make(file(std::string(1, name) + ".other"));
        make(file(std::string(1, name) + ".ext1"));
    }
    std::vector<std::string> matches;
    for (auto const& entry : std::filesystem::directory_iterator(folderOfSamples()))
        if (entry.path().extension() == ".ext1")
            matches.push_back(entry.path().filename().string());
    ASSERT_EQ(matches.size(), 26u);
    EXPECT_EQ(found(), matches.front());
}

TEST_F(SampleProjects, OneOfSeveralIsTaken)
{
    std::vector<std::string> const names{"a.ext1", "z.ext2", "b/m.ext1", "b/c/a.ext2"};
    for (std::string const& name : names)
        make(file(name));
    EXPECT_EQ(std::count(names.begin(), names.end(), found()), 1) << found();
}

TEST_F(SampleProjects, MissingFolderHoldsNone)
{
    EXPECT_EQ(found(), "null");
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "resources")) << "nothing is created";
}

TEST_F(SampleProjects, FileInPlaceOfTheFolderHoldsNone)
{
    m_home.write("resources/samples/stock/projects", "not a folder");
    EXPECT_EQ(found(), "null");
}

TEST_F(SampleProjects, FolderItselfMayBeALink)
{
    m_home.write("elsewhere/sub/demo.ext1", "");
    std::filesystem::create_directories(folderOfSamples().parent_path());
    std::filesystem::create_directory_symlink(m_home.path() / "elsewhere", folderOfSamples());
    EXPECT_EQ(found(), "sub/demo.ext1") << "only links below it are left out, and it is not resolved";
}

TEST_F(SampleProjects, FolderThatCannotBeReadHoldsNone)
{
    namespace fs = std::filesystem;
    fs::permissions(m_home.path(), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    make(file("closed/demo.ext1"));
    EXPECT_EQ(inChild([&] { return found(); }, true), "closed/demo.ext1");
    fs::permissions(folderOfSamples() / "closed", fs::perms::none);
    EXPECT_EQ(inChild([&] { return found(); }, true), "null");
    make(file("open/demo.ext1"));
    EXPECT_EQ(inChild([&] { return found(); }, true), "open/demo.ext1") << "the search goes on beside it";
    fs::permissions(folderOfSamples(), fs::perms::none);
    EXPECT_EQ(inChild([&] { return found(); }, true), "null");
    fs::permissions(folderOfSamples(), fs::perms::owner_all);
    fs::permissions(folderOfSamples() / "closed", fs::perms::owner_all);
}

TEST_F(SampleProjects, ProjectThatCannotBeReadIsFound)
{
    namespace fs = std::filesystem;
    fs::permissions(m_home.path(), fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
    make(file("demo.ext1"));
    fs::permissions(folderOfSamples() / "demo.ext1", fs::perms::none);
    EXPECT_EQ(inChild([&] { return found(); }, true), "demo.ext1");
}

TEST_F(SampleProjects, PathKeepsTheFormOfTheRoot)
{
    namespace fs = std::filesystem;
    make(file("sub/demo.ext1"));
    fs::create_directory_symlink(m_home.path(), m_home.path() / "link");
    fs::create_directory(m_home.path() / "a");
    std::string const home = m_home.path().string();
    std::string const below = "/resources/samples/stock/projects/sub/demo.ext1";
    for (std::string const& root : {home, home + '/', home + "//", home + "/./a/..", home + "/link", '/' + home}) {
        bindRoot(root);
        EXPECT_EQ(Settings::sampleProjectPath(), QString::fromStdString(root + below));
    }
    bindRoot(home + std::string("\0/nowhere", 9));
    // Qt searches a folder with a NUL in its name for ever, so look at the name before.
    ASSERT_EQ(stockSampleProjectsPath(), inHome("resources/samples/stock/projects"));
    EXPECT_EQ(Settings::sampleProjectPath(), QString::fromStdString(home + below)) << "the root counts up to its first NUL";

    fs::path const earlier = fs::current_path();
    fs::current_path(m_home.path() / "a");
    bindRoot("..");
    EXPECT_EQ(Settings::sampleProjectPath(), text(u"../resources/samples/stock/projects/sub/demo.ext1"));
    fs::current_path(earlier);
}

TEST_F(SampleProjects, RootMayHoldCharactersOutsideAscii)
{
    m_home.write("gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC/resources/samples/stock/projects/demo.ext1", "");
    bindRoot(m_home.path().string() + "/gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC");
    EXPECT_EQ(Settings::sampleProjectPath(), inHome("gr\xC3\xBC\xC3\x9F \xF0\x9F\x8E\xAC/resources/samples/stock/projects/demo.ext1"));
}

TEST_F(SampleProjects, RootMayLieInAHiddenFolder)
{
    m_home.write(".hidden/resources/samples/stock/projects/sub/demo.ext1", "");
    bindRoot(m_home.path().string() + "/.hidden");
    EXPECT_EQ(Settings::sampleProjectPath(), inHome(".hidden/resources/samples/stock/projects/sub/demo.ext1"));
}

TEST_F(SampleProjects, RootThatIsNotUtf8CannotBeSearched)
{
    m_home.write("r\xFF/resources/samples/stock/projects/demo.ext1", "");
    bindRoot(m_home.path().string() + "/r\xFF");
    EXPECT_TRUE(Settings::sampleProjectPath().isNull());
    m_home.write("r\xEF\xBF\xBD/resources/samples/stock/projects/demo.ext1", "");
    EXPECT_EQ(Settings::sampleProjectPath(), inHome("r\xEF\xBF\xBD/resources/samples/stock/projects/demo.ext1"))
        << "the folder is named with a replacement character, and so looked up";
}

} // namespace
