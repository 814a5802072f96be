// SPDX-License-Identifier: MIT
#include <TestKit/FailingStorage.h>
#include <TestKit/StorageContract.h>

#include <support/BoundLibrary.h>
#include <support/Process.h>

#include <cstdlib>
#include <filesystem>

namespace TestKit {

struct MemoryBackend {
    std::shared_ptr<ISettingsStorage> open() { return store; }

    std::shared_ptr<MemoryStorage> store = std::make_shared<MemoryStorage>();
};
INSTANTIATE_TYPED_TEST_SUITE_P(Memory, StorageContract, MemoryBackend);

struct RecordingBackend {
    std::shared_ptr<ISettingsStorage> open() { return store; }

    std::shared_ptr<RecordingStorage> store = std::make_shared<RecordingStorage>("store", std::make_shared<CallLog>());
};
INSTANTIATE_TYPED_TEST_SUITE_P(Recording, StorageContract, RecordingBackend);

struct NeverFailingBackend {
    std::shared_ptr<ISettingsStorage> open() { return store; }

    std::shared_ptr<FailingStorage> store = std::make_shared<FailingStorage>(0);
};
INSTANTIATE_TYPED_TEST_SUITE_P(NeverFailing, StorageContract, NeverFailingBackend);

} // namespace TestKit

namespace {

using namespace TestKit;

TEST(RecordingKit, LogsEveryOperationWithItsArguments)
{
    auto const log = std::make_shared<CallLog>();
    RecordingStorage store("store", log);
    store.setBool("b", false);
    store.setInt("i", -1);
    store.setString("s", "a\"b\\c\n");
    store.setBytes("y", {0, 10, 255});
    store.contains("b");
    store.remove("b");
    store.getBool("b", true);
    store.getInt("i", 2);
    store.getString("s", "");
    store.getBytes("y", {});
    EXPECT_EQ(log->take(),
              (Calls{"store.setBool(\"b\", false)", "store.setInt(\"i\", -1)", "store.setString(\"s\", \"a\\\"b\\\\c\\x0a\")",
                     "store.setBytes(\"y\", [00 0a ff])", "store.contains(\"b\")", "store.remove(\"b\")", "store.getBool(\"b\", true)",
                     "store.getInt(\"i\", 2)", "store.getString(\"s\", \"\")", "store.getBytes(\"y\", [])"}));
    EXPECT_EQ(log->take(), Calls{});
}

TEST(RecordingKit, LogsACallThatThrows)
{
    auto const log = std::make_shared<CallLog>();
    RecordingStorage store("store", log, std::make_shared<FailingStorage>(1));
    EXPECT_THROW(store.setInt("i", 1), StorageFailure);
    EXPECT_EQ(log->take(), (Calls{"store.setInt(\"i\", 1)"}));
}

TEST(RecordingKit, PassesEachOperationOfTheProductToARecordOfTheCallersOwn)
{
    std::vector<std::string> operations;
    auto const record = [&](std::string const& operation) { operations.push_back(operation); };
    RecordingProductInfo const info(record, std::make_shared<FixedProductInfo>());
    info.productKind();
    info.vendorName();
    EXPECT_EQ(operations, (std::vector<std::string>{"productKind", "vendorName"}));
}

TEST(RecordingKit, LogsWhatTheProductIsAsked)
{
    auto const log = std::make_shared<CallLog>();
    RecordingProductInfo const info(log, std::make_shared<FixedProductInfo>());
    EXPECT_EQ(info.vendorName(), "Vendor");
    EXPECT_EQ(info.productName(), "Product");
    EXPECT_EQ(info.sharedDataFolderName(), "Shared");
    EXPECT_EQ(info.productKind(), 0);
    EXPECT_EQ(info.projectFileExtensions(), "ext1,ext2");
    EXPECT_EQ(log->take(), (Calls{"productInfo.vendorName()", "productInfo.productName()", "productInfo.sharedDataFolderName()",
                                  "productInfo.productKind()", "productInfo.projectFileExtensions()"}));
}

TEST(FailingKit, ThrowsAtTheCallThatIsNamedAndAtNoOther)
{
    auto const inner = std::make_shared<MemoryStorage>();
    FailingStorage store(3, inner);
    store.setInt("a", 1);
    EXPECT_EQ(store.getInt("a", 0), 1);
    try {
        store.setInt("a", 2);
        FAIL() << "nothing was thrown";
    } catch (StorageFailure const& failure) {
        EXPECT_STREQ(failure.what(), "the store fails at call 3");
    }
    EXPECT_EQ(inner->getInt("a", 0), 1) << "the failing call is not handed on";
    store.setInt("a", 4);
    EXPECT_EQ(store.getInt("a", 0), 4);
}

TEST(ScopedBindingKit, RestoresTheEarlierBinding)
{
    auto const outer = std::make_shared<MemoryStorage>();
    auto const inner = std::make_shared<MemoryStorage>();
    {
        ScopedBinding const outerBinding({{}, outer, {}, Lumora::ioPath("/outer")});
        {
            ScopedBinding const innerBinding({{}, inner, inner, {}});
            EXPECT_EQ(s_instance.commonStorage.lock(), inner);
            EXPECT_EQ(s_instance.productStorage.lock(), inner);
        }
        EXPECT_EQ(s_instance.commonStorage.lock(), outer);
        EXPECT_FALSE(s_instance.productStorage.lock());
        EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "/outer");
    }
    EXPECT_FALSE(s_instance.commonStorage.lock());
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "");
}

