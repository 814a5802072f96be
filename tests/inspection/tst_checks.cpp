// SPDX-License-Identifier: MIT
//
// Each check finds its fault in real stores and real folders, and nothing in sound ones.
#include <Inspection/checks/FolderChecks.h>
#include <Inspection/checks/StoreFileChecks.h>
#include <Inspection/checks/StoredValueChecks.h>

#include <Inspection/Locations.h>

#include <Host/ToolApplication.h>
#include <Settings/Settings.h>
#include <TestKit/TemporaryHome.h>

#include <support/Named.h>
#include <support/OtherProgram.h>
#include <support/Process.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace Inspection;
using Catalogue::Store;
using Storage::SqliteStorage;
namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

class Checks : public testing::Test {
protected:
    Checks()
    {
        SqliteStorage(product()).setInt("npsSendCount", 1);
        SqliteStorage(common()).setBool("autoUpdate", false);
    }

    std::string inHome(std::string const& relative) const { return (m_home.path() / relative).string(); }
    std::string product() const { return inHome("stores/product-settings.sqlite"); }
    std::string common() const { return inHome("stores/common-settings.sqlite"); }

    Host::ToolApplication application(std::string const& stores = "stores") const
    {
        return Host::ToolApplication(m_productFile, {inHome(stores), Host::StorePolicy::leaveOutUnusable});
    }

    // "severity|check|store|key|path|what|remedy" and the names for each finding, with "~" for the home folder.
    Lines linesOf(Findings const& findings) const
    {
        Lines lines;
        for (Finding const& finding : findings) {
            std::string const store = !finding.store ? "" : *finding.store == Store::product ? "product" : "common";
            std::string line = std::string(severityName(finding.severity)) + '|' + checkName(finding.check) + '|' + store + '|' +
                               finding.key + '|' + finding.path + '|' + finding.what + '|' + finding.remedy;
            for (std::string const& name : finding.names)
                line += (&name == &finding.names.front() ? '|' : ' ') + name;
            for (std::size_t at = 0; (at = line.find(m_home.path().string(), at)) != std::string::npos;)
                line.replace(at, m_home.path().string().size(), "~");
            lines.push_back(line);
        }
        return lines;
    }

    // The findings about a store, as if it were on a local disk.
    Lines found(Store store, std::string const& stores = "stores") const
    {
        Host::ToolApplication const bound = application(stores);
        ExaminedStore examined = examine(bound, store);
        examined.fileSystem = {"ext4", "/", false, Storage::Locality::local};
        Findings findings = checkStoreFile(examined);
        Findings const values = checkStoredValues(bound, examined);
        findings.insert(findings.end(), values.begin(), values.end());
        return linesOf(findings);
    }

    // What `check` finds as a user for whom the rights of files count.
    template <typename Check>
    std::string foundByOrdinaryUser(Check const& check) const
    {
        if (::geteuid() == 0) {
            for (fs::directory_entry const& entry : fs::recursive_directory_iterator(m_home.path()))
                EXPECT_EQ(::chown(entry.path().c_str(), ordinaryUser, ordinaryUser), 0);
            EXPECT_EQ(::chown(m_home.path().c_str(), ordinaryUser, ordinaryUser), 0);
        }
        auto const work = [&] {
            std::string text;
            for (std::string const& line : check())
                text += line + '\n';
            return text;
        };
        return inChild(work, true);
    }

    TestKit::TemporaryHome m_home;
    fs::path const m_productFile =
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                     R"( "projectFileExtensions": [], "resourcesRoot": "r"})");
};

// --- The file of a store ---

TEST_F(Checks, SoundStoresHaveNoFindings)
{
    EXPECT_EQ(found(Store::product), Lines());
    EXPECT_EQ(found(Store::common), Lines());
    ExaminedStore const examined = examine(application(), Store::product);
    EXPECT_EQ(examined.state, StoreState::usable);
    EXPECT_EQ(examined.report.schemaVersion, 1);
    EXPECT_EQ(examined.rows.size(), 1u);
}

TEST_F(Checks, MissingStoreIsNoted)
{
    EXPECT_EQ(
        found(Store::common, "none"),
        (Lines{"note|store-missing|common||~/none/common-settings.sqlite|nothing is stored there yet|nothing to do: the store is made "
               "when something is stored"}));
    EXPECT_EQ(examine(application("none"), Store::common).state, StoreState::missing);
    EXPECT_FALSE(fs::exists(inHome("none")));
}

