// SPDX-License-Identifier: MIT
#include <Storage/EmptyStorage.h>
#include <TestKit/FailingStorage.h>

#include <support/BoundLibrary.h>

#include <atomic>
#include <condition_variable>
#include <future>
#include <thread>
#include <type_traits>

static_assert(std::is_same_v<decltype(&Settings::init), void (*)(SettingsContext const&)>);
static_assert(std::is_same_v<decltype(s_instance), SettingsContext>);
static_assert(std::is_aggregate_v<SettingsContext>, "the record has no constructor of its own");
static_assert(std::is_same_v<decltype(SettingsContext::productInfo), std::weak_ptr<IProductInfo>>);
static_assert(std::is_same_v<decltype(SettingsContext::commonStorage), std::weak_ptr<ISettingsStorage>>);
static_assert(std::is_same_v<decltype(SettingsContext::productStorage), std::weak_ptr<ISettingsStorage>>);
static_assert(std::is_same_v<decltype(SettingsContext::resourcesRoot), Lumora::ioPath>);
static_assert(std::has_virtual_destructor_v<IProductInfo> && std::has_virtual_destructor_v<ISettingsStorage>);
static_assert(std::is_abstract_v<IProductInfo> && std::is_abstract_v<ISettingsStorage>);

namespace {

using Storage::EmptyStorage;

using TestKit::FixedProductInfo;
using TestKit::MemoryStorage;
using TestKit::ScopedBinding;

std::string const key = "key";
bool const common = true;
bool const product = false;

// Counts the control blocks of shared objects, which live for as long as a strong or a weak reference does.
template <typename T>
struct CountingAllocator {
    using value_type = T;
    explicit CountingAllocator(int* blocks) : m_blocks(blocks) {}
    template <typename U>
    CountingAllocator(CountingAllocator<U> const& other) : m_blocks(other.m_blocks)
    {}
    T* allocate(std::size_t count)
    {
        ++*m_blocks;
        return std::allocator<T>().allocate(count);
    }
    void deallocate(T* pointer, std::size_t count)
    {
        --*m_blocks;
        std::allocator<T>().deallocate(pointer, count);
    }
    bool operator==(CountingAllocator const& other) const { return m_blocks == other.m_blocks; }
    bool operator!=(CountingAllocator const& other) const { return !(*this == other); }
    int* m_blocks;
};

TEST(Binding, ContextFieldsStandInTheirOrder)
{
    SettingsContext const context;
    auto const position = [&](auto const& field) {
        return reinterpret_cast<char const*>(&field) - reinterpret_cast<char const*>(&context);
    };
    EXPECT_EQ(position(context.productInfo), 0);
    EXPECT_LT(position(context.productInfo), position(context.commonStorage));
    EXPECT_LT(position(context.commonStorage), position(context.productStorage));
    EXPECT_LT(position(context.productStorage), position(context.resourcesRoot));
}

TEST(Binding, IsEmptyUntilTheFirstInit)
{
    EXPECT_TRUE(s_instance.productInfo.expired());
    EXPECT_TRUE(s_instance.commonStorage.expired());
    EXPECT_TRUE(s_instance.productStorage.expired());
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "");
}

TEST(Binding, InitCopiesEveryField)
{
    ScopedBinding const restored({});
    auto const info = std::make_shared<FixedProductInfo>();
    auto const commonStore = std::make_shared<MemoryStorage>();
    auto const productStore = std::make_shared<MemoryStorage>();
    Settings::init({info, commonStore, productStore, Lumora::ioPath("/the/resources")});
    EXPECT_EQ(s_instance.productInfo.lock(), info);
    EXPECT_EQ(s_instance.commonStorage.lock(), commonStore);
    EXPECT_EQ(s_instance.productStorage.lock(), productStore);
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "/the/resources");
}

TEST(Binding, SecondInitReachesTheSecondPair)
{
    auto const info = std::make_shared<FixedProductInfo>();
    std::shared_ptr<MemoryStorage> const first[] = {std::make_shared<MemoryStorage>(), std::make_shared<MemoryStorage>()};
    std::shared_ptr<MemoryStorage> const second[] = {std::make_shared<MemoryStorage>(), std::make_shared<MemoryStorage>()};
    ScopedBinding const restored({info, first[0], first[1], {}});
    Settings::init({info, second[0], second[1], {}});
    write(key, 1, common);
    write(key, 2, product);
    EXPECT_TRUE(first[0]->values().empty());
    EXPECT_TRUE(first[1]->values().empty());
    EXPECT_EQ(second[0]->getInt(key, 0), 1);
    EXPECT_EQ(second[1]->getInt(key, 0), 2);
    EXPECT_EQ(read(key, 0, common), 1);
    EXPECT_EQ(read(key, 0, product), 2);
}

