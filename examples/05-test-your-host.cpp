// SPDX-License-Identifier: MIT
//
// Tests of a host, with the test kit: no test sees the user's settings, and none leaves anything behind.
//
// The host here is one function. The kit gives what it would find: a home folder, product information, and stores that
// keep values in memory, note every call, or fail on request.
#include <Settings/Settings.h>
#include <TestKit/FailingStorage.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/Recording.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <gtest/gtest.h>

namespace {

// --- The host: takes the user's folder for exports, and resets it where it is empty ---

bool useExportFolder(QString const& folder)
{
    bool const isOwn = !folder.isEmpty();
    Settings::setExportPath(isOwn ? folder : Settings::defaultLumoraLibraryPath());
    return isOwn;
}

// --- Its tests ---

std::shared_ptr<IProductInfo> const product = std::make_shared<TestKit::FixedProductInfo>();

TEST(ExportFolder, IsStored)
{
    auto const store = std::make_shared<TestKit::MemoryStorage>();
    TestKit::ScopedBinding const binding({product, store, store, {}});
    EXPECT_TRUE(useExportFolder(QStringLiteral("/films")));
    EXPECT_EQ(store->getString("exportPath", ""), "/films");
}

TEST(ExportFolder, EmptyOneIsTheLibraryOfTheUser)
{
    TestKit::TemporaryHome const home;
    auto const store = std::make_shared<TestKit::MemoryStorage>();
    TestKit::ScopedBinding const binding({product, store, store, {}});
    EXPECT_FALSE(useExportFolder(QString()));
    EXPECT_EQ(store->getString("exportPath", ""), home.path().string() + "/Videos/Lumora Library");
}

TEST(ExportFolder, IsStoredOnceAndInTheProductsStore)
{
    auto const log = std::make_shared<TestKit::CallLog>();
    auto const common = std::make_shared<TestKit::RecordingStorage>("common", log);
    auto const own = std::make_shared<TestKit::RecordingStorage>("product", log);
    TestKit::ScopedBinding const binding({product, common, own, {}});
    useExportFolder(QStringLiteral("/films"));
    EXPECT_EQ(log->take(), std::vector<std::string>{R"(product.setString("exportPath", "/films"))"});
}

TEST(ExportFolder, StoreThatFailsIsNotHidden)
{
    auto const store = std::make_shared<TestKit::FailingStorage>(1);
    TestKit::ScopedBinding const binding({product, store, store, {}});
    EXPECT_THROW(useExportFolder(QStringLiteral("/films")), TestKit::StorageFailure);
}

} // namespace