TEST_F(Checks, FileThatIsNoStoreIsUnusable)
{
    std::ofstream(product(), std::ios::trunc) << "not a store";
    EXPECT_EQ(found(Store::product),
              (Lines{"error|store-unusable|product||~/stores/product-settings.sqlite|cannot open the store: file is not a database|the "
                     "file was left as it is: move it away and restore it from a backup"}));
    EXPECT_EQ(examine(application(), Store::product).state, StoreState::unusable);
    EXPECT_EQ(found(Store::common), Lines());
}

TEST_F(Checks, DamageThatOnlyAWholeReadShowsMakesAStoreUnusable)
{
    {
        SqliteStorage store(product());
        for (int number = 0; number < 200; ++number)
            store.setString("Indication/" + std::to_string(number), std::string(100, 'x'));
    }
    std::fstream stream(product(), std::ios::binary | std::ios::in | std::ios::out);
    stream.seekp(4 * 4096);
    stream << std::string(4096, '\0');
    stream.close();
    EXPECT_EQ(found(Store::product),
              (Lines{"error|store-unusable|product||~/stores/product-settings.sqlite|cannot open the store: the file is damaged (Page 5: "
                     "btreeInitPage() returns error code 11)|the file was left as it is: move it away and restore it from a backup"}));
}

TEST_F(Checks, StoreThatIsDamagedAfterItWasOpenedIsUnusable)
{
    Host::ToolApplication const bound = application();
    fs::resize_file(product(), 4096);
    std::fstream(product(), std::ios::binary | std::ios::in | std::ios::out) << std::string(4096, 'x');
    ExaminedStore examined = examine(bound, Store::product);
    EXPECT_EQ(examined.state, StoreState::unusable);
    examined.fileSystem = {"ext4", "/", false, Storage::Locality::local};
    EXPECT_EQ(linesOf(checkStoreFile(examined)),
              (Lines{"error|store-unusable|product||~/stores/product-settings.sqlite|cannot examine the store: file is not a database|the "
                     "file was left as it is: move it away and restore it from a backup"}));
}

TEST_F(Checks, NewerStoreIsReadOnly)
{
    OtherProgram(product()).execute("PRAGMA user_version = 2");
    EXPECT_EQ(found(Store::product),
              (Lines{"warning|store-newer|product||~/stores/product-settings.sqlite|cannot change the store: it was written by a newer "
                     "version (schema 2, this version writes 1)|update this program; the file was left as it is"}));
    EXPECT_EQ(examine(application(), Store::product).state, StoreState::readOnly);
}

TEST_F(Checks, StoreThatMayNotBeWrittenIsReadOnly)
{
    ::chmod(product().c_str(), 0400);
    EXPECT_EQ(foundByOrdinaryUser([&] { return found(Store::product); }),
              "error|store-read-only|product||~/stores/product-settings.sqlite|cannot change the store: it may not be written|make the "
              "file and its folder readable and writable for this user\n");
}

TEST_F(Checks, FolderThatMayNotBeWrittenTakesNoChange)
{
    fs::remove(product() + "-journal");
    ::chmod(inHome("stores").c_str(), 0500);
    EXPECT_EQ(foundByOrdinaryUser([&] { return found(Store::product); }),
              "error|store-folder|product||~/stores|the folder of the store cannot be used: not writable, so no change can be stored|make "
              "it writable: its rights, or how its disk is mounted, forbid it to this user, or name another folder with --home\n");
    std::string const missing = foundByOrdinaryUser([&] { return found(Store::product, "stores/none"); });
    ::chmod(inHome("stores").c_str(), 0700);
    EXPECT_EQ(missing,
              "note|store-missing|product||~/stores/none/product-settings.sqlite|nothing is stored there yet|nothing to do: the store is "
              "made when something is stored\n"
              "error|store-folder|product||~/stores/none|the folder of the store cannot be used: missing, and ~/stores is not writable, so "
              "no store can be made|make ~/stores writable: its rights, or how its disk is mounted, forbid it to this user, or name "
              "another folder with --home\n");
}

TEST_F(Checks, ModesThatLetOthersInAreFound)
{
    ::chmod(product().c_str(), 0644);
    std::ofstream(common() + "-journal").close();
    ::chmod((common() + "-journal").c_str(), 0620);
    EXPECT_EQ(found(Store::product), (Lines{"warning|file-mode|product||~/stores/product-settings.sqlite|other users may read or change "
                                            "it: its mode is 0644|chmod 600 '~/stores/product-settings.sqlite'"}));
    EXPECT_EQ(found(Store::common), (Lines{"warning|file-mode|common||~/stores/common-settings.sqlite-journal|other users may read or "
                                           "change it: its mode is 0620|chmod 600 '~/stores/common-settings.sqlite-journal'"}));
}