TEST(Binding, SecondInitLeavesNoReferenceToTheFirstPair)
{
    int blocks = 0;
    CountingAllocator<MemoryStorage> const counting(&blocks);
    auto firstInfo = std::allocate_shared<FixedProductInfo>(counting);
    auto firstCommon = std::allocate_shared<MemoryStorage>(counting);
    auto firstProduct = std::allocate_shared<MemoryStorage>(counting);
    ASSERT_EQ(blocks, 3);
    ScopedBinding const restored({});
    Settings::init({firstInfo, firstCommon, firstProduct, {}});
    write(key, 1, product);
    read(key, 0, common);
    EXPECT_EQ(firstInfo.use_count(), 1);
    EXPECT_EQ(firstCommon.use_count(), 1);
    EXPECT_EQ(firstProduct.use_count(), 1);

    auto const second = std::make_shared<MemoryStorage>();
    auto const secondInfo = std::make_shared<FixedProductInfo>();
    Settings::init({secondInfo, second, second, {}});
    firstInfo.reset();
    firstCommon.reset();
    firstProduct.reset();
    EXPECT_EQ(blocks, 0) << "a control block lives on, so someone still refers to the first pair";
}

TEST(Binding, InitWithTheBoundContextChangesNothing)
{
    auto const store = std::make_shared<MemoryStorage>();
    ScopedBinding const restored({{}, store, store, Lumora::ioPath("/root")});
    Settings::init(s_instance);
    EXPECT_EQ(s_instance.productStorage.lock(), store);
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "/root");
}

// A store that tells how many strong references to itself there are while a call is inside it.
class CountedStorage final : public EmptyStorage {
public:
    std::weak_ptr<CountedStorage> self;
    mutable std::vector<long> counts;
    mutable bool throwing = false;

    void setBool(std::string const&, bool) override { count(); }
    void setInt(std::string const&, int) override { count(); }
    void setString(std::string const&, std::string const&) override { count(); }
    void setBytes(std::string const&, std::vector<unsigned char> const&) override { count(); }
    bool getBool(std::string const&, bool value) const override { return count(), value; }
    int getInt(std::string const&, int value) const override { return count(), value; }
    std::string getString(std::string const&, std::string const& value) const override { return count(), value; }
    std::vector<unsigned char> getBytes(std::string const&, std::vector<unsigned char> const& value) const override
    {
        return count(), value;
    }

private:
    void count() const
    {
        counts.push_back(self.use_count());
        if (throwing)
            throw std::runtime_error("thrown by the store");
    }
};

class OneLock : public testing::Test {
protected:
    OneLock() { m_store->self = m_store; }

    std::shared_ptr<CountedStorage> m_store = std::make_shared<CountedStorage>();
    ScopedBinding m_binding{{{}, m_store, m_store, {}}};
};

std::vector<std::pair<char const*, void (*)()>> const everyOverload = {
    {"read std::string", [] { read(key, std::string(), product); }},
    {"read QString", [] { read(key, QString(), product); }},
    {"read bool", [] { read(key, false, product); }},
    {"read int", [] { read(key, 0, product); }},
    {"read QByteArray", [] { read(key, QByteArray(), product); }},
    {"read rational", [] { read(key, boost::rational<long long>(1, 2), product); }},
    {"read QStringList", [] { read(key, QStringList(), product); }},
    {"write std::string", [] { write(key, std::string(), product); }},
    {"write QString", [] { write(key, QString(), product); }},
    {"write bool", [] { write(key, false, product); }},
    {"write int", [] { write(key, 0, product); }},
    {"write QByteArray", [] { write(key, QByteArray(), product); }},
    {"write rational", [] { write(key, boost::rational<long long>(1, 2), product); }},
    {"write QStringList", [] { write(key, QStringList(), product); }},
};

TEST_F(OneLock, IsHeldDuringEachStoreCallAndDroppedAfterIt)
{
    for (auto const& [name, call] : everyOverload) {
        m_store->counts.clear();
        call();
        bool const isRational = std::string(name).find("rational") != std::string::npos;
        EXPECT_EQ(m_store->counts, std::vector<long>(isRational ? 2 : 1, 2)) << name << ": the owner and one lock";
        EXPECT_EQ(m_store.use_count(), 1) << name;
    }
}

