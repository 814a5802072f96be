// SPDX-License-Identifier: MIT
//
// Every preference of the table, reached through the symbols that the library exports under the names of the table.
#include <Lumora/Conf/Formats.h>

#include <support/BoundLibrary.h>
#include <support/Patterns.h>
#include <support/Table.h>

#include <cxxabi.h>
#include <dlfcn.h>

#include <fstream>
#include <functional>
#include <map>
#include <sstream>

namespace {

// The mangled names of `T Settings::name()` and `void Settings::name(T const&)`. What a function returns is part of its
// name only for std::string, by its ABI tag.
template <typename T>
std::string getterSymbol(std::string const& name)
{
    return "_ZN8Settings" + std::to_string(name.size()) + name + (std::is_same_v<T, std::string> ? "B5cxx11Ev" : "Ev");
}

template <typename T>
std::string setterSymbol(std::string const& name, bool byValue = false)
{
    std::string type = typeid(T).name();
    if (std::is_same_v<T, std::string>)
        type = "NSt7__cxx1112basic_stringIcSt11char_traitsIcESaIcEEE";
    return "_ZN8Settings" + std::to_string(name.size()) + name + (byValue ? "E" : "ERK") + type;
}

template <typename Function>
Function* exported(std::string const& symbol)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_DEFAULT, symbol.c_str()));
}

std::string withoutNamespace(std::string const& name)
{
    EXPECT_EQ(name.substr(0, 10), "Settings::") << name;
    return name.substr(10);
}

// What differs between the types: the store's operations and how the log shows a value.
struct Shown {
    char const* get;
    char const* set;
    std::string text;
};

Shown shown(bool value) { return {"getBool", "setBool", value ? "true" : "false"}; }
Shown shown(int value) { return {"getInt", "setInt", std::to_string(value)}; }
Shown shown(std::string const& value) { return {"getString", "setString", '"' + value + '"'}; }
Shown shown(QString const& value) { return shown(value.toStdString()); }
Shown shown(QStringList const& value) { return shown(value.join(QStringLiteral("|#|"))); }
Shown shown(QByteArray const& value)
{
    std::string bytes;
    for (char const byte : value)
        bytes += (bytes.empty() ? "" : " ") + QByteArray(1, byte).toHex().toStdString();
    return {"getBytes", "setBytes", '[' + bytes + ']'};
}

// The literals of the table.
template <typename T>
T fromLiteral(std::string const& literal);
template <>
bool fromLiteral<bool>(std::string const& literal)
{
    EXPECT_TRUE(literal == "true" || literal == "false") << literal;
    return literal == "true";
}
template <>
int fromLiteral<int>(std::string const& literal)
{
    return std::stoi(literal);
}
template <>
std::string fromLiteral<std::string>(std::string const& literal)
{
    EXPECT_TRUE(literal.size() >= 2 && literal.front() == '"' && literal.back() == '"') << literal;
    return literal.substr(1, literal.size() - 2);
}
template <>
QString fromLiteral<QString>(std::string const& literal)
{
    return QString::fromStdString(fromLiteral<std::string>(literal));
}
template <>
QByteArray fromLiteral<QByteArray>(std::string const& literal)
{
    return QByteArray::fromStdString(fromLiteral<std::string>(literal));
}
template <>
QStringList fromLiteral<QStringList>(std::string const& literal)
{
    EXPECT_EQ(literal, "{}");
    return {};
}

