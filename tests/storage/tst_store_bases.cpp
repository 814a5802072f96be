// SPDX-License-Identifier: MIT
//
// The bases for stores: one that holds nothing, and one that forwards.
#include <Storage/EmptyStorage.h>
#include <Storage/ForwardingStorage.h>
#include <TestKit/FailingStorage.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/Recording.h>
#include <TestKit/StorageContract.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace TestKit {

struct ForwardingBackend {
    std::shared_ptr<ISettingsStorage> open() { return std::make_shared<Storage::ForwardingStorage>(store); }

    std::shared_ptr<MemoryStorage> store = std::make_shared<MemoryStorage>();
};
INSTANTIATE_TYPED_TEST_SUITE_P(Forwarding, StorageContract, ForwardingBackend);

} // namespace TestKit

namespace {

using Storage::EmptyStorage;
using Storage::ForwardingStorage;
using TestKit::CallLog;
using TestKit::MemoryStorage;
using TestKit::RecordingStorage;
using Bytes = std::vector<unsigned char>;
using Calls = std::vector<std::string>;

static_assert(!std::is_abstract_v<EmptyStorage> && !std::is_final_v<EmptyStorage>);
static_assert(!std::is_abstract_v<ForwardingStorage> && !std::is_final_v<ForwardingStorage>);

TEST(AnEmptyStorage, ReturnsEveryDefaultAndKeepsNothing)
{
    EmptyStorage store;
    store.setBool("key", true);
    store.setInt("key", 1);
    store.setString("key", "value");
    store.setBytes("key", {1});
    store.remove("key");
    EXPECT_FALSE(store.contains("key"));
    EXPECT_TRUE(store.getBool("key", true));
    EXPECT_FALSE(store.getBool("key", false));
    EXPECT_EQ(store.getInt("key", 42), 42);
    EXPECT_EQ(store.getString("key", "default"), "default");
    EXPECT_EQ(store.getBytes("key", {9}), Bytes{9});
}

TEST(AForwardingStorage, ForwardsEachCallOnceWithItsArguments)
{
    auto const log = std::make_shared<CallLog>();
    ForwardingStorage store(std::make_shared<RecordingStorage>("target", log));
    store.setBool("b", true);
    store.setInt("i", 2);
    store.setString("s", "three");
    store.setBytes("y", {4});
    EXPECT_TRUE(store.contains("b"));
    EXPECT_TRUE(store.getBool("b", false));
    EXPECT_EQ(store.getInt("i", 0), 2);
    EXPECT_EQ(store.getString("s", ""), "three");
    EXPECT_EQ(store.getBytes("y", {}), Bytes{4});
    store.remove("b");
    EXPECT_EQ(log->take(),
              (Calls{"target.setBool(\"b\", true)", "target.setInt(\"i\", 2)", "target.setString(\"s\", \"three\")",
                     "target.setBytes(\"y\", [04])", "target.contains(\"b\")", "target.getBool(\"b\", false)", "target.getInt(\"i\", 0)",
                     "target.getString(\"s\", \"\")", "target.getBytes(\"y\", [])", "target.remove(\"b\")"}));
}

TEST(AForwardingStorage, PassesExceptionsUnchanged)
{
    ForwardingStorage store(std::make_shared<TestKit::FailingStorage>(1));
    EXPECT_THROW(store.setInt("key", 1), TestKit::StorageFailure);
}

TEST(AForwardingStorage, KeepsItsTargetAlive)
{
    auto target = std::make_shared<MemoryStorage>();
    target->setInt("key", 7);
    ForwardingStorage const store(target);
    std::weak_ptr<MemoryStorage> const watched = target;
    target.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(store.getInt("key", 0), 7);
}

TEST(AForwardingStorage, ForwardsWhatASubclassDoesNotOverride)
{
    class Shouting final : public ForwardingStorage {
    public:
        using ForwardingStorage::ForwardingStorage;
        std::string getString(std::string const& key, std::string const& defaultValue) const override
        {
            return ForwardingStorage::getString(key, defaultValue) + '!';
        }
    };
    Shouting store(std::make_shared<MemoryStorage>());
    store.setString("key", "value");
    store.setInt("number", 7);
    EXPECT_EQ(store.getString("key", ""), "value!");
    EXPECT_EQ(store.getInt("number", 0), 7);
}

TEST(AForwardingStorage, AsksASubclassForTheTargetOfEachCall)
{
    class Alternating final : public ForwardingStorage {
    public:
        Alternating(std::shared_ptr<ISettingsStorage> even, std::shared_ptr<ISettingsStorage> odd)
            : ForwardingStorage(std::move(even)), m_odd(std::move(odd))
        {}

    protected:
        ISettingsStorage& target() const override { return m_calls++ % 2 == 0 ? ForwardingStorage::target() : *m_odd; }

    private:
        std::shared_ptr<ISettingsStorage> m_odd;
        mutable int m_calls = 0;
    };
    auto const even = std::make_shared<MemoryStorage>();
    auto const odd = std::make_shared<MemoryStorage>();
    Alternating store(even, odd);
    store.setInt("first", 1);
    store.setInt("second", 2);
    EXPECT_TRUE(even->contains("first"));
    EXPECT_FALSE(even->contains("second"));
    EXPECT_TRUE(odd->contains("second"));
}

} // namespace