// Whoever runs the test, root's file belongs to another user than the child's.
TEST_F(Checks, FileOfAnotherUserIsFound)
{
    std::string const lines = foundByOrdinaryUser([&] {
        ExaminedStore examined = examine(application(), Store::product);
        examined.file = "/etc/passwd";
        Findings findings = checkStoreFile(examined);
        findings.erase(std::remove_if(findings.begin(), findings.end(), [](Finding const& one) { return one.check != Check::fileOwner; }),
                       findings.end());
        return linesOf(findings);
    });
    EXPECT_EQ(lines.substr(0, lines.rfind(' ')), "warning|file-owner|product||/etc/passwd|it belongs to another user, root|run this "
                                                 "program and the editor as that user, or give the file to");
    if (::geteuid() != 0)
        return; // only root can give a file to a user without a name
    ASSERT_EQ(::chown(product().c_str(), 4242, 0), 0);
    ASSERT_EQ(::chown((product() + "-journal").c_str(), 0, 0), 0);
    EXPECT_EQ(found(Store::product), (Lines{"warning|file-owner|product||~/stores/product-settings.sqlite|it belongs to another user, "
                                            "4242|run this program and the editor as that user, or give the file to root"}));
}

TEST_F(Checks, JournalOfAnUnfinishedChangeIsFound)
{
    OtherProgram editor(product());
    editor.execute("BEGIN IMMEDIATE; UPDATE settings SET changed = 1");
    std::string const size = std::to_string(fs::file_size(product() + "-journal"));
    EXPECT_EQ(found(Store::product),
              (Lines{"warning|journal-left|product||~/stores/product-settings.sqlite-journal|a journal of " + size +
                     " bytes lies there: a change is being made right now, or was interrupted|look again in a moment; where it stays, "
                     "leave it beside the store and start the editor, which undoes the change"}));
    editor.execute("COMMIT");
    EXPECT_EQ(found(Store::product), Lines());
}

TEST_F(Checks, JournalOfALinkedStoreLiesBesideTheTargetOfTheLink)
{
    fs::rename(product(), inHome("target.sqlite"));
    fs::create_symlink(inHome("target.sqlite"), product());
    OtherProgram editor(product());
    editor.execute("BEGIN IMMEDIATE; UPDATE settings SET changed = 1");
    Lines const lines = found(Store::product);
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].substr(0, 53), "warning|journal-left|product||~/target.sqlite-journal");
}

TEST_F(Checks, JournalWithoutItsStoreIsFound)
{
    fs::remove(common());
    std::ofstream(common() + "-journal") << "no journal of a new store";
    ::chmod((common() + "-journal").c_str(), 0600);
    EXPECT_EQ(found(Store::common),
              (Lines{"error|journal-left|common||~/stores/common-settings.sqlite-journal|a journal of 25 bytes lies there: its store is "
                     "gone, and no new one is made beside it|bring the store back beside its journal, or move the journal away"}));
}

TEST_F(Checks, LogWithoutItsStoreIsFound)
{
    fs::remove(common());
    std::ofstream(common() + "-wal") << "changes of another store";
    EXPECT_EQ(
        found(Store::common),
        (Lines{"error|journal-left|common||~/stores/common-settings.sqlite-wal|a write-ahead log of 24 bytes lies there: its store is "
               "gone, and no new one is made beside it|bring the store back beside its write-ahead log, or move the write-ahead log "
               "away"}));
}

TEST_F(Checks, WhatIsNoFileInThePlaceOfAJournalWithoutItsStoreIsFound)
{
    fs::remove(common());
    fs::remove(common() + "-journal");
    ASSERT_EQ(::mkfifo((common() + "-journal").c_str(), 0600), 0);
    EXPECT_EQ(
        found(Store::common),
        (Lines{"error|journal-left|common||~/stores/common-settings.sqlite-journal|what lies there is no file: its store is gone, and "
               "no new one is made beside it|bring the store back beside its journal, or move the journal away"}));
}

TEST_F(Checks, EmptyFilesBesideAMissingStoreAreNothing)
{
    fs::remove(common());
    std::ofstream(common() + "-wal");
    std::ofstream(common() + "-journal");
    ::chmod((common() + "-journal").c_str(), 0600);
    EXPECT_EQ(found(Store::common).at(0).substr(0, 26), "note|store-missing|common|");
}

// --- What restore has kept ---