class Preference : public BoundLibrary, public testing::WithParamInterface<PreferenceRow> {
protected:
    // What a computed default is in this test's home, and what the product information is asked for it.
    std::pair<QString, Calls> computed(std::string const& function) const
    {
        std::map<std::string, std::pair<QString, Calls>> const defaults = {
            {"defaultLumoraLibraryPath()", {inHome("Videos/Lumora Library"), {"productInfo.productKind()"}}},
            {"defaultProjectPath()", {inHome("Videos/Lumora Video Editor/Projects"), {}}},
            {"defaultAudioRecordPath()", {inHome("Music/Lumora Video Editor/Recorded Audio"), {}}},
            {"defaultStabilizedFilePath()", {inHome("Videos/Lumora Video Editor/Stabilized"), {}}},
            {"defaultFastTrackContentPath()", {inHome("Videos/Lumora Video Editor/Preview Files"), {}}},
            {"defaultDownloadableResourcesPath()", {inHome("Videos/Lumora Video Editor/Media Content"), {}}},
            {"defaultNewsCenterContentPath()", {inHome(".cache/Lumora Video Editor/News Center"), {}}},
            {"defaultBundleShadowCachePath()", {inHome(".cache/Lumora Video Editor/Bundle Shadow Copy"), {}}},
            {"defaultDownloaderCachePath()", {inHome(".cache/Lumora Video Editor/Downloader Cache"), {}}},
            {"defaultPackInAppCachePath()", {inHome(".cache/Lumora Video Editor/PackInApp Cache"), {}}},
            {"defaultWaveformCachePath()",
             {inHome(".local/share/Vendor/SharedData/Shared/Waveforms/Cache"),
              {"productInfo.vendorName()", "productInfo.sharedDataFolderName()"}}},
        };
        return defaults.at(function);
    }

    // Default, set and read back of one preference; `value` differs from every default.
    template <typename T>
    void check(T const& value)
    {
        PreferenceRow const& row = GetParam();
        auto* const get = exported<T()>(getterSymbol<T>(withoutNamespace(row.getter)));
        std::string const setter = setterSymbol<T>(withoutNamespace(row.setter), row.isOfUpdater());
        std::function<void(T const&)> set = exported<void(T const&)>(setter);
        ASSERT_TRUE(get) << row.getter << " is not exported with this type";
        ASSERT_TRUE(set) << row.setter << " is not exported with this type";
        if (row.isOfUpdater())
            set = exported<void(T)>(setter);

        T defaultValue{};
        Calls before;
        if constexpr (std::is_same_v<T, QString>) {
            if (row.hasComputedDefault())
                std::tie(defaultValue, before) = computed(row.defaultValue);
        }
        if (!row.hasComputedDefault())
            defaultValue = fromLiteral<T>(row.defaultValue);
        if (row.key == "targetHistory")
            before = {"productInfo.productKind()"};
        Calls reading = before;
        reading.push_back(row.store + '.' + shown(value).get + "(\"" + row.key + "\", " + shown(defaultValue).text + ')');

        EXPECT_EQ(get(), defaultValue);
        EXPECT_EQ(calls(), reading);

        set(value);
        Calls writing;
        if (row.key == "targetHistory")
            writing = before;
        writing.push_back(row.store + '.' + shown(value).set + "(\"" + row.key + "\", " + shown(value).text + ')');
        EXPECT_EQ(calls(), writing);
        EXPECT_TRUE((row.store == "common" ? m_productValues : m_commonValues)->values().empty()) << "the other store was written";

        EXPECT_EQ(get(), value);
        EXPECT_EQ(calls(), reading) << "the default is computed and passed also when the key is stored";
    }
};

TEST_P(Preference, HasItsKeyDefaultStoreAndAccessors)
{
    PreferenceRow const& row = GetParam();
    if (row.type == "bool") {
        check(row.defaultValue != "true");
    } else if (row.type == "int") {
        check(2147483647);
    } else if (row.type == "std::string") {
        check(std::string("some value"));
    } else if (row.type == "QString") {
        check(QStringLiteral("some value"));
    } else if (row.type == "QByteArray") {
        check(QByteArray("\xFF\x01", 2));
    } else if (row.type == "QStringList") {
        check(QStringList{QStringLiteral("one"), QStringLiteral("two")});
    } else {
        FAIL() << "unknown type " << row.type;
    }
}

std::vector<PreferenceRow> rowsWithAccessors()
{
    std::vector<PreferenceRow> rows;
    for (PreferenceRow const& row : preferenceTable())
        if (row.hasAccessors())
            rows.push_back(row);
    return rows;
}

INSTANTIATE_TEST_SUITE_P(Table, Preference, testing::ValuesIn(rowsWithAccessors()), [](auto const& test) { return test.param.key; });

// --- Constants of the implementation, which only its text shows ---