TEST_F(OneLock, IsDroppedWhenTheStoreThrowsAndTheExceptionPasses)
{
    m_store->throwing = true;
    for (auto const& [name, call] : everyOverload) {
        m_store->counts.clear();
        try {
            call();
            ADD_FAILURE() << name << ": nothing was thrown";
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), "thrown by the store") << name;
        }
        EXPECT_EQ(m_store->counts.size(), 1u) << name;
        EXPECT_EQ(m_store.use_count(), 1) << name;
    }
}

// Product information that binds another object while it answers.
struct Replacing final : IProductInfo {
    std::shared_ptr<IProductInfo> next;

    void replace() const
    {
        SettingsContext context = s_instance;
        context.productInfo = next;
        Settings::init(context);
    }
    std::string vendorName() const override { return replace(), "First"; }
    std::string productName() const override { return "First"; }
    std::string sharedDataFolderName() const override { return "First"; }
    int productKind() const override { return replace(), 2; }
    std::string projectFileExtensions() const override { return "first"; }
};

TEST(Relock, EachProductAnswerIsAskedOfWhatIsBoundThen)
{
    TestKit::TemporaryHome const home;
    auto const second = std::make_shared<FixedProductInfo>();
    second->product = "Second";
    second->sharedData = "Second";
    auto const first = std::make_shared<Replacing>();
    first->next = second;
    QString const data = QString::fromStdString((home.path() / ".local/share").string());
    {
        ScopedBinding const binding({first, {}, {}, {}});
        EXPECT_EQ(productDataPath(), data + QStringLiteral("/First/Second"));
    }
    ScopedBinding const binding({first, {}, {}, {}});
    EXPECT_EQ(Settings::defaultWaveformCachePath(), data + QStringLiteral("/First/SharedData/Second/Waveforms/Cache"));
}

TEST(Relock, EachUserFolderAsksWhatIsBoundThen)
{
    struct Folder {
        QString (*function)();
        QString belowData;
    };
    Folder const folders[] = {
        {&Settings::userIntrosPath, QStringLiteral("/First/SharedData/Second/UserImports/")},
        {&Settings::userOverlaysPath, QStringLiteral("/First/SharedData/Second/UserOverlays/")},
        {[] { return Settings::userEffectsPath("fx"); }, QStringLiteral("/First/SharedData/Second/UserEffects/fx/")},
        {&Settings::userUnsplashPath, QStringLiteral("/First/Second/Unsplash/SavedCollection")},
        {&Settings::unsplashContentPath, QStringLiteral("/First/Second/Unsplash/Content")},
        {&Settings::stockPackagesStatisticsPath, QStringLiteral("/First/Second/StockPackagesStats/")},
        {&Settings::packageDeploymentPath, QStringLiteral("/First/SharedData/VideoEditor/Packages/")},
    };
    TestKit::TemporaryHome const home;
    QString const data = QString::fromStdString((home.path() / ".local/share").string());
    auto const second = std::make_shared<FixedProductInfo>();
    second->vendor = second->product = second->sharedData = "Second";
    auto const first = std::make_shared<Replacing>();
    first->next = second;
    for (Folder const& folder : folders) {
        ScopedBinding const binding({first, {}, {}, {}});
        EXPECT_EQ(folder.function(), data + folder.belowData);
    }
}

TEST(Relock, KindIsNoLongerHeldWhenTheStoreIsCalled)
{
    // The object answers, and is dropped by its owner while it does; it must be gone when the store is reached.
    struct Store final : EmptyStorage {
        std::weak_ptr<IProductInfo> watched;
        mutable int goneAtCalls = 0;
        void setString(std::string const&, std::string const&) override { goneAtCalls += watched.expired(); }
        std::string getString(std::string const&, std::string const& value) const override
        {
            return goneAtCalls += watched.expired(), value;
        }
    };
    struct Leaving final : IProductInfo {
        std::shared_ptr<IProductInfo>* owner = nullptr;
        std::string vendorName() const override { return {}; }
        std::string productName() const override { return {}; }
        std::string sharedDataFolderName() const override { return {}; }
        int productKind() const override { return owner->reset(), 0; }
        std::string projectFileExtensions() const override { return {}; }
    };
    auto const store = std::make_shared<Store>();
    auto const calls = {+[] { Settings::targetHistory(); }, +[] { Settings::setTargetHistory("x"); }, +[] { Settings::exportPath(); }};
    for (auto const call : calls) {
        auto leaving = std::make_shared<Leaving>();
        std::shared_ptr<IProductInfo> owner = leaving;
        leaving->owner = &owner;
        leaving.reset();
        store->watched = owner;
        ScopedBinding const binding({owner, store, store, {}});
        call();
    }
    EXPECT_EQ(store->goneAtCalls, 3);
}