TEST_F(Checks, StoresThatRestoreKeptAreCounted)
{
    m_home.write("stores/product-settings.sqlite.before-restore-20260102T030405Z", "four");
    EXPECT_EQ(found(Store::product),
              (Lines{"note|kept-stores|product||~/stores/product-settings.sqlite|1 copy that restore kept, of 4 bytes together, beside "
                     "it|'editor-settings restore FILE' brings one back; to remove all: rm "
                     "'~/stores/product-settings.sqlite'.before-restore-*"}));
    m_home.write("stores/product-settings.sqlite.before-restore-20260102T030405Z-2", "and six");
    m_home.write("stores/product-settings.sqlite.before-restore-20260102T030405Z-journal", "not counted");
    fs::create_directory(inHome("stores/product-settings.sqlite.before-restore-20260102T030405Z-3"));
    EXPECT_EQ(
        found(Store::product).front().substr(0, 126),
        "note|kept-stores|product||~/stores/product-settings.sqlite|3 copies that restore kept, of 11 bytes together, beside it|'editor");
    EXPECT_EQ(found(Store::common), Lines());
}

// --- File systems ---

TEST_F(Checks, FileSystemIsTheOneOfTheNearestExistingFolder)
{
    Host::ToolApplication const bound(m_productFile, {"/proc/none/below", Host::StorePolicy::leaveOutUnusable});
    ExaminedStore const examined = examine(bound, Store::product);
    EXPECT_EQ(examined.fileSystem.type, "proc");
    EXPECT_EQ(examined.fileSystem.mountPoint, "/proc");
}

struct Mounted {
    char const* meaning;
    FileSystem fileSystem;
    StoreState state;
    Lines findings; // without the place in front and the remedy behind
};

class StoreOn : public Checks, public testing::WithParamInterface<Mounted> {};

TEST_P(StoreOn, IsJudged)
{
    ExaminedStore examined = examine(application(), Store::product);
    examined.fileSystem = GetParam().fileSystem;
    examined.state = GetParam().state;
    Lines lines;
    for (Finding const& finding : checkStoreFile(examined))
        if (finding.check == Check::fileSystem) {
            EXPECT_EQ(finding.path, product());
            EXPECT_EQ(finding.store, Store::product);
            lines.push_back(std::string(severityName(finding.severity)) + '|' + finding.what + '|' + finding.remedy);
        }
    EXPECT_EQ(lines, GetParam().findings);
}

using Storage::Locality;

INSTANTIATE_TEST_SUITE_P(
    Table, StoreOn,
    testing::Values(
        Mounted{"LocalDisk", {"xfs", "/", false, Locality::local}, StoreState::usable, {}},
        Mounted{"DiskWithRoomForAChange", {"xfs", "/", false, Locality::local, 65536}, StoreState::usable, {}},
        Mounted{"FullDisk",
                {"xfs", "/", false, Locality::local, 65535},
                StoreState::usable,
                {"error|it lies on xfs, which has 65535 bytes left, too few for a change|free some space there"}},
        Mounted{"FullReadOnlyDisk",
                {"iso9660", "/", true, Locality::local, 0},
                StoreState::usable,
                {"error|it lies on iso9660, which may only be read, so nothing can be stored|mount it for writing, or name another folder "
                 "with --home"}},
        Mounted{"Nfs",
                {"nfs4", "/", false, Locality::network},
                StoreState::usable,
                {"warning|it lies on nfs4, where locks do not hold between machines, so that two editors can damage it|keep the stores on "
                 "a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home"}},
        Mounted{"Stick",
                {"vfat", "/", false, Locality::local},
                StoreState::usable,
                {"warning|it lies on vfat, which has no hard links, so that no store can be made there|keep the stores on a local disk: "
                 "move the data folder there (XDG_DATA_HOME), or name a folder with --home"}},
        Mounted{"StickWithoutAStore",
                {"fuse.exfat", "/", false, Locality::unknown},
                StoreState::missing,
                {"error|it lies on fuse.exfat, which has no hard links, so that no store can be made there|keep the stores on a local "
                 "disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home"}},
        Mounted{"Memory",
                {"tmpfs", "/", false, Locality::local},
                StoreState::usable,
                {"warning|it lies on tmpfs, which is kept in memory, so that all is lost with a restart|keep the stores on a local disk: "
                 "move the data folder there (XDG_DATA_HOME), or name a folder with --home"}},
        Mounted{"ReadOnlyShare",
                {"nfs4", "/", true, Locality::network},
                StoreState::usable,
                {"error|it lies on nfs4, which may only be read, so nothing can be stored|mount it for writing, or name another folder "
                 "with --home"}},
        Mounted{"ProgramsFileSystem",
                {"fuse.sshfs", "/", false, Locality::unknown},
                StoreState::usable,
                {"note|it lies on fuse.sshfs, of which it cannot be told whether locks hold there|nothing to do where the disk is local; "
                 "else keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder with --home"}},
        Mounted{"NoName",
                {"", "", false, Locality::unknown},
                StoreState::usable,
                {"note|it lies on a file system without a name, of which it cannot be told whether locks hold there|nothing to do where "
                 "the disk is local; else keep the stores on a local disk: move the data folder there (XDG_DATA_HOME), or name a folder "
                 "with --home"}}),
    byMeaning);

