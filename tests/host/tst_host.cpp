// SPDX-License-Identifier: MIT
#include <Host/FileContent.h>
#include <Host/ToolApplication.h>

#include <support/BoundLibrary.h>
#include <support/Named.h>
#include <support/OtherProgram.h>
#include <support/Process.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include <sys/stat.h>

namespace {

using Host::Application;
using Host::ProductFile;
using Host::ProductFileError;
using Host::ToolApplication;

char const complete[] = R"({
  "vendorName": "Maker",
  "productName": "Pr\u00f6duct",
  "sharedDataFolderName": "Common",
  "productKind": 1,
  "projectFileExtensions": ["one", "two"],
  "resourcesRoot": "share/resources"
})";

class ProductFiles : public testing::Test {
protected:
    TestKit::TemporaryHome m_home;
};

TEST_F(ProductFiles, EveryFieldIsAnswered)
{
    ProductFile const product(m_home.write("folder/product.json", complete));
    EXPECT_EQ(product.vendorName(), "Maker");
    EXPECT_EQ(product.productName(), "Pr\xC3\xB6"
                                     "duct");
    EXPECT_EQ(product.sharedDataFolderName(), "Common");
    EXPECT_EQ(product.productKind(), 1);
    EXPECT_EQ(product.projectFileExtensions(), "one,two");
    EXPECT_EQ(product.resourcesRoot(), m_home.path() / "folder/share/resources") << "relative to the product file";
    EXPECT_EQ(product.file().filename(), "product.json");
}

TEST_F(ProductFiles, AbsoluteResourcesRootIsKept)
{
    std::string text = complete;
    text.replace(text.find("share/resources"), 15, "/opt/resources");
    EXPECT_EQ(ProductFile(m_home.write("product.json", text)).resourcesRoot(), "/opt/resources");
}

TEST_F(ProductFiles, ResourcesRootIsAbsoluteAlsoWhenTheFileIsNamedRelatively)
{
    m_home.write("folder/product.json", complete);
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::current_path(m_home.path());
    ProductFile const product("folder/product.json");
    std::filesystem::current_path(earlier);
    EXPECT_EQ(product.resourcesRoot(), m_home.path() / "folder/share/resources");
}

TEST_F(ProductFiles, NoExtensionsAreAllowed)
{
    std::string text = complete;
    text.replace(text.find("[\"one\", \"two\"]"), 14, "[]");
    EXPECT_EQ(ProductFile(m_home.write("product.json", text)).projectFileExtensions(), "");
}

TEST_F(ProductFiles, InstalledFileNamesTheEditor)
{
    ProductFile const product(Host::installedProductFile());
    EXPECT_EQ(product.vendorName(), "Lumora");
    EXPECT_EQ(product.productName(), "Lumora Video Editor");
    EXPECT_EQ(product.productKind(), 0);
    EXPECT_EQ(product.projectFileExtensions(), "lumora");
}

TEST_F(ProductFiles, MissingFileIsNamed)
{
    std::string const file = (m_home.path() / "nowhere.json").string();
    try {
        ProductFile const product(file);
        FAIL() << "it was read";
    } catch (ProductFileError const& error) {
        EXPECT_EQ(std::string(error.what()),
                  "product file " + file +
                      " cannot be read (No such file or directory); check its name and rights, or name another product file");
    }
}

TEST_F(ProductFiles, FileWhoseNameIsNoTextIsNamedAsNearlyAsTextCan)
{
    try {
        ProductFile const product(m_home.path() / "\xFF.json");
        FAIL() << "it was read";
    } catch (ProductFileError const& error) {
        EXPECT_EQ(std::string(error.what()),
                  "product file " + m_home.path().string() +
                      "/\xEF\xBF\xBD.json cannot be read (No such file or directory); check its name and rights, or name another product "
                      "file");
    }
}

std::string withStudio(std::string const& connection)
{
    std::string const last = "\"share/resources\"";
    std::string text = complete;
    return text.replace(text.find(last), last.size(), last + ",\n  \"studio\": \"" + connection + '"');
}

TEST_F(ProductFiles, ConnectionToTheStudioMayBeNamed)
{
    for (char const* const connection :
         {"", "service=studio", "host=db.example dbname=studio passfile=/etc/pass",
          "postgresql://alice@db.example:5432/studio?sslmode=verify-full", "postgresql://db.example:5432/a@b"})
        EXPECT_EQ(ProductFile(m_home.write("product.json", withStudio(connection))).studio(), connection);
    EXPECT_EQ(ProductFile(m_home.write("product.json", complete)).studio(), "");
}

