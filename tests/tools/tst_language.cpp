// SPDX-License-Identifier: MIT
//
// The program in the languages of its users: what is translated, what is not, and what chooses the language.
#include "OnTerminal.h"

#include <support/Named.h>

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QXmlStreamReader>

#include <algorithm>

namespace {

using Words = std::vector<std::string>;
using Environment = std::map<std::string, std::string>;

Environment const german = {{"LC_ALL", "de_DE.UTF-8"}};

class InGerman : public Tool {
protected:
    std::string saidInGerman(Words const& words)
    {
        Ended const ended = tool(words, german);
        EXPECT_EQ(ended.status, 0) << ended.err;
        return ended.out;
    }

    std::string toldInGerman(Words const& words) { return tool(words, german).err; }
};

bool holdsLine(std::string const& text, std::string const& line)
{
    std::vector<std::string> const all = lines(text);
    return std::find(all.begin(), all.end(), line) != all.end();
}

// --- Kinds of texts ---

TEST_F(InGerman, HelpIsTranslatedButForTheWordsThatAreTyped)
{
    std::string const help = saidInGerman({"set", "--help"});
    for (char const* line :
         {"Speichert einen Wert", "Aufruf: editor-settings set [OPTIONEN] KEY [VALUE...]",
          "Argumente:", "  KEY TEXT ERFORDERLICH       Die Einstellung", "Optionen:", "  -h,--help                   Zeigt diese Hilfe",
          "Beispiele:", "  editor-settings set keepVideoAspect no", "      Speichert false."})
        EXPECT_TRUE(holdsLine(help, line)) << line << '\n' << help;
    EXPECT_TRUE(holdsLine(saidInGerman({"--help"}), "Unterbefehle:"));
    EXPECT_TRUE(holdsLine(saidInGerman({"--help"}), "R\xC3\xBC"
                                                    "ckgabewert:"));
}

TEST_F(InGerman, ReasonHoldsTheWordsOfTheUserAsTheyAre)
{
    EXPECT_EQ(toldInGerman({"get", "exportPat"}),
              "editor-settings: es gibt keine Einstellung 'exportPat'; meinten Sie exportPath? 'editor-settings list' zeigt alle\n");
    EXPECT_EQ(toldInGerman({"get", "%2%n100%1"}),
              "editor-settings: es gibt keine Einstellung '%2%n100%1'; 'editor-settings list' zeigt alle\n");
    EXPECT_EQ(toldInGerman({"get", "\xE9t\xE9"}),
              "editor-settings: es gibt keine Einstellung '\\xe9t\\xe9'; 'editor-settings list' zeigt alle\n");
}

TEST_F(InGerman, WrongUsageIsToldWithAdvice)
{
    EXPECT_EQ(lines(toldInGerman({})).front(), "editor-settings: Ein Befehl fehlt");
    EXPECT_EQ(toldInGerman({"list", "--stor"}),
              "editor-settings: Dieses Argument wird nicht erwartet: --stor\nMeinten Sie --store?\nMehr dazu mit --help.\n");
    EXPECT_EQ(lines(toldInGerman({"get"})).front(), "editor-settings: KEY fehlt");
    EXPECT_EQ(lines(toldInGerman({"set", "a", "b", "--empty"})).front(), "editor-settings: VALUE schlie\xC3\x9Ft --empty aus");
    EXPECT_EQ(lines(toldInGerman({"list", "--color"})).front(),
              "editor-settings: --color: 1-mal WHEN:{auto,always,never} erforderlich, aber nicht angegeben");
    EXPECT_EQ(lines(toldInGerman({"list", "--store", "third"})).front(), "editor-settings: --store: third ist keines von {product,common}");
}

TEST_F(InGerman, ReasonsOfTheParserKeepTheirWordsInEnglish)
{
    EXPECT_EQ(lines(refused({"list", "--color"}, 2)).front(), "editor-settings: --color: 1 required WHEN:{auto,always,never} missing");
    EXPECT_EQ(lines(refused({"set", "a", "b", "--empty"}, 2)).front(), "editor-settings: VALUE excludes --empty");
    EXPECT_EQ(lines(refused({"list", "--set=x"}, 2)).front(), "editor-settings: Could not convert: --set = x");
}

TEST_F(InGerman, DoctorTellsItsFindings)
{
    std::string const told = saidInGerman({"doctor"});
    EXPECT_TRUE(holdsLine(told, "Hinweis\t" + commonFile())) << told;
    EXPECT_TRUE(holdsLine(told, "\tdort ist noch nichts gespeichert"));
    EXPECT_TRUE(holdsLine(told, "alles ist in Ordnung"));
}

TEST_F(InGerman, TableHasItsHeadingAndItsStates)
{
    said({"set", "npsSendCount", "7"});
    EXPECT_EQ(saidInGerman({"list", "--set"}), "SCHL\xC3\x9CSSEL\tTYP\tSPEICHER\tZUSTAND\tWERT\n"
                                               "npsSendCount\tint\tproduct\tgesetzt\t7\n");
}

TEST_F(InGerman, StateKeepsItsColour)
{
    said({"set", "npsSendCount", "7"});
    EXPECT_NE(saidInGerman({"--color", "always", "list", "npsSendCount"}).find("\x1b[32mgesetzt\x1b[0m"), std::string::npos);
}

TEST_F(InGerman, OneIsToldOtherwiseThanSeveral)
{
    said({"set", "autoUpdate", "no"});
    said({"set", "npsSendCount", "7"});
    EXPECT_EQ(toldInGerman({"backup", inHome("one")}), "editor-settings: der Speicher common ist mit 1 Wert gesichert\n"
                                                       "editor-settings: der Speicher product ist mit 1 Wert gesichert\n");
    said({"set", "keepVideoAspect", "no"});
    EXPECT_EQ(toldInGerman({"backup", inHome("two")}), "editor-settings: der Speicher common ist mit 1 Wert gesichert\n"
                                                       "editor-settings: der Speicher product ist mit 2 Werten gesichert\n");
}

TEST_F(InGerman, LibraryAnswersWithItsTranslation)
{
    EXPECT_EQ(lines(saidInGerman({"project", "--plain"})).front(), "default name\tNeues Projekt");
    EXPECT_EQ(lines(tool({"project"}, {{"LC_ALL", "de_DE.ISO-8859-1"}}).out).front(), "default name\tNeues Projekt");
}

// --- What is the same in every language ---

struct Asked {
    char const* meaning;
    Words words;
};

class SameForAll : public InGerman, public testing::WithParamInterface<Asked> {};

TEST_P(SameForAll, AnswerAndReasonAreEnglish)
{
    said({"set", "npsSendCount", "7"});
    Ended const english = tool(GetParam().words);
    Ended const ended = tool(GetParam().words, german);
    EXPECT_EQ(ended.status, english.status);
    EXPECT_EQ(ended.out, english.out);
    EXPECT_EQ(ended.err, english.err);
    EXPECT_NE(english.out + english.err, "");
}

INSTANTIATE_TEST_SUITE_P(
    Answers, SameForAll,
    testing::Values(Asked{"List", {"list", "--plain"}}, Asked{"ListAsJson", {"list", "--json"}},
                    Asked{"Explain", {"explain", "exportPath", "--plain"}}, Asked{"Doctor", {"doctor", "--plain"}},
                    Asked{"DoctorAsJson", {"--json", "doctor"}}, Asked{"Paths", {"paths", "--plain"}},
                    Asked{"PathsThatAreExplained", {"paths", "--explain", "--json"}},
                    Asked{"ReasonBesideIt", {"get", "exportPat", "--plain"}}, Asked{"HelpBesideIt", {"get", "--plain", "--help"}},
                    Asked{"Manual", {"manual"}}, Asked{"Bash", {"completion", "bash"}}, Asked{"Zsh", {"completion", "zsh"}},
                    Asked{"Fish", {"completion", "fish"}}, Asked{"PageOfPreferences", {"list", "--format", "markdown"}},
                    Asked{"PageOfLocations", {"paths", "--format=markdown"}}, Asked{"ReasonBesideAPage", {"list", "--format", "pdf"}},
                    Asked{"ReasonBesideAPageInOneWord", {"list", "--format=pdf"}}),
    byMeaning);

TEST_F(InGerman, WordsBehindTwoHyphensAskForNothing)
{
    EXPECT_EQ(toldInGerman({"get", "--", "--json"}),
              "editor-settings: es gibt keine Einstellung '--json'; 'editor-settings list' zeigt alle\n");
}

// --- What chooses the language ---

struct Locale {
    char const* meaning;
    Environment environment;
    bool isGerman;
};

class Locales : public Tool, public testing::WithParamInterface<Locale> {};

TEST_P(Locales, ChooseTheLanguage)
{
    Environment environment = {{"LC_ALL", ""}, {"LC_CTYPE", ""}, {"LC_MESSAGES", ""}, {"LANG", ""}, {"LANGUAGE", ""}};
    for (auto const& [name, value] : GetParam().environment)
        environment[name] = value;
    std::string const told = tool({}, environment).err;
    EXPECT_EQ(told.substr(0, told.find('\n')),
              GetParam().isGerman ? "editor-settings: Ein Befehl fehlt" : "editor-settings: A verb is required");
}

INSTANTIATE_TEST_SUITE_P(Variables, Locales,
                         testing::Values(Locale{"None", {}, false}, Locale{"Lang", {{"LANG", "de_DE.UTF-8"}}, true},
                                         Locale{"OtherSpelling", {{"LANG", "de_AT.utf8"}}, true},
                                         Locale{"Modifier", {{"LANG", "de_DE.UTF-8@euro"}}, true},
                                         Locale{"Messages", {{"LANG", "en_US.UTF-8"}, {"LC_MESSAGES", "de_DE.UTF-8"}}, true},
                                         Locale{"EnglishMessages", {{"LANG", "de_DE.UTF-8"}, {"LC_MESSAGES", "C"}}, false},
                                         Locale{"All", {{"LC_ALL", "de_DE.UTF-8"}, {"LANG", "C"}}, true},
                                         Locale{"AllOverrulesLang", {{"LC_ALL", "C"}, {"LANG", "de_DE.UTF-8"}}, false},
                                         Locale{"ListOfLanguages", {{"LANG", "en_US.UTF-8"}, {"LANGUAGE", "xx:de"}}, true},
                                         Locale{"EnglishFirst", {{"LANG", "de_DE.UTF-8"}, {"LANGUAGE", "en_GB:de"}}, false},
                                         Locale{"ListInTheCLocale", {{"LANG", "C"}, {"LANGUAGE", "de"}}, false},
                                         Locale{"LanguageWithoutTranslation", {{"LANG", "pt_PT.UTF-8"}}, false}),
                         byMeaning);

INSTANTIATE_TEST_SUITE_P(Encodings, Locales,
                         testing::Values(Locale{"Latin1", {{"LANG", "de_DE.ISO-8859-1"}}, false},
                                         Locale{"EncodingOfTheSystem", {{"LANG", "de_DE"}}, false},
                                         Locale{"Euro", {{"LANG", "de_DE@euro"}}, false},
                                         Locale{"OnlyForLetters", {{"LANG", "de_DE.UTF-8"}, {"LC_CTYPE", "C"}}, false}),
                         byMeaning);

TEST_F(InGerman, ProgramWithoutTranslationsBesideItSpeaksEnglish)
{
    std::filesystem::create_directories(inHome("bin"));
    std::filesystem::copy(TOOL, inHome("bin/editor-settings"));
    Ended const ended = run({inHome("bin/editor-settings"), "get", "exportPat"}, german);
    EXPECT_NE(ended.err.find("cannot be read"), std::string::npos) << "the product file lies beside them";
    EXPECT_EQ(run({inHome("bin/editor-settings")}, german).err.substr(0, 36), "editor-settings: A verb is required\n");
}

// --- Wide letters ---

class InJapanese : public OnTerminal {};

TEST_F(InJapanese, StepFitsOnALine)
{
    m_home.write("in.json", R"({"format": "editor-settings export", "version": 1, "stores": {}})");
    Ended const ended = onTerminal({"sh", "-c", "{ sleep 2; cat \"$1\"; } | \"$0\" import -", TOOL, inHome("in.json")},
                                   {{"LC_ALL", "ja_JP.UTF-8"}}, {24, 40});
    std::string const step = u8"editor-settings: \u30B9\u30C6\u30C3\u30D7 1/3: \u30D5\u30A1\u30A4\u2026"; // 38 columns
    EXPECT_EQ(ended.out.substr(0, step.size() + 4), step + "\r\x1b[K") << ended.out;
}

// --- The translations themselves ---

struct Message {
    QString source;
    QStringList translations; // one, or as many as the language has forms for numbers
};

std::vector<Message> messagesIn(QString const& name)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    QXmlStreamReader xml(&file);
    std::vector<Message> messages;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("source"))
            messages.push_back({xml.readElementText(), {}});
        else if (xml.name() == QLatin1String("translation") || xml.name() == QLatin1String("numerusform"))
            if (QString const text = xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed(); !text.isEmpty())
                messages.back().translations.append(text);
    }
    return messages;
}