// --- What the stores hold ---

TEST_F(Checks, ValuesThatTheLibraryStoresAreSound)
{
    {
        Host::ToolApplication const bound = application();
        Settings::setIndicationObject(QStringLiteral("x"), QByteArray("\0\xFF", 2));
        Settings::setUserCustomColors({QStringLiteral("a"), QStringLiteral("b")});
        Settings::setAchievedTutorials({});
        Settings::setLastTarget(QString());
    }
    SqliteStorage(product()).setInt("npsValueToSend", 2147483646);
    SqliteStorage(product()).setInt("npsStartExportCount", -2147483647);
    SqliteStorage(product()).setString("favorites_fonts", "Verdana|#|Open Sans");
    SqliteStorage(product()).setString("stabilizedFileFormat", "mp4");
    SqliteStorage(product()).setString("recentProjects", "narrow \xFF text is read as it is stored");
    EXPECT_EQ(SqliteStorage(product()).rows().size(), 10u);
    EXPECT_EQ(found(Store::product), Lines());
}

TEST_F(Checks, ValueThatTheProductKeepsInMemoryIsNotJudged)
{
    SqliteStorage(product()).setInt("targetHistory", 1);
    EXPECT_EQ(found(Store::product), (Lines{"warning|other-kind|product|targetHistory||it holds a value of kind int where one of kind "
                                            "string is read, so the default is read|'editor-settings unset targetHistory' removes it, so "
                                            "that the default holds"}));
    m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 1,)"
                                 R"( "projectFileExtensions": [], "resourcesRoot": "r"})");
    EXPECT_EQ(found(Store::product), Lines());
}

struct Held {
    char const* meaning;
    void (*make)(SqliteStorage& product, SqliteStorage& common);
    char const* finding; // without the empty path
    char const* remedy;
};

class HeldValue : public Checks, public testing::WithParamInterface<Held> {};

TEST_P(HeldValue, IsFoundAndKept)
{
    {
        SqliteStorage productStore(product());
        SqliteStorage commonStore(common());
        GetParam().make(productStore, commonStore);
    }
    std::size_t const rows = SqliteStorage(product()).rows().size();
    Lines findings = found(Store::product);
    Lines const others = found(Store::common);
    findings.insert(findings.end(), others.begin(), others.end());
    EXPECT_EQ(findings, Lines{std::string(GetParam().finding) + '|' + GetParam().remedy});
    EXPECT_EQ(SqliteStorage(product()).rows().size(), rows);
}

