// SPDX-License-Identifier: MIT
#include <Catalogue/Catalogue.h>

#include <functional>
#include <memory>
#include <utility>

namespace Catalogue {

namespace {

// A store that answers as if nothing were stored, and notes what it was asked for and the text that it was given.
class NothingStored final : public ISettingsStorage {
public:
    std::optional<std::string> askedKey() const { return m_askedKey; }
    std::string const& writtenText() const { return m_writtenText; }

    void setBool(std::string const&, bool) override {}
    void setInt(std::string const&, int) override {}
    void setString(std::string const&, std::string const& value) override { m_writtenText = value; }
    void setBytes(std::string const&, std::vector<unsigned char> const&) override {}
    bool contains(std::string const&) const override { return false; }
    void remove(std::string const&) override {}
    bool getBool(std::string const& key, bool defaultValue) const override { return asked(key, defaultValue); }
    int getInt(std::string const& key, int defaultValue) const override { return asked(key, defaultValue); }
    std::string getString(std::string const& key, std::string const& defaultValue) const override { return asked(key, defaultValue); }
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

// The library bound to `context`, for as long as the object lives.
class BoundForAMoment {
public:
    explicit BoundForAMoment(SettingsContext const& context) { Settings::init(context); }
    ~BoundForAMoment() { Settings::init(m_earlier); }
    BoundForAMoment(BoundForAMoment const&) = delete;
    BoundForAMoment& operator=(BoundForAMoment const&) = delete;

private:
    SettingsContext const m_earlier = s_instance;
};

// The library bound to stores that hold nothing, for as long as the object lives.
struct WithoutStoredValues {
    std::shared_ptr<NothingStored> const common = std::make_shared<NothingStored>();
    std::shared_ptr<NothingStored> const product = std::make_shared<NothingStored>();
    BoundForAMoment const binding{{s_instance.productInfo, common, product, s_instance.resourcesRoot}};
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

// Product information that answers as another object does, and notes what it was asked.
class NotingProductInfo final : public IProductInfo {
public:
    explicit NotingProductInfo(std::shared_ptr<IProductInfo const> inner) : m_inner(std::move(inner)) {}

    std::vector<std::string> const& asked() const { return m_asked; }

    std::string vendorName() const override { return note("vendorName"), m_inner->vendorName(); }
    std::string productName() const override { return note("productName"), m_inner->productName(); }
    std::string sharedDataFolderName() const override { return note("sharedDataFolderName"), m_inner->sharedDataFolderName(); }
    int productKind() const override { return note("productKind"), m_inner->productKind(); }
    std::string projectFileExtensions() const override { return note("projectFileExtensions"), m_inner->projectFileExtensions(); }

private:
    void note(char const* operation) const { m_asked.emplace_back(operation); }

    std::shared_ptr<IProductInfo const> m_inner;
    mutable std::vector<std::string> m_asked;
};

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
    auto const noting = std::make_shared<NotingProductInfo>(s_instance.productInfo.lock());
    SettingsContext context = s_instance;
    context.productInfo = noting;
    BoundForAMoment const binding(context);
    location.path(location.arguments.empty() ? std::string() : location.arguments.front());
    return noting->asked();
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

} // namespace Catalogue