QSet<QString> found(QString const& text, QString const& pattern)
{
    QSet<QString> all;
    for (auto matches = QRegularExpression(pattern).globalMatch(text); matches.hasNext();)
        all.insert(matches.next().captured());
    return all;
}

class Translations : public testing::TestWithParam<char const*> {
protected:
    std::vector<Message> const m_messages =
        messagesIn(QStringLiteral(TRANSLATIONS "/editor-settings-tool_") + QLatin1String(GetParam()) + QStringLiteral(".ts"));
};

TEST_P(Translations, HaveThePlacesOfTheirSources)
{
    ASSERT_GT(m_messages.size(), 400u);
    for (Message const& message : m_messages)
        for (QString const& text : message.translations)
            EXPECT_EQ(found(text, QStringLiteral("%[1-9]")), found(message.source, QStringLiteral("%[1-9]"))) << text.toStdString();
}

TEST_P(Translations, KeepWhatIsTyped)
{
    for (Message const& message : m_messages)
        for (QString const& text : message.translations)
            EXPECT_EQ(found(text, QStringLiteral("--[a-z][a-z-]*|[A-Z]+_[A-Z_]+|editor-settings [a-z-]+|[0-9]{2,}")),
                      found(message.source, QStringLiteral("--[a-z][a-z-]*|[A-Z]+_[A-Z_]+|editor-settings [a-z-]+|[0-9]{2,}")))
                << text.toStdString();
}