INSTANTIATE_TEST_SUITE_P(
    Table, HeldValue,
    testing::Values(
        Held{"UnknownKey", [](SqliteStorage& product, SqliteStorage&) { product.setBytes("ownKey", {1}); },
             "note|unknown-key|product|ownKey||the library knows no such key; it is kept",
             "nothing to do where a later version or another program stored it; a product file declares a host's own keys"},
        Held{"UnknownKeyOfTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setString("favorites_x", "y"); },
             "note|unknown-key|common|favorites_x||the library knows no such key; it is kept",
             "nothing to do where a later version or another program stored it; a product file declares a host's own keys"},
        Held{"TextThatEndsLikeAHalf", [](SqliteStorage& product, SqliteStorage&) { product.setString("own_N", "1"); },
             "note|unknown-key|product|own_N||the library knows no such key; it is kept",
             "nothing to do where a later version or another program stored it; a product file declares a host's own keys"},
        Held{"KeyThatIsOnlyTheEnding", [](SqliteStorage& product, SqliteStorage&) { product.setInt("_N", 1); },
             "note|unknown-key|product|_N||the library knows no such key; it is kept",
             "nothing to do where a later version or another program stored it; a product file declares a host's own keys"},
        Held{"KeyOfTheOtherStore", [](SqliteStorage& product, SqliteStorage&) { product.setBool("autoUpdate", true); },
             "warning|misplaced-key|product|autoUpdate||it belongs in the common store and is not read here",
             "'editor-settings explain autoUpdate' shows what is read; what lies here is kept"},
        Held{"KeyOfTheProductInTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setInt("npsSendCount", 2); },
             "warning|misplaced-key|common|npsSendCount||it belongs in the product store and is not read here",
             "'editor-settings explain npsSendCount' shows what is read; what lies here is kept"},
        Held{"OtherKind", [](SqliteStorage& product, SqliteStorage&) { product.setString("npsSendCount", "1"); },
             "warning|other-kind|product|npsSendCount||it holds a value of kind string where one of kind int is read, so the default is "
             "read",
             "'editor-settings unset npsSendCount' removes it, so that the default holds"},
        Held{"OtherKindInAFamily", [](SqliteStorage& product, SqliteStorage&) { product.setString("Indication/x", "y"); },
             "warning|other-kind|product|Indication/x||it holds a value of kind string where one of kind bytes is read, so the default is "
             "read",
             "'editor-settings unset Indication/x' removes it, so that the default holds"},
        Held{"OtherKindInTheCommonStore", [](SqliteStorage&, SqliteStorage& common) { common.setInt("autoUpdate", 1); },
             "warning|other-kind|common|autoUpdate||it holds a value of kind int where one of kind bool is read, so the default is read",
             "'editor-settings unset autoUpdate' removes it, so that the default holds"},
        Held{"KindOfALaterVersion",
             [](SqliteStorage& product, SqliteStorage&) { OtherProgram(product.file()).execute("UPDATE settings SET kind = 'date'"); },
             "warning|other-kind|product|npsSendCount||it holds a value of kind date where one of kind int is read, so the default is read",
             "'editor-settings unset npsSendCount' removes it, so that the default holds"},
        Held{"ValueThatDoesNotFitItsKind",
             [](SqliteStorage& product, SqliteStorage&) { OtherProgram(product.file()).execute("UPDATE settings SET value = 2147483648"); },
             "warning|unreadable|product|npsSendCount||it holds a value of kind int that cannot be read, so the default is read",
             "'editor-settings unset npsSendCount' removes it, so that the default holds"},
        Held{"TextThatIsNotUtf8", [](SqliteStorage& product, SqliteStorage&) { product.setString("lastTarget", "x\xFF"); },
             "warning|no-utf8|product|lastTarget||it holds text that is not UTF-8, so it is not read as it is stored",
             "store it again: 'editor-settings set lastTarget VALUE'"},
        Held{"ListWithAnEmptyElement", [](SqliteStorage& product, SqliteStorage&) { product.setString("userCustomColors", "a|#||#|b"); },
             "warning|list-changes|product|userCustomColors||the stored list would be another one when it is read and stored again, as it "
             "has empty elements or a part of the separator",
             "store it again: 'editor-settings set userCustomColors VALUE'"},
        Held{"ListThatEndsWithASeparator", [](SqliteStorage& product, SqliteStorage&) { product.setString("achievedTutorials", "a|#|"); },
             "warning|list-changes|product|achievedTutorials||the stored list would be another one when it is read and stored again, as it "
             "has empty elements or a part of the separator",
             "store it again: 'editor-settings set achievedTutorials VALUE'"},
        Held{"ListOfTheEditor", [](SqliteStorage& product, SqliteStorage&) { product.setString("favorites_x", "|#|a"); },
             "warning|list-changes|product|favorites_x||the stored list would be another one when it is read and stored again, as it has "
             "empty elements or a part of the separator",
             "have the editor store it again"},
        Held{"NameThatTheLibraryLacks", [](SqliteStorage& product, SqliteStorage&) { product.setString("freezedFileFormat", "later"); },
             "warning|unusable-value|product|freezedFileFormat||the editor cannot use the stored value: the library has no such name",
             "'editor-settings explain freezedFileFormat' shows what it accepts; 'editor-settings unset freezedFileFormat' removes it, so "
             "that the default "
             "holds"},
        Held{"RationalWithoutDenominator", [](SqliteStorage& product, SqliteStorage&) { product.setInt("rate_N", 25); },
             "note|rational-half|product|rate||the rational has no rate_D, so a read mixes it with a default",
             "have the program that owns it store it again"},
        Held{"RationalWithoutNumerator", [](SqliteStorage&, SqliteStorage& common) { common.setInt("rate_D", 0); },
             "note|rational-half|common|rate||the rational has no rate_N, so a read mixes it with a default",
             "have the program that owns it store it again"},
        Held{"RationalWithZeroDenominator",
             [](SqliteStorage& product, SqliteStorage&) {
                 product.setInt("rate_N", 25);
                 product.setInt("rate_D", 0);
             },
             "error|rational-zero|product|rate||the rational's denominator is 0, so every read of it fails",
             "have the program that owns it store it again"},
        Held{"RationalWithADenominatorOfAnotherKind",
             [](SqliteStorage& product, SqliteStorage&) {
                 product.setInt("rate_N", 25);
                 product.setString("rate_D", "1");
             },
             "note|rational-kind|product|rate||the rational's rate_D is no int, so a read mixes it with a default",
             "have the program that owns it store it again"},
        Held{"RationalWithANumeratorOfAnotherKind",
             [](SqliteStorage& product, SqliteStorage&) {
                 product.setBool("rate_N", true);
                 product.setInt("rate_D", 1);
             },
             "note|rational-kind|product|rate||the rational's rate_N is no int, so a read mixes it with a default",
             "have the program that owns it store it again"},
        Held{"SoundRational",
             [](SqliteStorage& product, SqliteStorage&) {
                 product.setInt("rate_N", 0);
                 product.setInt("rate_D", -7);
             },
             "note|unknown-key|product|rate||the library knows no such rational; it is kept",
             "nothing to do where a later version or another program stored it; a product file declares a host's own keys"}),
    byMeaning);