std::string variable(char const* name)
{
    char const* const value = std::getenv(name);
    return value ? value : "unset";
}

TEST(TemporaryHomeKit, PointsEveryVariableIntoItsFolder)
{
    ::setenv("XDG_SESSION_TYPE", "test", 1);
    std::string const earlierHome = variable("HOME");
    std::string const earlierConfig = variable("XDG_CONFIG_HOME");
    std::filesystem::path folder;
    {
        TemporaryHome const home;
        folder = home.path();
        EXPECT_TRUE(folder.is_absolute());
        EXPECT_TRUE(std::filesystem::is_empty(folder / ".runtime"));
        EXPECT_EQ(std::filesystem::status(folder / ".runtime").permissions(), std::filesystem::perms::owner_all);
        EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
        EXPECT_EQ(variable("HOME"), folder);
        for (char const* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR",
                                 "XDG_CONFIG_DIRS", "XDG_DATA_DIRS"})
            EXPECT_EQ(variable(name).find(folder.string() + "/."), 0u) << name << '=' << variable(name);
        EXPECT_EQ(variable("XDG_SESSION_TYPE"), "unset");
        home.write("a/b/file", "text");
        EXPECT_EQ(std::filesystem::file_size(folder / "a/b/file"), 4u);
    }
    EXPECT_FALSE(std::filesystem::exists(folder));
    EXPECT_EQ(variable("HOME"), earlierHome);
    EXPECT_EQ(variable("XDG_CONFIG_HOME"), earlierConfig);
    EXPECT_EQ(variable("XDG_SESSION_TYPE"), "test");
    ::unsetenv("XDG_SESSION_TYPE");
}

TEST(TemporaryHomeKit, FolderIsNamedWithoutSymbolicLinks)
{
    TemporaryHome const outer;
    std::filesystem::create_directory(outer.path() / "real");
    std::filesystem::create_directory_symlink("real", outer.path() / "link");
    std::string const earlier = variable("TMPDIR");
    ::setenv("TMPDIR", (outer.path() / "link").c_str(), 1);
    {
        TemporaryHome const inner;
        EXPECT_EQ(inner.path().parent_path(), outer.path() / "real");
    }
    if (earlier == "unset")
        ::unsetenv("TMPDIR");
    else
        ::setenv("TMPDIR", earlier.c_str(), 1);
}

TEST(TemporaryHomeKit, HomesNestAndDiffer)
{
    TemporaryHome const outer;
    {
        TemporaryHome const inner;
        EXPECT_NE(inner.path(), outer.path());
        EXPECT_EQ(variable("HOME"), inner.path());
    }
    EXPECT_EQ(variable("HOME"), outer.path());
}

TEST(TemporaryHomeKit, EveryTestProgramRunsInOne)
{
    EXPECT_EQ(variable("HOME").find(std::filesystem::canonical(std::filesystem::temp_directory_path()).string() + "/home."), 0u);
}

} // namespace
