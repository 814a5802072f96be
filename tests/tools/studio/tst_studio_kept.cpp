// SPDX-License-Identifier: MIT
//
// What the tool tells of changes that an editor of this workstation keeps for the server.
#include "support/StudioTool.h"

#include <Studio/Session.h>
#include <TestKit/MemoryStorage.h>

#include <support/Json.h>
#include <support/Patterns.h>

using namespace std::chrono_literals;

class StudioKept : public SharedStudio {
protected:
    void SetUp() override
    {
        ::setenv("XDG_STATE_HOME", (m_home.path() / "state").c_str(), 1);
        SharedStudio::SetUp();
    }
    void TearDown() override { ::unsetenv("XDG_STATE_HOME"); }

    // An editor of alice's, with a store of the product "P".
    struct Editor {
        explicit Editor(std::string const& connection) : session({connection, [](std::string const&) { return true; }}) {}

        Studio::Session session;
        std::shared_ptr<ISettingsStorage> store = session.store("P", std::make_shared<TestKit::MemoryStorage>());
    };

    // The same changes two settings while the server is away, and ends.
    void changeWithoutServer()
    {
        m_server->stop();
        Editor const editor(connection("alice"));
        editor.store->setBool("keepVideoAspect", false);
        editor.store->setString("audioRecordFormat", "mp3");
    }
    json status() { return parsed(tool(as("alice", {"studio", "status", "--json"})).out); }
    // The findings about what is kept, each as "severity check key".
    std::vector<std::string> findings()
    {
        std::vector<std::string> result;
        json const report = parsed(tool(as("alice", {"doctor", "--json"})).out);
        for (json const& finding : report["findings"])
            if (std::string const check = finding["check"];
                check == "studio-pending" || check == "studio-refused" || check == "studio-outbox")
                result.push_back(finding["severity"].get<std::string>() + ' ' + check + ' ' +
                                 (finding["key"].is_null() ? "-" : finding["key"].get<std::string>()));
        return result;
    }
    static bool isTime(json const& value)
    {
        return value.is_string() && matches(value.get<std::string>(), "20\\d\\d-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z");
    }
};

using Lines = std::vector<std::string>;

TEST_F(StudioKept, NothingIsKeptAtFirstAndALookLeavesNothing)
{
    json const all = status();
    EXPECT_EQ(all["pending"], 0);
    EXPECT_EQ(all["pendingSince"], nullptr);
    EXPECT_EQ(all["refused"], json::array());
    EXPECT_EQ(all["damaged"], json::array());
    EXPECT_EQ(findings(), Lines());
    EXPECT_FALSE(std::filesystem::exists(m_home.path() / "state"));
}

TEST_F(StudioKept, ChangesThatWaitAreCountedWithAndWithoutTheServer)
{
    changeWithoutServer();
    for (bool const isAway : {true, false}) {
        json const all = status();
        EXPECT_EQ(all["isConnected"], !isAway);
        EXPECT_EQ(all["pending"], 2);
        EXPECT_TRUE(isTime(all["pendingSince"])) << all["pendingSince"];
        EXPECT_EQ(findings(), Lines{"note studio-pending -"});
        if (isAway)
            m_server->start();
    }
    std::string const table = said(as("alice", {"studio", "status", "--plain"}));
    EXPECT_TRUE(contains(table, "\npending\t2 since 20\\d\\d-")) << table;
    EXPECT_EQ(atServer("alice", "audioRecordFormat"), "") << "a look sends nothing";
    EXPECT_TRUE(Editor(connection("alice")).session.synchronise(60s));
    EXPECT_EQ(atServer("alice", "audioRecordFormat"), "P string mp3");
    EXPECT_EQ(status()["pending"], 0);
}

TEST_F(StudioKept, RefusedChangeIsWarnedOfUntilAnotherIsStored)
{
    changeWithoutServer();
    m_server->start();
    said(as("ada", {"studio", "lock", "keepVideoAspect", "yes"}));
    EXPECT_TRUE(Editor(connection("alice")).session.synchronise(60s));
    json const all = status();
    EXPECT_EQ(all["pending"], 0);
    ASSERT_EQ(all["refused"].size(), 1u);
    EXPECT_EQ(all["refused"][0]["store"], "P");
    EXPECT_EQ(all["refused"][0]["key"], "keepVideoAspect");
    EXPECT_EQ(all["refused"][0]["reason"], "the studio has locked this setting (SQLSTATE ST003)");
    EXPECT_EQ(all["refused"][0]["remedy"], "ask the administrator of the studio's settings to unlock it");
    EXPECT_TRUE(isTime(all["refused"][0]["when"]));
    EXPECT_EQ(findings(), Lines{"warning studio-refused keepVideoAspect"});
    std::string const table = said(as("alice", {"studio", "status", "--plain"}));
    EXPECT_NE(table.find("\nrefused\tkeepVideoAspect (P), 20"), std::string::npos) << table;
    said(as("ada", {"studio", "unlock", "keepVideoAspect"}));
    {
        Editor const editor(connection("alice"));
        editor.store->setBool("keepVideoAspect", false);
    }
    EXPECT_EQ(status()["refused"], json::array());
    EXPECT_EQ(findings(), Lines());
}

TEST_F(StudioKept, FileThatCannotBeReadIsAnError)
{
    changeWithoutServer();
    m_server->start();
    for (auto const& entry : std::filesystem::directory_iterator(m_home.path() / "state/editor-settings"))
        if (entry.path().extension() == ".sqlite")
            std::filesystem::permissions(entry.path(), std::filesystem::perms::all);
    EXPECT_EQ(findings(), Lines{"error studio-outbox -"});
    EXPECT_NE(refused(as("alice", {"studio", "status"})).find("another user may read or change it"), std::string::npos);
}
