// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <Storage/EmptyStorage.h>
#include <TestKit/Recording.h>
#include <TestKit/ScopedBinding.h>

#include <functional>
#include <memory>
#include <utility>

namespace Catalogue {

namespace {

// Records the key of the last read and the text of the last set, which a read of any text returns; holds nothing else.
class NothingStored final : public Storage::EmptyStorage {
public:
    std::optional<std::string> askedKey() const { return m_askedKey; }
    std::string const& writtenText() const { return m_writtenText; }

    void setString(std::string const&, std::string const& value) override { m_writtenText = value; }
    bool getBool(std::string const& key, bool defaultValue) const override { return asked(key, defaultValue); }
    int getInt(std::string const& key, int defaultValue) const override { return asked(key, defaultValue); }
    std::string getString(std::string const& key, std::string const& defaultValue) const override
    {
        return asked(key, m_writtenText.empty() ? defaultValue : m_writtenText);
    }
    std::vector<unsigned char> getBytes(std::string const& key, std::vector<unsigned char> const& defaultValue) const override
    {
        return asked(key, defaultValue);
    }

private:
    template <typename T>
    T asked(std::string const& key, T const& defaultValue) const
    {
        m_askedKey = key;
        return defaultValue;
    }

    mutable std::optional<std::string> m_askedKey;
    std::string m_writtenText;
};

// The library bound to stores that hold nothing, for as long as the object lives.
struct WithoutStoredValues {
    std::shared_ptr<NothingStored> const common = std::make_shared<NothingStored>();
    std::shared_ptr<NothingStored> const product = std::make_shared<NothingStored>();
    TestKit::ScopedBinding const binding{{s_instance.productInfo, common, product, s_instance.resourcesRoot}};
};

std::shared_ptr<ISettingsStorage> boundStore(Store store)
{
    return (store == Store::common ? s_instance.commonStorage : s_instance.productStorage).lock();
}

// `read` asks for at most one key.
InspectedValue observeReadingNothing(std::function<Value()> const& read)
{
    WithoutStoredValues const stores;
    InspectedValue result;
    result.value = result.defaultValue = read();
    if (stores.product->askedKey())
        result.store = Store::product;
    if (stores.common->askedKey())
        result.store = Store::common;
    if (result.store)
        result.key = *(result.store == Store::common ? stores.common : stores.product)->askedKey();
    return result;
}

InspectedValue observeReading(std::function<Value()> const& read)
{
    InspectedValue result = observeReadingNothing(read);
    result.value = read();
    result.isStored = result.store && boundStore(*result.store)->contains(result.key);
    return result;
}

} // namespace

InspectedValue inspect(Preference const& preference)
{
    return observeReading([&] { return preference.read(); });
}

InspectedValue inspect(Family const& family, QString const& name)
{
    return observeReading([&] { return family.read(name); });
}

InspectedValue inspectUnstored(Preference const& preference)
{
    return observeReadingNothing([&] { return preference.read(); });
}

InspectedValue inspectUnstored(Family const& family, QString const& name)
{
    return observeReadingNothing([&] { return family.read(name); });
}

std::vector<std::string> askedOfTheProduct(Location const& location)
{
    std::vector<std::string> asked;
    auto const record = [&](std::string const& operation) { asked.push_back(operation); };
    auto const recording = std::make_shared<TestKit::RecordingProductInfo>(record, s_instance.productInfo.lock());
    SettingsContext context = s_instance;
    context.productInfo = recording;
    TestKit::ScopedBinding const binding(context);
    location.path(location.arguments.empty() ? std::string() : location.arguments.front());
    return asked;
}

bool survivesRoundTrip(QStringList const& list)
{
    // A default passes through the same encoding as a stored list.
    WithoutStoredValues const stores;
    bool const useCommonStorage = false;
    return ::read("list", list, useCommonStorage) == list;
}

std::string storedText(QStringList const& list)
{
    WithoutStoredValues const stores;
    bool const useCommonStorage = false;
    ::write("list", list, useCommonStorage);
    return stores.product->writtenText();
}

QStringList listIn(std::string const& storedText)
{
    WithoutStoredValues const stores;
    stores.product->setString("list", storedText);
    bool const useCommonStorage = false;
    return ::read("list", QStringList(), useCommonStorage);
}

} // namespace Catalogue
