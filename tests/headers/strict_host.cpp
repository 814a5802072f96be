// SPDX-License-Identifier: MIT
//
// A host that allows itself no conversion and no warning, and uses a function of every kind. Compiled, not run.
#include <Settings/Settings.h>

#include <Lumora/Conf/Formats.h>
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>

#include <map>
#include <variant>

namespace {

class Product final : public IProductInfo {
public:
    std::string vendorName() const override { return "Maker"; }
    std::string productName() const override { return "Product"; }
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

} // namespace

int main()
{
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Store>();
    auto const own = std::make_shared<Store>();
    Settings::init({product, common, own, Lumora::ioPath("/opt/resources")});

    QString const suffix = QStringLiteral("x");
    Settings::setExportPath(Settings::exportPath() + QLatin1Char('/') + suffix);
    write("own", Settings::projectDirectory + suffix, false);
    write("own list", QStringList{suffix, Settings::waveformExtension}, false);
    write("own ratio", boost::rational<long long>(16, 9), true);
    std::vector<unsigned char> const bytes = Lumora::Util::QByteArrayToVectorByte(Settings::mainWindowState());
    QString const folder = makeDefaultPath(QStandardPaths::MoviesLocation, productDataPath() + nonLocalizedProductName());
    return folder.isEmpty() || bytes.empty() || Settings::countDownFont.italic() || Lumora::Conf::IFormatFile::FORMAT_WAV.empty() ? 1 : 0;
}