TEST_F(ProductFiles, PasswordInTheConnectionToTheStudioIsRefusedAndNotShown)
{
    for (char const* const connection :
         {"host=db password=hunter2", "postgresql://alice:hunter2@db/studio", "postgresql://db/studio?password=hunter2"}) {
        std::filesystem::path const file = m_home.write("product.json", withStudio(connection));
        try {
            ProductFile const product(file);
            ADD_FAILURE() << connection << " was read";
        } catch (ProductFileError const& error) {
            EXPECT_EQ(std::string(error.what()),
                      "product file " + file.string() + " has a password in field \"studio\"; keep it in ~/.pgpass of each user");
        }
    }
}

struct Wrong {
    char const* meaning;
    std::string from;
    std::string to;
    std::string reason;
};

class WrongProductFile : public ProductFiles, public testing::WithParamInterface<Wrong> {};

TEST_P(WrongProductFile, IsRefusedWithWhatIsAccepted)
{
    std::string text = complete;
    ASSERT_NE(text.find(GetParam().from), std::string::npos);
    text.replace(text.find(GetParam().from), GetParam().from.size(), GetParam().to);
    std::filesystem::path const file = m_home.write("product.json", text);
    try {
        ProductFile const product(file);
        FAIL() << "it was read";
    } catch (ProductFileError const& error) {
        EXPECT_EQ(std::string(error.what()), "product file " + file.string() + ' ' + GetParam().reason);
    }
}

std::string const allFields =
    "the fields are vendorName, productName, sharedDataFolderName, productKind, projectFileExtensions, resourcesRoot, studio, ownKeys";
std::string const folderName = "which takes the name of a folder: not empty, not \".\" or \"..\", without \"/\"";
std::string const wholeNumber = "which takes a whole number from -2147483648 to 2147483647";
std::string const extensions = "which takes an array of texts, none empty, without \".\" and \",\"";