std::string implementation()
{
    std::ifstream file(TESTS_DATA "/../../library/Settings/Settings.cpp");
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(PreferenceTable, HoldsFiftySixPreferencesAndOneWithoutAccessors)
{
    EXPECT_EQ(preferenceTable().size(), 56u);
    EXPECT_EQ(rowsWithAccessors().size(), 55u);
}

TEST(PreferenceTable, EveryRowHasBothConstants)
{
    std::string const code = implementation();
    ASSERT_FALSE(code.empty());
    std::map<std::string, std::string> const formats = {{"wav", "IFormatFile::FORMAT_WAV"},
                                                        {"mp4", "IFormatFile::FORMAT_MP4"},
                                                        {"png", "IFormatFile::FORMAT_PNG"},
                                                        {"pcm_s16le", "IFormatCodecAudio::CODEC_ID_PCM_S16LE"}};
    for (PreferenceRow const& row : preferenceTable()) {
        if (row.isOfUpdater())
            continue;
        std::string const keyConstant = "\nstd::string const " + row.key + "Key = \"" + row.key + "\";\n";
        std::string defaultConstant = '\n' + row.type + " const " + row.key + "Default";
        if (!row.hasComputedDefault() && row.defaultValue != "\"\"" && row.defaultValue != "{}") {
            bool const isFormat = row.defaultValue.front() == '"';
            defaultConstant +=
                " = " + (isFormat ? "Lumora::Conf::" + formats.at(fromLiteral<std::string>(row.defaultValue)) : row.defaultValue);
        }
        EXPECT_NE(code.find(keyConstant), std::string::npos) << "no" << keyConstant;
        EXPECT_NE(code.find(defaultConstant + ";\n"), std::string::npos) << "no" << defaultConstant << ";";
    }
}

TEST(PreferenceTable, EveryConstantHasARow)
{
    std::map<std::string, int> constants;
    for (std::string const& constant : captured(implementation(), "\n\\w[\\w:]* const (\\w+)(?:Key|Default)(?: =|;)"))
        ++constants[constant];
    for (PreferenceRow const& row : preferenceTable()) {
        EXPECT_EQ(constants[row.key], row.isOfUpdater() ? 0 : 2) << row.key << " has a key and a default";
        constants.erase(row.key);
    }
    for (auto const& [name, count] : constants)
        ADD_FAILURE() << name << " has constants but no row in preferences.tsv";
}

TEST(PreferenceTable, StabilizedFileFormatHasNoAccessors)
{
    EXPECT_FALSE(exported<void>(getterSymbol<std::string>("stabilizedFileFormat")));
    EXPECT_FALSE(exported<void>(setterSymbol<std::string>("setStabilizedFileFormat")));
    EXPECT_TRUE(exported<void>(getterSymbol<std::string>("freezedFileFormat"))) << "the names are looked up rightly";
}

// --- What a row does not tell ---

class Preferences : public BoundLibrary {};

TEST_F(Preferences, FormatDefaultsEqualTheConstantsOfTheFormatLibrary)
{
    EXPECT_EQ(Settings::audioRecordFormat(), Lumora::Conf::IFormatFile::FORMAT_WAV);
    EXPECT_EQ(Settings::audioRecordCodec(), Lumora::Conf::IFormatCodecAudio::CODEC_ID_PCM_S16LE);
    EXPECT_EQ(Settings::freezedFileFormat(), Lumora::Conf::IFormatFile::FORMAT_PNG);
}

TEST_F(Preferences, StartDialogIsLeftOutThoughTheNameNegates) { EXPECT_TRUE(Settings::dontShowStartDialog()); }

TEST_F(Preferences, CheckForUpdatesIsWhatAutoUpdateReads)
{
    Settings::setCheckForUpdates(false);
    EXPECT_FALSE(Settings::autoUpdate());
    EXPECT_TRUE(m_productValues->values().empty());
    EXPECT_FALSE(m_commonValues->getBool("autoUpdate", true));
}

TEST_F(Preferences, ExportAndSnapshotFoldersShareADefault)
{
    EXPECT_EQ(Settings::exportPath(), inHome("Videos/Lumora Library"));
    EXPECT_EQ(Settings::snapshotPath(), inHome("Videos/Lumora Library"));
    Settings::setExportPath(QStringLiteral("/films"));
    EXPECT_EQ(Settings::snapshotPath(), inHome("Videos/Lumora Library"));
}

TEST_F(Preferences, StoredEmptyTextIsReturnedNotTheDefault)
{
    Settings::setExportPath(QString());
    EXPECT_EQ(Settings::exportPath(), QString());
    Settings::setAudioRecordFormat("");
    EXPECT_EQ(Settings::audioRecordFormat(), "");
}

TEST_F(Preferences, NothingIsValidatedCleanedOrConverted)
{
    Settings::setProjectPath(QStringLiteral("../a//b/ "));
    EXPECT_EQ(Settings::projectPath(), QStringLiteral("../a//b/ "));
    Settings::setNPSSendCount(-2147483647 - 1);
    EXPECT_EQ(Settings::npsSendCount(), -2147483647 - 1);
    Settings::setfreezedFileFormat("no such format");
    EXPECT_EQ(Settings::freezedFileFormat(), "no such format");
}

TEST_F(Preferences, DefaultFollowsTheEnvironmentUntilAFolderIsStored)
{
    EXPECT_EQ(Settings::projectPath(), inHome("Videos/Lumora Video Editor/Projects"));
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/Films\"\n");
    EXPECT_EQ(Settings::projectPath(), inHome("Films/Lumora Video Editor/Projects"));
    Settings::setProjectPath(inHome("Films/Lumora Video Editor/Projects"));
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"$HOME/Movies\"\n");
    EXPECT_EQ(Settings::projectPath(), inHome("Films/Lumora Video Editor/Projects"))
        << "a stored text follows nothing, also where it was the default";
}