TEST(Relock, EachHalfOfARationalIsAskedOfWhatIsBoundThen)
{
    struct First final : EmptyStorage {
        std::shared_ptr<ISettingsStorage> next;
        void replace() const { Settings::init({{}, next, next, {}}); }
        void setInt(std::string const&, int) override { replace(); }
        int getInt(std::string const&, int) const override { return replace(), 3; }
    };
    auto const second = std::make_shared<MemoryStorage>();
    second->setInt("key_N", 100);
    second->setInt("key_D", 5);
    auto const first = std::make_shared<First>();
    first->next = second;
    ScopedBinding const restored({{}, first, first, {}});
    EXPECT_EQ(read(key, boost::rational<long long>(1, 1), product), boost::rational<long long>(3, 5));
    Settings::init({{}, first, first, {}});
    write(key, boost::rational<long long>(7, 8), product);
    EXPECT_EQ(second->getInt("key_N", 0), 100) << "the numerator went to the first store";
    EXPECT_EQ(second->getInt("key_D", 0), 8);
}

// A store whose read waits inside the call until it is let go.
class WaitingStorage final : public EmptyStorage {
public:
    WaitingStorage(std::promise<void>& entered, std::shared_future<void> leave, std::atomic<bool>& destroyed)
        : m_entered(entered), m_leave(std::move(leave)), m_destroyed(destroyed)
    {}
    ~WaitingStorage() override { m_destroyed = true; }

    int getInt(std::string const&, int) const override
    {
        m_entered.set_value();
        m_leave.wait();
        return m_destroyed ? -1 : m_answer;
    }

private:
    std::promise<void>& m_entered;
    std::shared_future<void> m_leave;
    std::atomic<bool>& m_destroyed;
    int m_answer = 7;
};

TEST(Lifetime, StoreDroppedByItsOwnerLivesUntilTheCallInsideItReturns)
{
    std::promise<void> entered;
    std::promise<void> leave;
    std::atomic<bool> destroyed{false};
    auto store = std::make_shared<WaitingStorage>(entered, leave.get_future().share(), destroyed);
    ScopedBinding const binding({{}, {}, store, {}});
    int answer = 0;
    std::thread caller([&] { answer = read(key, 0, product); });
    entered.get_future().wait();
    store.reset();
    EXPECT_FALSE(destroyed) << "the call inside it keeps it alive";
    leave.set_value();
    caller.join();
    EXPECT_EQ(answer, 7);
    EXPECT_TRUE(destroyed) << "nothing keeps it alive after the call";
}

TEST(Lifetime, ManyThreadsReadAtOnceAndLeaveNoReference)
{
    auto store = std::make_shared<MemoryStorage>();
    store->setInt(key, 7);
    ScopedBinding const binding({{}, store, store, {}});
    std::atomic<int> sum{0};
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread)
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round)
                sum += read(key, 0, round % 2 == 0);
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(sum, 4 * 500 * 7);
    EXPECT_EQ(store.use_count(), 1);
}

// --- Broken bindings end the process, in every build type ---

using BrokenBindingDeathTest = testing::Test;

char const productStorageLine[] =
    "^EditorSettings: productStorage is not bound or has been destroyed; call Settings::init with a live store first\n$";
char const commonStorageLine[] =
    "^EditorSettings: commonStorage is not bound or has been destroyed; call Settings::init with a live store first\n$";
char const productInfoLine[] = "^EditorSettings: productInfo is not bound or has been destroyed; "
                               "call Settings::init with a live product-information object first\n$";

TEST(BrokenBindingDeathTest, UnboundCollaboratorEndsTheProcessByName)
{
    EXPECT_EXIT(Settings::lastTarget(), testing::KilledBySignal(SIGABRT), productStorageLine);
    EXPECT_EXIT(Settings::setLastTarget(QString()), testing::KilledBySignal(SIGABRT), productStorageLine);
    EXPECT_EXIT(Settings::autoUpdate(), testing::KilledBySignal(SIGABRT), commonStorageLine);
    EXPECT_EXIT(Settings::setCheckForUpdates(true), testing::KilledBySignal(SIGABRT), commonStorageLine);
    EXPECT_EXIT(nonLocalizedProductName(), testing::KilledBySignal(SIGABRT), productInfoLine);
}