INSTANTIATE_TEST_SUITE_P(
    Table, WrongProductFile,
    testing::Values(
        Wrong{"NotAnObject", complete, "[1]", "is not a JSON object; write the fields between { and }"},
        Wrong{"NothingAtAll", complete, "",
              "is not JSON: parse error at line 1, column 1: syntax error while parsing value - unexpected end of input; expected '[', "
              "'{', or a literal"},
        Wrong{"CutInTheMiddle", ",\n  \"productName\"", "",
              "is not JSON: parse error at line 2, column 24: syntax error while parsing object - unexpected ':'; expected '}'"},
        Wrong{"NoText", "Maker", "\xFF",
              "is not JSON: parse error at line 2, column 18: syntax error while parsing value - invalid string: ill-formed UTF-8 byte; "
              "last read: '\"\xEF\xBF\xBD'"},
        Wrong{"NumberBeyondAll", ": 1", ": 1e999", "(line 5) is not JSON: number overflow parsing '1e999'"},
        Wrong{"NestedWithoutEnd", "\"Maker\"", std::string(200000, '[') + std::string(200000, ']'),
              "(line 2) is nested too deeply; its fields are texts, numbers, arrays of texts, and declared keys"},
        Wrong{"FieldTwice", "\"productName\"", "\"vendorName\"", "(line 3) has the field \"vendorName\" twice; keep one of the two"},
        Wrong{"NestedALittle", "\"Maker\"", "[[{}]]", "(line 2) has the value [[{}]] in field \"vendorName\", which takes a text"},
        Wrong{"UnknownFieldOnTwoLines", "vendorName", "a\\n\\u0000b",
              "(line 2) has a field \"a\\n\\u0000b\" that means nothing; " + allFields},
        Wrong{"UnknownField", "vendorName", "vendor", "(line 2) has a field \"vendor\" that means nothing; " + allFields},
        Wrong{"MissingField", "\"vendorName\": \"Maker\",", "", "has no field \"vendorName\"; " + allFields},
        Wrong{"VendorIsNoText", "\"Maker\"", "7", "(line 2) has the value 7 in field \"vendorName\", which takes a text"},
        Wrong{"VendorIsEmpty", "Maker", "", "(line 2) has the value \"\" in field \"vendorName\", " + folderName},
        Wrong{"ProductIsAPath", "Pr\\u00f6duct", "a/b", "(line 3) has the value \"a/b\" in field \"productName\", " + folderName},
        Wrong{"ProductIsTheFolderItself", "Pr\\u00f6duct", ".", "(line 3) has the value \".\" in field \"productName\", " + folderName},
        Wrong{"SharedFolderIsTheFolderAbove", "Common", "..",
              "(line 4) has the value \"..\" in field \"sharedDataFolderName\", " + folderName},
        Wrong{"SharedFolderHoldsNul", "Common", "a\\u0000b",
              "(line 4) has the value \"a\\u0000b\" in field \"sharedDataFolderName\", " + folderName},
        Wrong{"KindIsAText", ": 1", ": \"1\"", "(line 5) has the value \"1\" in field \"productKind\", " + wholeNumber},
        Wrong{"KindIsAFraction", ": 1", ": 1.5", "(line 5) has the value 1.5 in field \"productKind\", " + wholeNumber},
        Wrong{"KindIsTooLarge", ": 1", ": 2147483648", "(line 5) has the value 2147483648 in field \"productKind\", " + wholeNumber},
        Wrong{"KindIsTooSmall", ": 1", ": -2147483649", "(line 5) has the value -2147483649 in field \"productKind\", " + wholeNumber},
        Wrong{"KindIsHuge", ": 1", ": 18446744073709551615",
              "(line 5) has the value 18446744073709551615 in field \"productKind\", " + wholeNumber},
        Wrong{"ExtensionsAreAText", "[\"one\", \"two\"]", "\"one\"",
              "(line 6) has the value \"one\" in field \"projectFileExtensions\", " + extensions},
        Wrong{"ExtensionIsANumber", "\"one\"", "1", "(line 6) has the value [1,\"two\"] in field \"projectFileExtensions\", " + extensions},
        Wrong{"ExtensionHasADot", "\"one\"", "\".one\"",
              "(line 6) has the value [\".one\",\"two\"] in field \"projectFileExtensions\", " + extensions},
        Wrong{"ExtensionHasAComma", "\"one\"", "\"a,b\"",
              "(line 6) has the value [\"a,b\",\"two\"] in field \"projectFileExtensions\", " + extensions},
        Wrong{"ExtensionIsEmpty", "\"one\"", "\"\"",
              "(line 6) has the value [\"\",\"two\"] in field \"projectFileExtensions\", " + extensions},
        Wrong{"ResourcesRootHoldsNul", "share/resources", "a\\u0000b",
              "(line 7) has the value \"a\\u0000b\" in field \"resourcesRoot\", which takes a path"},
        Wrong{"ResourcesRootIsNoText", "\"share/resources\"", "null",
              "(line 7) has the value null in field \"resourcesRoot\", which takes a text"}),
    byMeaning);

TEST_F(ProductFiles, WhatFollowsANulIsNotPassedOver)
{
    std::filesystem::path const file = m_home.write("product.json", complete + std::string("\0and more", 9));
    try {
        ProductFile const product(file);
        FAIL() << "it was read";
    } catch (ProductFileError const& error) {
        EXPECT_EQ(std::string(error.what()), "product file " + file.string() + " is not JSON: it holds a NUL");
    }
}

TEST_F(ProductFiles, ContentOfAFileIsWholeOrAnError)
{
    std::string const content("a\0b\n", 4);
    EXPECT_EQ(Host::fileContent(m_home.write("file", content)), content);
    EXPECT_EQ(Host::fileContent(m_home.write("empty", "")), "");
    EXPECT_EQ(Host::fileContent(m_home.write("long", std::string(200001, 'x'))), std::string(200001, 'x'));
    EXPECT_THROW(Host::fileContent(m_home.path() / "nowhere"), std::system_error);
    EXPECT_THROW(Host::fileContent(m_home.path()), std::system_error) << "a folder is not an empty file";
}

// --- The application ---

class Applications : public ProductFiles {
protected:
    std::filesystem::path const m_productFile = m_home.write("product.json", complete);
    std::filesystem::path const m_data = m_home.path() / ".local/share";
};

TEST_F(Applications, StoresLieWithTheProductAndWithTheVendor)
{
    ToolApplication const application(m_productFile);
    EXPECT_EQ(application.productStorage()->file(), m_data / "Maker/Pr\xC3\xB6"
                                                             "duct/product-settings.sqlite");
    EXPECT_EQ(application.commonStorage()->file(), m_data / "Maker/common-settings.sqlite");
    EXPECT_TRUE(std::filesystem::exists(application.productStorage()->file()));
    EXPECT_TRUE(std::filesystem::exists(application.commonStorage()->file()));
}

