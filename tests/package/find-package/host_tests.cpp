// SPDX-License-Identifier: MIT
#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/StorageContract.h>

struct OwnBackend {
    std::shared_ptr<ISettingsStorage> open() { return store; }
    std::shared_ptr<ISettingsStorage> store = std::make_shared<TestKit::MemoryStorage>();
};
namespace TestKit {
INSTANTIATE_TYPED_TEST_SUITE_P(Own, StorageContract, OwnBackend);
}

TEST(Host, AsksTheLibrary)
{
    auto const store = std::make_shared<TestKit::MemoryStorage>();
    TestKit::ScopedBinding const binding({std::make_shared<TestKit::FixedProductInfo>(), store, store, {}});
    Settings::setNPSSendCount(3);
    EXPECT_EQ(store->getInt("npsSendCount", 0), 3);
}