// --- Folders ---

TEST_F(Checks, MissingFoldersAreNotedTogether)
{
    Host::ToolApplication const bound = application();
    EXPECT_EQ(linesOf(checkFolders()),
              (Lines{"note|folders-missing||||22 folders are not there yet; the editor makes them||audioRecordPath bundleShadowCachePath "
                     "deployedPackagesStatisticsPath downloadableResourcesPath downloaderCachePath exportPath fastTrackConfigurationPath "
                     "fastTrackContentPath newsCenterContentPath packInAppCachePath packageDeploymentPath productDataPath projectPath "
                     "snapshotPath stabilizedFilePath stockPackagesStatisticsPath unsplashContentPath userIntrosPath userOverlaysPath "
                     "userUnsplashPath waveformCachePath waveformConfigurationPath"}));
}

TEST_F(Checks, ExistingFoldersHaveNoFindings)
{
    Host::ToolApplication const bound = application();
    for (WrittenFolder const& folder : foldersToWrite())
        fs::create_directories(folder.path.toStdString());
    EXPECT_EQ(linesOf(checkFolders()), Lines());
    SqliteStorage(product()).setString("exportPath", inHome("new"));
    EXPECT_EQ(linesOf(checkFolders()), Lines{"note|folders-missing||||1 folder is not there yet; the editor makes it||exportPath"});
}

// The findings about snapshotPath and exportPath, without the note about missing folders.
Lines withoutNote(Lines lines)
{
    lines.erase(std::remove_if(lines.begin(), lines.end(), [](std::string const& line) { return line.compare(0, 5, "note|") == 0; }),
                lines.end());
    return lines;
}

TEST_F(Checks, FileInThePlaceOfAFolderIsFound)
{
    m_home.write("file", "");
    SqliteStorage(product()).setString("snapshotPath", inHome("file"));
    Host::ToolApplication const bound = application();
    EXPECT_EQ(withoutNote(linesOf(checkFolders())),
              (Lines{"error|folder|||~/file|snapshotPath: the editor cannot write there: not a folder|move it away, as it is no folder, or "
                     "set another: 'editor-settings set snapshotPath FOLDER'"}));
}

TEST_F(Checks, FoldersThatMayNotBeWrittenOrReadAreFound)
{
    fs::create_directories(inHome("locked"));
    fs::create_directories(inHome("unread"));
    SqliteStorage(product()).setString("exportPath", inHome("locked/below"));
    SqliteStorage(product()).setString("projectPath", inHome("locked"));
    SqliteStorage(product()).setString("snapshotPath", inHome("unread"));
    ::chmod(inHome("locked").c_str(), 0500);
    ::chmod(inHome("unread").c_str(), 0300);
    std::string const lines = foundByOrdinaryUser([&] {
        Host::ToolApplication const bound = application();
        return withoutNote(linesOf(checkFolders()));
    });
    ::chmod(inHome("locked").c_str(), 0700);
    ::chmod(inHome("unread").c_str(), 0700);
    EXPECT_EQ(lines,
              "error|folder|||~/locked/below|exportPath: the editor cannot write there: missing, and ~/locked is not writable|make "
              "~/locked writable: its rights, or how its disk is mounted, forbid it to this user, or set another: 'editor-settings set "
              "exportPath FOLDER'\n"
              "error|folder|||~/locked|projectPath: the editor cannot write there: not writable|make it writable: its rights, or how its "
              "disk is mounted, forbid it to this user, or set another: 'editor-settings set projectPath FOLDER'\n"
              "warning|folder|||~/unread|snapshotPath: not readable, so names are numbered as if it were empty|make it readable for this "
              "user, or set another: 'editor-settings set snapshotPath FOLDER'\n");
}

