// SPDX-License-Identifier: MIT
//
// A store of your own, here on QSettings, and the contract suite of the test kit that checks it.
//
// A store has to add to QSettings: any text may be a key, a value keeps its kind, any thread may call, and a change that
// cannot be written throws and is undone.
#include <Settings/Settings.h>
#include <TestKit/StorageContract.h>
#include <TestKit/TemporaryHome.h>

#include <QSettings>

#include <filesystem>
#include <mutex>
#include <optional>
#include <stdexcept>

namespace {

class IniStorage final : public ISettingsStorage {
public:
    explicit IniStorage(std::filesystem::path const& file) : m_settings(QString::fromStdString(file.u8string()), QSettings::IniFormat)
    {
        if (m_settings.status() != QSettings::NoError)
            throw std::runtime_error(file.u8string() + " cannot be read as an ini file");
    }

    void setBool(std::string const& key, bool value) override { change(key, ofKind('b', value ? "1" : "0")); }
    void setInt(std::string const& key, int value) override { change(key, ofKind('i', QByteArray::number(value))); }
    void setString(std::string const& key, std::string const& value) override
    {
        change(key, ofKind('s', QByteArray::fromStdString(value)));
    }
    void setBytes(std::string const& key, std::vector<unsigned char> const& value) override
    {
        change(key, ofKind('y', {reinterpret_cast<char const*>(value.data()), static_cast<int>(value.size())}));
    }

    bool contains(std::string const& key) const override { return stored(key).isValid(); }
    void remove(std::string const& key) override { change(key, {}); }

    bool getBool(std::string const& key, bool defaultValue) const override
    {
        auto const content = find(key, 'b');
        return content ? *content == "1" : defaultValue;
    }
    int getInt(std::string const& key, int defaultValue) const override
    {
        auto const content = find(key, 'i');
        return content ? content->toInt() : defaultValue;
    }
    std::string getString(std::string const& key, std::string const& defaultValue) const override
    {
        auto const content = find(key, 's');
        return content ? content->toStdString() : defaultValue;
    }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override
    {
        auto const content = find(key, 'y');
        return content ? std::vector<unsigned char>(content->begin(), content->end()) : defaultValue;
    }

private:
    // Plain text, whatever the bytes: QSettings interprets "/" and escapes each byte that is not ASCII slowly.
    static QString plain(QByteArray const& bytes) { return QString::fromLatin1(bytes.toPercentEncoding()); }

    // QSettings takes no empty key, so a key never stands alone.
    static QString name(std::string const& key) { return QLatin1String("key-") + plain(QByteArray::fromStdString(key)); }

    // An ini file returns every value as text, so the kind stands before the value.
    static QVariant ofKind(char kind, QByteArray const& content) { return QString(QLatin1Char(kind) + plain(content)); }

    std::optional<QByteArray> find(std::string const& key, char kind) const
    {
        QByteArray const value = stored(key).toString().toLatin1();
        return value.startsWith(kind) ? std::make_optional(QByteArray::fromPercentEncoding(value.mid(1))) : std::nullopt;
    }

    QVariant stored(std::string const& key) const
    {
        std::lock_guard const lock(m_mutex);
        return m_settings.value(name(key));
    }

    // No value removes the key. The library never flushes: a change that is not on disk now may be lost.
    void change(std::string const& key, QVariant const& value)
    {
        std::lock_guard const lock(m_mutex);
        QVariant const earlier = m_settings.value(name(key));
        assign(key, value);
        m_settings.sync();
        if (m_settings.status() == QSettings::NoError)
            return;
        assign(key, earlier);
        throw std::runtime_error(m_settings.fileName().toStdString() + " cannot be written");
    }

    void assign(std::string const& key, QVariant const& value)
    {
        if (value.isValid())
            m_settings.setValue(name(key), value);
        else
            m_settings.remove(name(key));
    }

    mutable std::mutex m_mutex; // a QSettings object serves one thread at a time
    QSettings m_settings;
};

// --- The contract, each of its tests with a folder of its own ---

struct IniBackend {
    std::shared_ptr<ISettingsStorage> open() { return std::make_shared<IniStorage>(home.path() / "settings.ini"); }
    TestKit::TemporaryHome home;
};

} // namespace

namespace TestKit {
INSTANTIATE_TYPED_TEST_SUITE_P(Ini, StorageContract, IniBackend);
}

// --- Beyond the contract ---

TEST(IniStorage, FileThatIsNoIniFileIsRefused)
{
    TestKit::TemporaryHome const home;
    EXPECT_THROW(IniStorage(home.write("settings.ini", "[half a section")), std::runtime_error);
}

TEST(IniStorage, ChangeIsInTheFileWhenTheCallReturns)
{
    TestKit::TemporaryHome const home;
    std::string const value("gr\xC3\xBC\xC3\x9F, \"and\"; nul\0inside", 25);
    IniStorage store(home.path() / "settings.ini");
    store.setString("some/key", value);
    // A copy, because QSettings objects of one process share a cache of the file.
    std::filesystem::copy_file(home.path() / "settings.ini", home.path() / "copy.ini");
    EXPECT_EQ(IniStorage(home.path() / "copy.ini").getString("some/key", ""), value);
}

TEST(IniStorage, ChangeThatCannotBeWrittenIsThrownAndUndone)
{
    TestKit::TemporaryHome const home;
    IniStorage store(home.write("file", "") / "settings.ini");
    EXPECT_THROW(store.setInt("key", 7), std::runtime_error);
    EXPECT_FALSE(store.contains("key"));
}