TEST_P(Translations, LeaveTheDirectionToTheTerminal)
{
    QRegularExpression const marks(QStringLiteral("[\\x{200E}\\x{200F}\\x{202A}-\\x{202E}\\x{2066}-\\x{2069}]"));
    for (Message const& message : m_messages)
        for (QString const& text : message.translations)
            EXPECT_FALSE(text.contains(marks)) << text.toStdString();
}

TEST_P(Translations, TellWordsOfDifferentColoursApart)
{
    std::map<std::string, char const*> const colors = {{"error", "red"},   {"unreadable", "red"}, {"other kind", "red"},
                                                       {"removed", "red"}, {"warning", "yellow"}, {"changed", "yellow"},
                                                       {"set", "green"},   {"added", "green"}};
    std::map<QString, std::string> told;
    for (Message const& message : m_messages) {
        auto const color = colors.find(message.source.toStdString());
        if (color == colors.end())
            continue;
        std::string const earlier = told.emplace(message.translations.value(0), color->second).first->second;
        EXPECT_EQ(earlier, color->second) << color->first;
    }
    EXPECT_GE(told.size(), 3u);
}

INSTANTIATE_TEST_SUITE_P(Languages, Translations, testing::Values("ar", "de", "es", "fr", "ja", "zh_CN"),
                         [](auto const& test) { return std::string(test.param); });

} // namespace