TEST_F(Applications, StoresLieInOneFolderWhereOneIsNamed)
{
    ToolApplication const application(m_productFile, {m_home.path() / "elsewhere"});
    EXPECT_EQ(application.productStorage()->file(), m_home.path() / "elsewhere/product-settings.sqlite");
    EXPECT_EQ(application.commonStorage()->file(), m_home.path() / "elsewhere/common-settings.sqlite");
    EXPECT_FALSE(std::filesystem::exists(m_data)) << "nothing is made where the stores would else lie";
}

TEST_F(Applications, FolderOfTheStoresIsMeantFromTheCurrentFolder)
{
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::current_path(m_home.path());
    ToolApplication const application(m_productFile, {"elsewhere", Host::StorePolicy::leaveOutMissing});
    std::filesystem::current_path(earlier);
    EXPECT_EQ(application.commonStorageFile(), m_home.path() / "elsewhere/common-settings.sqlite");
    EXPECT_EQ(application.productStorageFile(), m_home.path() / "elsewhere/product-settings.sqlite");
}

TEST_F(Applications, CurrentFolderThatIsGoneIsAnErrorOfTheStore)
{
    std::filesystem::path const earlier = std::filesystem::current_path();
    std::filesystem::create_directory(m_home.path() / "gone");
    std::filesystem::current_path(m_home.path() / "gone");
    std::filesystem::remove(m_home.path() / "gone");
    EXPECT_THROW(ToolApplication(m_productFile, {"elsewhere"}), Storage::StorageError);
    std::filesystem::current_path(earlier);
}

TEST_F(Applications, MissingStoresAreLeftOutWhereAskedFor)
{
    ToolApplication const application(m_productFile, {m_home.path() / "elsewhere", Host::StorePolicy::leaveOutMissing});
    EXPECT_FALSE(application.commonStorage());
    EXPECT_FALSE(application.productStorage());
    EXPECT_EQ(application.commonStorageFile(), m_home.path() / "elsewhere/common-settings.sqlite");
    EXPECT_EQ(application.productStorageFile(), m_home.path() / "elsewhere/product-settings.sqlite");
    EXPECT_EQ(Settings::exportPath(), QString::fromStdString(m_home.path().string()) + QStringLiteral("/Videos/Lumora Video Editor"));
    EXPECT_TRUE(Settings::autoUpdate());
    EXPECT_EQ(Settings::npsSendCount(), 0);
    EXPECT_EQ(Settings::mainWindowState(), QByteArray());
    EXPECT_THROW(Settings::setNPSSendCount(1), std::logic_error);
    EXPECT_THROW(Settings::setKeepVideoAspect(true), std::logic_error);
    EXPECT_THROW(Settings::setExportPath(QString()), std::logic_error);
    EXPECT_THROW(Settings::setMainWindowState({}), std::logic_error);
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "elsewhere")) << "looking creates nothing";
}

TEST_F(Applications, StoreThatIsThereIsOpenedAlsoWhereTheOtherIsMissing)
{
    {
        ToolApplication const application(m_productFile);
        Settings::setNPSSendCount(5);
    }
    std::filesystem::remove(m_data / "Maker/common-settings.sqlite");
    ToolApplication const application(m_productFile, {std::nullopt, Host::StorePolicy::leaveOutMissing});
    EXPECT_FALSE(application.commonStorage());
    EXPECT_EQ(Settings::npsSendCount(), 5);
}

TEST_F(Applications, StoreThatIsNotAskedForIsNeitherOpenedNorMade)
{
    std::filesystem::path const damaged = m_home.write("elsewhere/product-settings.sqlite", "not a store");
    Host::Application::Options options{m_home.path() / "elsewhere"};
    options.onlyStore = "common";
    {
        ToolApplication const application(m_productFile, options);
        EXPECT_TRUE(application.commonStorage());
        EXPECT_FALSE(application.productStorage());
        EXPECT_FALSE(application.productStorageError());
        EXPECT_EQ(application.productStorageFile(), damaged);
        EXPECT_EQ(Settings::npsSendCount(), 0);
        EXPECT_THROW(Settings::setNPSSendCount(1), std::logic_error);
    }
    std::filesystem::remove_all(m_home.path() / "elsewhere");
    options.onlyStore = "product";
    ToolApplication const application(m_productFile, options);
    EXPECT_TRUE(application.productStorage());
    EXPECT_FALSE(application.commonStorage());
    EXPECT_FALSE(std::filesystem::exists(application.commonStorageFile()));
}