struct UnusableFolder {
    char const* meaning;
    char const* path;
    char const* line; // from the path on
};

class FolderOfAPreference : public Checks, public testing::WithParamInterface<UnusableFolder> {};

TEST_P(FolderOfAPreference, HasTheRemedyForItsFault)
{
    m_home.write("file", "");
    fs::create_symlink("nowhere", inHome("dangling"));
    fs::create_symlink("loop", inHome("loop"));
    std::string const path = GetParam().path;
    SqliteStorage(product()).setString("exportPath", path[0] == '~' ? m_home.path().string() + path.substr(1) : path);
    Host::ToolApplication const bound = application();
    EXPECT_EQ(withoutNote(linesOf(checkFolders())), Lines{GetParam().line});
}

INSTANTIATE_TEST_SUITE_P(
    Table, FolderOfAPreference,
    testing::Values(
        UnusableFolder{"Relative", "films",
                       "error|folder|||films|exportPath: the editor cannot write there: not absolute: it depends on the folder that the "
                       "editor is started in|set another: 'editor-settings set exportPath FOLDER'"},
        UnusableFolder{"BelowAFile", "~/file/new",
                       "error|folder|||~/file/new|exportPath: the editor cannot write there: missing, and ~/file is not a folder|move "
                       "~/file away, as it is no folder, or set another: 'editor-settings set exportPath FOLDER'"},
        UnusableFolder{"DanglingLink", "~/dangling",
                       "error|folder|||~/dangling|exportPath: the editor cannot write there: dangling link to nowhere|make the folder that "
                       "the link leads to, or remove the link, or set another: 'editor-settings set exportPath FOLDER'"},
        UnusableFolder{"LoopOfLinks", "~/loop",
                       "error|folder|||~/loop|exportPath: the editor cannot write there: Too many levels of symbolic links|correct the "
                       "path, or the folders above it, or set another: 'editor-settings set exportPath FOLDER'"},
        UnusableFolder{"HomeFolder", "~",
                       "warning|folder|||~|exportPath: the home folder itself|set another: 'editor-settings set exportPath FOLDER'"}),
    byMeaning);

TEST_F(Checks, FolderThatNoPreferenceMovesHasARemedyWithoutOne)
{
    m_home.write(".local/share/V/SharedData", "");
    Host::ToolApplication const bound = application();
    Lines const lines = linesOf(checkFolders());
    std::string const expected =
        "error|folder|||~/.local/share/V/SharedData/S/UserImports/|userIntrosPath: the editor cannot write there: missing, and "
        "~/.local/share/V/SharedData is not a folder|move ~/.local/share/V/SharedData away, as it is no folder; 'editor-settings paths "
        "--explain' shows what decides it";
    EXPECT_EQ(std::count(lines.begin(), lines.end(), expected), 1);
}

// --- The home folder ---

struct Home {
    char const* meaning;
    char const* value; // null where the variable is not set
    char const* what;
};

class OddHome : public Checks, public testing::WithParamInterface<Home> {};

TEST_P(OddHome, IsFound)
{
    GetParam().value ? ::setenv("HOME", GetParam().value, 1) : ::unsetenv("HOME");
    EXPECT_EQ(linesOf(checkHome()),
              Lines{std::string("warning|home||||") + GetParam().what + "|set HOME to the folder of the user whom the editor runs for"});
}

INSTANTIATE_TEST_SUITE_P(Table, OddHome,
                         testing::Values(Home{"Unset", nullptr, "HOME is not set, so / is taken for the home folder"},
                                         Home{"Empty", "", "HOME is not set, so / is taken for the home folder"},
                                         Home{"Missing", "/no/such", "HOME is '/no/such', which is not there"},
                                         Home{"NoFolder", "/dev/null", "HOME is '/dev/null', which is not a folder"},
                                         Home{"Relative", "x", "HOME is 'x', which depends on the folder that a program is started in"}),
                         byMeaning);

TEST_F(Checks, HomeFolderThatExistsHasNoFinding) { EXPECT_EQ(linesOf(checkHome()), Lines()); }

} // namespace