TEST(BrokenBindingDeathTest, EveryOverloadEndsTheProcess)
{
    for (auto const& [name, call] : everyOverload)
        EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT), productStorageLine) << name;
}

// What asks the product information, be it first or later.
std::vector<std::pair<char const*, void (*)()>> const everyUserOfTheProduct = {
    {"nonLocalizedProductName", [] { nonLocalizedProductName(); }},
    {"productDataPath", [] { productDataPath(); }},
    {"defaultLumoraLibraryPath", [] { Settings::defaultLumoraLibraryPath(); }},
    {"defaultWaveformCachePath", [] { Settings::defaultWaveformCachePath(); }},
    {"exportPath", [] { Settings::exportPath(); }},
    {"snapshotPath", [] { Settings::snapshotPath(); }},
    {"waveformCachePath", [] { Settings::waveformCachePath(); }},
    {"targetHistory", [] { Settings::targetHistory(); }},
    {"setTargetHistory", [] { Settings::setTargetHistory({}); }},
    {"userIntrosPath", [] { Settings::userIntrosPath(); }},
    {"userOverlaysPath", [] { Settings::userOverlaysPath(); }},
    {"userEffectsPath", [] { Settings::userEffectsPath({}); }},
    {"userUnsplashPath", [] { Settings::userUnsplashPath(); }},
    {"unsplashContentPath", [] { Settings::unsplashContentPath(); }},
    {"packageDeploymentPath", [] { Settings::packageDeploymentPath(); }},
    {"fastTrackConfigurationPath", [] { Settings::fastTrackConfigurationPath(); }},
    {"waveformConfigurationPath", [] { Settings::waveformConfigurationPath(); }},
    {"stockPackagesStatisticsPath", [] { Settings::stockPackagesStatisticsPath(); }},
    {"deployedPackagesStatisticsPath", [] { Settings::deployedPackagesStatisticsPath(); }},
    {"generateFreezedFilePath", [] { Settings::generateFreezedFilePath(QStringLiteral("/a/clip.mov")); }},
    {"supportedProjectFileExtensions", [] { Settings::supportedProjectFileExtensions(); }},
    {"projectFileExtension", [] { Settings::projectFileExtension(); }},
    {"projectFileSaveFilter", [] { Settings::projectFileSaveFilter(); }},
    {"projectFileOpenFilter", [] { Settings::projectFileOpenFilter(); }},
    {"sampleProjectPath", [] { Settings::sampleProjectPath(); }},
};

TEST(BrokenBindingDeathTest, EveryUserOfTheProductEndsTheProcessWithoutOne)
{
    TestKit::TemporaryHome const home;
    auto const store = std::make_shared<MemoryStorage>();
    ScopedBinding const binding({{}, store, store, {}});
    for (auto const& [name, call] : everyUserOfTheProduct)
        EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT), productInfoLine) << name;
}

TEST(BrokenBindingDeathTest, EveryCompositeAndGeneratorEndsTheProcessWithoutItsStore)
{
    std::pair<char const*, void (*)()> const usersOfTheProductStore[] = {
        {"achievedTutorials", [] { Settings::achievedTutorials(); }},
        {"setAchievedTutorials", [] { Settings::setAchievedTutorials({}); }},
        {"userCustomColors", [] { Settings::userCustomColors(); }},
        {"setUserCustomColors", [] { Settings::setUserCustomColors({}); }},
        {"indicationObject", [] { Settings::indicationObject({}); }},
        {"setIndicationObject", [] { Settings::setIndicationObject({}, {}); }},
        {"favoriteItems", [] { Settings::favoriteItems({}); }},
        {"targetHistory", [] { Settings::targetHistory(); }},
        {"setTargetHistory", [] { Settings::setTargetHistory({}); }},
        {"generateAudioRecordFilePath", [] { Settings::generateAudioRecordFilePath(); }},
        {"generateFreezedFilePath", [] { Settings::generateFreezedFilePath({}); }},
        {"generateStabilizedFilePath", [] { Settings::generateStabilizedFilePath({}, {}); }},
    };
    TestKit::TemporaryHome const home;
    auto const info = std::make_shared<FixedProductInfo>();
    auto const store = std::make_shared<MemoryStorage>();
    {
        ScopedBinding const binding({info, store, {}, {}});
        for (auto const& [name, call] : usersOfTheProductStore)
            EXPECT_EXIT(call(), testing::KilledBySignal(SIGABRT), productStorageLine) << name;
        EXPECT_FALSE(Settings::autoDownloadUpdates()) << "the other store is there";
    }
    ScopedBinding const binding({info, {}, store, {}});
    EXPECT_EXIT(Settings::autoDownloadUpdates(), testing::KilledBySignal(SIGABRT), commonStorageLine);
    EXPECT_EXIT(Settings::setAutoDownloadUpdates(true), testing::KilledBySignal(SIGABRT), commonStorageLine);
}