TEST_F(Applications, DanglingLinkIsNoMissingStore)
{
    std::filesystem::create_directory(m_home.path() / "elsewhere");
    std::filesystem::create_symlink("nowhere", m_home.path() / "elsewhere/product-settings.sqlite");
    EXPECT_THROW(ToolApplication(m_productFile, {m_home.path() / "elsewhere", Host::StorePolicy::leaveOutMissing}), Storage::StorageError);
}

TEST_F(Applications, UnusableStoreIsLeftOutWithItsReasonWhereAskedFor)
{
    std::filesystem::path const damaged = m_home.write("elsewhere/product-settings.sqlite", "not a store");
    ToolApplication const application(m_productFile, {m_home.path() / "elsewhere", Host::StorePolicy::leaveOutUnusable});
    EXPECT_FALSE(application.productStorage());
    ASSERT_TRUE(application.productStorageError());
    EXPECT_EQ(application.productStorageError()->code(), Storage::StorageError::Code::damaged);
    EXPECT_EQ(std::string(application.productStorageError()->what()), damaged.string() +
                                                                          ": cannot open the store: file is not a database; the file was "
                                                                          "left as it is: move it away and restore it from a backup");
    EXPECT_FALSE(application.commonStorage());
    EXPECT_FALSE(application.commonStorageError()) << "it is missing";
    EXPECT_EQ(Settings::npsSendCount(), 0);
    EXPECT_EQ(std::filesystem::file_size(damaged), 11u);
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "elsewhere/common-settings.sqlite"));
}

TEST_F(Applications, LibraryIsBoundToFileAndStores)
{
    ToolApplication const application(m_productFile);
    EXPECT_EQ(nonLocalizedProductName(), QString::fromUtf16(u"Pr\u00F6duct"));
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), (m_home.path() / "share/resources").string());
    Settings::setKeepVideoAspect(false);
    Settings::setCheckForUpdates(false);
    EXPECT_EQ(application.productStorage()->rows().size(), 1u);
    EXPECT_EQ(application.commonStorage()->rows().size(), 1u);
    EXPECT_FALSE(application.productStorage()->getBool("keepVideoAspect", true));
    EXPECT_FALSE(application.commonStorage()->getBool("autoUpdate", true));
}

TEST_F(Applications, PreferencesSurviveTheApplication)
{
    {
        ToolApplication const application(m_productFile);
        Settings::setExportPath(QStringLiteral("/films"));
    }
    ToolApplication const application(m_productFile);
    EXPECT_EQ(Settings::exportPath(), QStringLiteral("/films"));
}

TEST_F(Applications, CallAfterTheApplicationEndsTheProcess)
{
    {
        ToolApplication const application(m_productFile);
    }
    EXPECT_EXIT(Settings::exportPath(), testing::KilledBySignal(SIGABRT), "productInfo is not bound or has been destroyed");
    EXPECT_EXIT(Settings::autoUpdate(), testing::KilledBySignal(SIGABRT), "commonStorage is not bound or has been destroyed");
}

TEST_F(Applications, HostBringsItsOwnProductInformation)
{
    Application const application(std::make_shared<TestKit::FixedProductInfo>(), "/opt/resources");
    EXPECT_EQ(application.productStorageFile(), m_data / "Vendor/Product/product-settings.sqlite");
    EXPECT_EQ(s_instance.resourcesRoot.utf8string(), "/opt/resources");
    Settings::setKeepVideoAspect(false);
    EXPECT_FALSE(application.productStorage()->getBool("keepVideoAspect", true));
}

TEST_F(Applications, ProductInformationLivesAsLongAsTheApplication)
{
    auto product = std::make_shared<TestKit::FixedProductInfo>();
    std::weak_ptr<IProductInfo> const watched = product;
    {
        Application const application(std::move(product), {});
        EXPECT_EQ(nonLocalizedProductName(), QStringLiteral("Product"));
    }
    EXPECT_TRUE(watched.expired());
}

TEST_F(Applications, StoresAreOpenedWithTheOptionsOfTheHost)
{
    Host::ToolApplication::Options options;
    options.store.busyTimeout = std::chrono::milliseconds(1);
    ToolApplication const application(m_productFile, options);
    EXPECT_EQ(application.storeOptions().busyTimeout, std::chrono::milliseconds(1));
    OtherProgram other(application.productStorageFile());
    other.execute("BEGIN IMMEDIATE");
    auto const start = std::chrono::steady_clock::now();
    EXPECT_THROW(Settings::setNPSSendCount(1), Storage::StorageError);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(4)) << "by default it waits for five";
}

