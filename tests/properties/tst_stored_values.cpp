// SPDX-License-Identifier: MIT
//
// What is written is what is read: every kind in every store, and every type of the library in every store.
#include "Property.h"

#include <Catalogue/Catalogue.h>
#include <Storage/SqliteStorage.h>

#include <support/BoundLibrary.h>

#include <limits>

namespace {

using Bytes = std::vector<unsigned char>;

struct InMemory {
    std::shared_ptr<ISettingsStorage> writer = std::make_shared<TestKit::MemoryStorage>();
    std::shared_ptr<ISettingsStorage> reader = writer;
};

// Written through one store object and read through another, so that the value is in the file.
struct InSqlite {
    TestKit::TemporaryHome home;
    std::shared_ptr<ISettingsStorage> writer = open();
    std::shared_ptr<ISettingsStorage> reader = open();

    std::shared_ptr<ISettingsStorage> open() const
    {
        Storage::SqliteStorage::Options options;
        options.synchronous = Storage::SqliteStorage::Synchronous::normal;
        return std::make_shared<Storage::SqliteStorage>(home.path() / "store.sqlite", options);
    }
};

template <typename Stores>
class StoredValue : public testing::Test {
protected:
    static constexpr int cases = 100;

    TestKit::ScopedBinding boundTo(std::shared_ptr<ISettingsStorage> const& store) const
    {
        return TestKit::ScopedBinding({m_product, store, store, {}});
    }

    // Through the library, in both of its stores. The default is another value, which must not be what is read.
    template <typename T>
    void expectReadBack(std::string const& key, T const& value, T const& other, bool useCommonStorage)
    {
        {
            auto const binding = boundTo(m_stores.writer);
            write(key, value, useCommonStorage);
        }
        auto const binding = boundTo(m_stores.reader);
        RC_ASSERT(read(key, other, useCommonStorage) == value);
    }

    Stores m_stores;
    std::shared_ptr<TestKit::FixedProductInfo> m_product = std::make_shared<TestKit::FixedProductInfo>();
};

using EveryStore = testing::Types<InMemory, InSqlite>;

class StoreName {
public:
    template <typename Stores>
    static std::string GetName(int)
    {
        return std::is_same_v<Stores, InMemory> ? "InMemory" : "InSqlite";
    }
};

TYPED_TEST_SUITE(StoredValue, EveryStore, StoreName);

TYPED_TEST(StoredValue, OfEachKindIsReadBackFromTheStore)
{
    ISettingsStorage& writer = *this->m_stores.writer;
    ISettingsStorage const& reader = *this->m_stores.reader;
    expectForAll(this->cases, [&](std::string const& key, bool truth, int number, std::string const& text, Bytes const& bytes) {
        writer.setBool(key, truth);
        RC_ASSERT(reader.getBool(key, !truth) == truth);
        writer.setInt(key, number);
        RC_ASSERT(reader.getInt(key, ~number) == number);
        writer.setString(key, text);
        RC_ASSERT(reader.getString(key, text + "other") == text);
        writer.setBytes(key, bytes);
        RC_ASSERT(reader.getBytes(key, Bytes(bytes.size() + 1)) == bytes);
    });
}

TYPED_TEST(StoredValue, OfEachSimpleTypeIsReadBackThroughTheLibrary)
{
    expectForAll(this->cases, [&](std::string const& key, bool common, bool truth, int number, std::string const& text) {
        QString const unicode = *anyText();
        QByteArray const bytes = QByteArray::fromStdString(*rc::gen::arbitrary<std::string>());
        this->expectReadBack(key, truth, !truth, common);
        this->expectReadBack(key, number, ~number, common);
        this->expectReadBack(key, text, text + "other", common);
        this->expectReadBack(key, unicode, QString(unicode + QLatin1String("other")), common);
        this->expectReadBack(key, bytes, QByteArray(bytes + "other"), common);
    });
}

TYPED_TEST(StoredValue, OfARationalOf32BitsIsReadBackThroughTheLibrary)
{
    using Rational = boost::rational<long long>;
    expectForAll(this->cases, [&](std::string const& key, bool common, int numerator) {
        int const denominator = *rc::gen::inRange(1, std::numeric_limits<int>::max());
        Rational const value(numerator, denominator);
        this->expectReadBack(key, value, value + 1, common);
    });
}

// What joins the elements can be part of one, or arise where one ends in its beginning.
bool isTornBySeparator(QStringList const& list)
{
    for (int index = 0; index < list.size(); ++index) {
        bool const isLast = index + 1 == list.size();
        if (list[index].contains(QLatin1String("|#|")) || (!isLast && list[index].endsWith(QLatin1String("|#"))))
            return true;
    }
    return false;
}

TYPED_TEST(StoredValue, OfAListIsReadBackWithoutEmptyElements)
{
    expectForAll(3 * this->cases, [&](std::string const& key, bool common) {
        QStringList list;
        for (QString const& element : *rc::gen::container<std::vector<QString>>(anyText()))
            list << element;
        RC_PRE(!isTornBySeparator(list));
        {
            auto const binding = this->boundTo(this->m_stores.writer);
            write(key, list, common);
        }
        QStringList kept = list;
        kept.removeAll(QString());
        auto const binding = this->boundTo(this->m_stores.reader);
        RC_ASSERT(read(key, QStringList{QStringLiteral("other")}, common) == kept);
        RC_CLASSIFY(kept != list, "with empty elements");
    });
}

TYPED_TEST(StoredValue, OfATornListIsForetold)
{
    auto const binding = this->boundTo(this->m_stores.writer);
    expectForAll(this->cases, [&](std::string const& key) {
        QStringList list;
        auto const pieces = rc::gen::container<std::string>(rc::gen::elementOf(std::string("|#a")));
        for (std::string const& element : *rc::gen::container<std::vector<std::string>>(pieces))
            list << QString::fromStdString(element);
        write(key, list, false);
        bool const isReadBack = read(key, QStringList(), false) == list;
        RC_ASSERT(Catalogue::survivesRoundTrip(list) == isReadBack);
        RC_ASSERT(isReadBack == (!list.contains(QString()) && !isTornBySeparator(list)));
    });
}

} // namespace
