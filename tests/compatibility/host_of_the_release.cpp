// SPDX-License-Identifier: MIT
//
// A host as it was built with the last release: compiled with its headers and linked with its names alone. It runs with
// this build's libraries, which must do for it what the release did.
#include <Settings/Settings.h>
#include <Settings/Version.h>

#include <Lumora/Conf/Formats.h>
#include <Lumora/Util/ByteConversion.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <variant>

static_assert(EDITOR_SETTINGS_VERSION == 0x010000);

namespace {

struct Product final : IProductInfo {
    std::string vendorName() const override { return "Maker"; }
    std::string productName() const override { return "Older Editor"; }
    std::string sharedDataFolderName() const override { return "Shared"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "one,two"; }
};

class Store final : public ISettingsStorage {
public:
    void setBool(std::string const& key, bool value) override { m_values[key] = value; }
    void setInt(std::string const& key, int value) override { m_values[key] = value; }
    void setString(std::string const& key, std::string const& value) override { m_values[key] = value; }
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override { m_values[key] = value; }
    bool contains(std::string const& key) const override { return m_values.count(key) != 0; }
    void remove(std::string const& key) override { m_values.erase(key); }
    bool getBool(std::string const& key, bool defaultValue) const override { return get(key, defaultValue); }
    int getInt(std::string const& key, int defaultValue) const override { return get(key, defaultValue); }
    std::string getString(std::string const& key, std::string const& defaultValue) const override { return get(key, defaultValue); }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override
    {
        return get(key, defaultValue);
    }

private:
    template <typename T>
    T get(std::string const& key, T const& defaultValue) const
    {
        auto const found = m_values.find(key);
        T const* const value = found == m_values.end() ? nullptr : std::get_if<T>(&found->second);
        return value ? *value : defaultValue;
    }

    std::map<std::string, std::variant<bool, int, std::string, std::vector<unsigned char>>> m_values;
};

int wrong = 0;

void expectText(char const* what, std::string const& answer, std::string const& expected)
{
    if (answer == expected)
        return;
    std::fprintf(stderr, "%s: \"%s\" instead of \"%s\"\n", what, answer.c_str(), expected.c_str());
    ++wrong;
}

void expectText(char const* what, QString const& answer, std::string const& expected) { expectText(what, answer.toStdString(), expected); }

void expectBool(char const* what, bool answer, bool expected) { expectText(what, std::to_string(answer), std::to_string(expected)); }

// A home folder that does not exist: nothing is looked for there.
void settle()
{
    ::setenv("HOME", "/home of an older host", 1);
    for (char const* const variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
        ::unsetenv(variable);
}

void keepPreferences(Store const& product, Store const& common)
{
    expectBool("default", Settings::keepVideoAspect(), true);
    Settings::setKeepVideoAspect(false);
    expectBool("boolean", Settings::keepVideoAspect(), false);
    Settings::setCheckForUpdates(false);
    expectBool("common boolean", common.getBool("autoUpdate", true), false);
    Settings::setNPSSendCount(-3);
    expectText("number", std::to_string(product.getInt("npsSendCount", 0)), "-3");
    Settings::setLastTarget(QString::fromUtf8("gr\xC3\xBCn"));
    expectText("text", product.getString("lastTarget", ""), "gr\xC3\xBCn");
    Settings::setMainWindowState(QByteArray("\0\xFF", 2));
    expectText("bytes", std::to_string(product.getBytes("mainWindowState", {}).size()), "2");
    expectText("bytes again", Settings::mainWindowState().toStdString(), std::string("\0\xFF", 2));
    Settings::setUserCustomColors({QStringLiteral("red"), QStringLiteral("blue")});
    expectText("list", product.getString("userCustomColors", ""), "red|#|blue");
    write("ratio", boost::rational<long long>(32, 18), true);
    boost::rational<long long> const ratio = read("ratio", boost::rational<long long>(1), true);
    expectText("rational", std::to_string(ratio.numerator()) + '/' + std::to_string(ratio.denominator()), "16/9");
    expectText("constant", std::to_string(Settings::targetHistoryLength), "10");
    expectText("format", Settings::audioRecordFormat(), "wav");
    expectText("name of a format", Lumora::Conf::IFormatFile::FORMAT_MP4, "mp4");
    expectText("bytes converted", std::to_string(Lumora::Util::QByteArrayToVectorByte(Settings::mainWindowState()).at(1)), "255");
}

void askLocations()
{
    expectText("project folder", Settings::projectPath(), "/home of an older host/Videos/Lumora Video Editor/Projects");
    expectText("data folder", productDataPath(), "/home of an older host/.local/share/Maker/Older Editor");
    expectText("waveforms", Settings::defaultWaveformCachePath(),
               "/home of an older host/.local/share/Maker/SharedData/Shared/Waveforms/Cache");
    expectText("resource", resourceFile("resources/x.png"), "/opt/older/resources/x.png");
    expectText("stock", Settings::stockThemesPath(), "/opt/older/resources/samples/stock//themes/");
    expectText("notification", Settings::notificationFile(Settings::ErrorNotification),
               "/opt/older/resources/samples/notifications/error.wav");
    expectText("root", s_instance.resourcesRoot.utf8string(), "/opt/older");
    expectText("filter", Settings::projectFileOpenFilter(), "*.one *.two");
}

void makeName()
{
    char folder[] = "/tmp/older-host-XXXXXX";
    if (!::mkdtemp(folder))
        std::abort();
    std::ofstream(std::string(folder) + "/Holiday (4).png").close();
    Settings::setExportPath(QString::fromUtf8(folder));
    expectText("name", Settings::generateFreezedFilePath(QStringLiteral("/films/Holiday.mov")), std::string(folder) + "/Holiday (5).png");
    std::filesystem::remove_all(folder);
}

} // namespace

int main()
{
    settle();
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Store>();
    auto const own = std::make_shared<Store>();
    Settings::init({product, common, own, Lumora::ioPath("/opt/older")});
    keepPreferences(*own, *common);
    askLocations();
    makeName();
    return wrong == 0 ? 0 : 1;
}