class Homes : public Applications {
protected:
    Homes() { ::unsetenv("XDG_DATA_HOME"); }

    // What a host shows where it starts with `home`, or "" where it starts.
    static std::string shownWith(char const* home, Host::StorePolicy policy = Host::StorePolicy::create)
    {
        home ? ::setenv("HOME", home, 1) : ::unsetenv("HOME");
        try {
            Application const application(std::make_shared<TestKit::FixedProductInfo>(), {}, {{}, policy, {}});
            return {};
        } catch (Storage::StorageError const& error) {
            return error.what();
        }
    }

    std::string const m_file = m_home.write("file", "").string();
    std::string const m_nowhere = (m_home.path() / "nowhere").string();
};

TEST_F(Homes, AreRefusedWhereNobodyWouldFindTheStoresAgain)
{
    EXPECT_EQ(shownWith(nullptr),
              "//.local/share/Vendor/Product: cannot keep the stores: HOME is not set, so / is taken for the home folder; set HOME to your "
              "folder");
    EXPECT_EQ(shownWith(""), shownWith(nullptr));
    EXPECT_EQ(shownWith("home/u"), "home/u/.local/share/Vendor/Product: cannot keep the stores: HOME is 'home/u', which depends on the "
                                   "folder that a program is started in; set HOME to your folder");
    EXPECT_EQ(shownWith(m_file.c_str()), m_file + "/.local/share/Vendor/Product: cannot keep the stores: HOME is '" + m_file +
                                             "', which is not a folder; set HOME to your folder");
    EXPECT_EQ(shownWith(m_nowhere.c_str()), m_nowhere + "/.local/share/Vendor/Product: cannot keep the stores: HOME is '" + m_nowhere +
                                                "', which is not there; set HOME to your folder");
    EXPECT_FALSE(std::filesystem::exists(m_nowhere));
}

TEST_F(Homes, AreNotNeededWhereTheStoresLieElsewhere)
{
    ::unsetenv("HOME");
    EXPECT_NO_THROW(Application(std::make_shared<TestKit::FixedProductInfo>(), {}, {m_home.path() / "elsewhere"}));
    ::setenv("XDG_DATA_HOME", (m_home.path() / "data").c_str(), 1);
    EXPECT_EQ(shownWith(nullptr), "");
    EXPECT_TRUE(std::filesystem::exists(m_home.path() / "data/Vendor/Product/product-settings.sqlite"));
}

TEST_F(Homes, FolderOfDataIsRefusedWhereTheToolsWouldNotLookThere)
{
    ::setenv("XDG_DATA_HOME", "data", 1);
    EXPECT_EQ(shownWith(m_home.path().c_str()), "data/Vendor/Product: cannot keep the stores: XDG_DATA_HOME is 'data', which is not "
                                                "absolute; unset it, or set it to an absolute path");
    EXPECT_FALSE(std::filesystem::exists("data"));
}

TEST_F(Homes, AreNotNeededByAProgramThatOnlyReads)
{
    EXPECT_EQ(shownWith(m_nowhere.c_str(), Host::StorePolicy::leaveOutMissing), "");
    EXPECT_FALSE(std::filesystem::exists(m_nowhere));
}

TEST_F(Applications, NewerStoreIsReadAndItsErrorComesWithAChange)
{
    {
        ToolApplication const application(m_productFile);
        Settings::setNPSSendCount(5);
    }
    OtherProgram((m_data / "Maker/Pr\xC3\xB6"
                           "duct/product-settings.sqlite"))
        .execute("PRAGMA user_version = 2");
    ToolApplication const application(m_productFile);
    EXPECT_EQ(Settings::npsSendCount(), 5);
    ASSERT_TRUE(application.productStorage()->readOnlyError());
    EXPECT_EQ(application.productStorage()->readOnlyError()->code(), Storage::StorageError::Code::newer);
    EXPECT_THROW(Settings::setNPSSendCount(6), Storage::StorageError);
}

TEST_F(Applications, DamagedStoreIsAnErrorAndStaysAsItIs)
{
    std::filesystem::path const file = m_home.write("elsewhere/product-settings.sqlite", "not a store");
    EXPECT_THROW(ToolApplication(m_productFile, {m_home.path() / "elsewhere"}), Storage::StorageError);
    EXPECT_EQ(std::filesystem::file_size(file), 11u);
}

} // namespace