TEST(Binding, WhatAsksNoCollaboratorWorksWithoutAny)
{
    TestKit::TemporaryHome const home;
    QString const homeFolder = QString::fromStdString(home.path().string());
    ScopedBinding const binding({});
    EXPECT_EQ(Settings::defaultProjectPath(), homeFolder + QStringLiteral("/Videos/Lumora Video Editor/Projects"));
    EXPECT_EQ(Settings::defaultNewsCenterContentPath(), homeFolder + QStringLiteral("/.cache/Lumora Video Editor/News Center"));
    EXPECT_EQ(resourceFile("/a"), "/a");
    EXPECT_EQ(Settings::stockTitlesSvgPath(), QStringLiteral("/resources/samples/stock//titles/"));
    EXPECT_EQ(Settings::stockMusicPath(), QStringLiteral("/Music Library/"));
    EXPECT_EQ(stockSampleProjectsPath(), QStringLiteral("/resources/samples/stock/projects"));
    EXPECT_EQ(Settings::notificationFile(Settings::FinishNotification), QStringLiteral("/resources/samples/notifications/finish.wav"));
    EXPECT_EQ(Settings::countDownImagePath(), QStringLiteral(":/icons/Player/countdownPad.png"));
    EXPECT_EQ(Settings::countFiguresDownFont().pointSize(), 60);
    EXPECT_EQ(Settings::portableProjectMediaPath(), QStringLiteral("/media/"));
    EXPECT_EQ(Settings::projectNameDefault(), QStringLiteral("New Project"));
}

TEST(ProductInformation, ExceptionPassesAndTheLockIsDropped)
{
    struct Throwing final : IProductInfo {
        [[noreturn]] static void fail() { throw std::runtime_error("thrown by the product information"); }
        std::string vendorName() const override { fail(); }
        std::string productName() const override { fail(); }
        std::string sharedDataFolderName() const override { fail(); }
        int productKind() const override { fail(); }
        std::string projectFileExtensions() const override { fail(); }
    };
    auto const info = std::make_shared<Throwing>();
    auto const store = std::make_shared<MemoryStorage>();
    ScopedBinding const binding({info, store, store, {}});
    for (auto const& [name, call] : everyUserOfTheProduct) {
        try {
            call();
            ADD_FAILURE() << name << ": nothing was thrown";
        } catch (std::runtime_error const& error) {
            EXPECT_STREQ(error.what(), "thrown by the product information") << name;
        }
        EXPECT_EQ(info.use_count(), 1) << name;
    }
}

TEST(BrokenBindingDeathTest, DestroyedStoreGivesNoDefault)
{
    auto info = std::make_shared<FixedProductInfo>();
    auto commonStore = std::make_shared<MemoryStorage>();
    auto productStore = std::make_shared<MemoryStorage>();
    ScopedBinding const binding({info, commonStore, productStore, {}});
    productStore.reset();
    EXPECT_EXIT(Settings::keepVideoAspect(), testing::KilledBySignal(SIGABRT), productStorageLine);
    EXPECT_TRUE(Settings::autoUpdate()) << "the other store is still there";
    commonStore.reset();
    EXPECT_EXIT(Settings::autoUpdate(), testing::KilledBySignal(SIGABRT), commonStorageLine);
    info.reset();
    EXPECT_EXIT(nonLocalizedProductName(), testing::KilledBySignal(SIGABRT), productInfoLine);
}

TEST(BrokenBindingDeathTest, FoldersThatDoNotAskTheProductNeedNone)
{
    TestKit::TemporaryHome const home;
    auto const store = std::make_shared<MemoryStorage>();
    ScopedBinding const binding({{}, store, store, {}});
    EXPECT_EQ(Settings::projectPath(),
              QString::fromStdString(home.path().string()) + QStringLiteral("/Videos/Lumora Video Editor/Projects"));
}

} // namespace