TEST_F(Preferences, NoFolderIsCreated)
{
    Settings::projectPath();
    Settings::exportPath();
    Settings::waveformCachePath();
    Settings::newsCenterContentPath();
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "Videos"));
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / ".cache"));
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / ".local"));
}

TEST_F(Preferences, KindOneNamesTheExportFolderAfterTheProductFolder)
{
    m_product->kind = 1;
    EXPECT_EQ(Settings::exportPath(), inHome("Videos/Lumora Video Editor"));
    EXPECT_EQ(Settings::snapshotPath(), inHome("Videos/Lumora Video Editor"));
}

TEST_F(Preferences, ListsPassThroughTheListEncoding)
{
    Settings::setAchievedTutorials({QStringLiteral("a"), QString(), QStringLiteral("b")});
    EXPECT_EQ(m_productValues->getString("achievedTutorials", ""), "a|#||#|b");
    EXPECT_EQ(Settings::achievedTutorials(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    Settings::setUserCustomColors({});
    EXPECT_EQ(m_productValues->getString("userCustomColors", "unset"), "");
    EXPECT_EQ(Settings::userCustomColors(), QStringList());
}

TEST_F(Preferences, TargetHistoryOfKindOneStaysInMemory)
{
    m_product->kind = 1;
    EXPECT_EQ(Settings::targetHistory(), "") << "nothing was set since the program started";
    Settings::setTargetHistory("a");
    EXPECT_EQ(Settings::targetHistory(), "a");
    EXPECT_EQ(calls(), (Calls{"productInfo.productKind()", "productInfo.productKind()", "productInfo.productKind()"}));
    EXPECT_TRUE(m_productValues->values().empty());

    for (int const kind : {0, 2, -1}) {
        m_product->kind = kind;
        EXPECT_EQ(Settings::targetHistory(), "") << "the stored history is another one";
    }
    Settings::setTargetHistory("stored");
    m_product->kind = 1;
    EXPECT_EQ(Settings::targetHistory(), "a");
    Settings::setTargetHistory("");
    EXPECT_EQ(m_productValues->getString("targetHistory", ""), "stored");
}

TEST_F(Preferences, TargetHistoryIsStoredWholeHoweverLong)
{
    std::string const elevenEntries = "1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11";
    Settings::setTargetHistory(elevenEntries);
    EXPECT_EQ(Settings::targetHistory(), elevenEntries);
    EXPECT_EQ(m_productValues->getString("targetHistory", ""), elevenEntries);
    EXPECT_EQ(Settings::targetHistoryLength, 10);
}

} // namespace
