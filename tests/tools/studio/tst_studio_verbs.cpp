// SPDX-License-Identifier: MIT
//
// What an administrator does with a studio's settings, and what users may ask of the server.
#include "support/StudioTool.h"

#include <support/Json.h>
#include <support/Patterns.h>

class StudioVerbs : public SharedStudio {};

TEST_F(StudioVerbs, ValueForAllIsStoredAsThePreferencesKindSays)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool false");
    said(as("ada", {"studio", "set", "exportPath", "/mnt/exports"}));
    EXPECT_EQ(atServer("", "exportPath"), "P string /mnt/exports");
    said(as("ada", {"studio", "set", "userCustomColors", "red", "navy"}));
    EXPECT_EQ(atServer("", "userCustomColors"), "P string red|#|navy");
    said(as("ada", {"studio", "set", "Indication/tour", "c2Vlbg=="}));
    EXPECT_EQ(atServer("", "Indication/tour"), "P bytes seen");
    said(as("ada", {"studio", "set", "grid", "30000/1001"}));
    EXPECT_EQ(atServer("", "grid_N") + ", " + atServer("", "grid_D"), "P int 30000, P int 1001");
    EXPECT_EQ(atServer("ada", "keepVideoAspect"), "") << "an administrator's own settings are others";
    EXPECT_FALSE(std::filesystem::exists(inHome("ada"))) << "nothing is stored on the workstation";
}

TEST_F(StudioVerbs, WordsThatAreNoValueAreRefusedAsBySet)
{
    EXPECT_EQ(refused(as("ada", {"studio", "set", "keepVideoAspect", "perhaps"})),
              "editor-settings: keepVideoAspect is a bool and cannot be 'perhaps'; give true or false (or yes, no, on, off, 1, 0)\n");
    EXPECT_EQ(refused(as("ada", {"studio", "lock", "keepAspect"})),
              "editor-settings: there is no preference 'keepAspect'; 'editor-settings list' shows all; a key of the host's own is declared "
              "in \"ownKeys\" of the product file, see editor-settings-product(5)\n");
    EXPECT_EQ(m_server->ask("SELECT count(*) FROM settings.value", "studio"), "0");
}

TEST_F(StudioVerbs, ValueIsGivenForAWholeKeyOfAServerThatAnswers)
{
    EXPECT_NE(refused(as("ada", {"studio", "set", "keepVideoAspect"}), 2).find("VALUE is required"), std::string::npos);
    EXPECT_NE(refused(as("ada", {"studio", "set", "grid_N", "5"})).find("'grid_N' is half of the rational 'grid'"), std::string::npos);
    said(as("ada", {"studio", "set", "Indication/tour", "@" + m_home.write("tour", "seen").string()}));
    EXPECT_EQ(atServer("", "Indication/tour"), "P bytes seen");
    m_server->stop();
    EXPECT_NE(refused(as("ada", {"studio", "set", "keepVideoAspect", "no"})).find(": the server cannot be reached; "), std::string::npos);
}

TEST_F(StudioVerbs, LockHoldsUntilItIsTakenAway)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    said(as("ada", {"studio", "lock", "keepVideoAspect"}));
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool false locked");
    said(as("ada", {"studio", "set", "keepVideoAspect", "yes"}));
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool true locked") << "another value leaves the lock";
    said(as("ada", {"studio", "unlock", "keepVideoAspect"}));
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool true") << "the value stays";
    said(as("ada", {"studio", "lock", "autoUpdate", "no"}));
    EXPECT_EQ(atServer("", "autoUpdate"), "common bool false locked") << "both at once";
    said(as("ada", {"studio", "unset", "autoUpdate"}));
    EXPECT_EQ(atServer("", "autoUpdate"), "");
}

TEST_F(StudioVerbs, BothHalvesOfARationalAreLocked)
{
    said(as("ada", {"studio", "lock", "grid", "1/25"}));
    EXPECT_EQ(atServer("", "grid_N") + ", " + atServer("", "grid_D"), "P int 1 locked, P int 25 locked");
    said(as("ada", {"studio", "unlock", "grid"}));
    EXPECT_EQ(atServer("", "grid_N") + ", " + atServer("", "grid_D"), "P int 1, P int 25");
    said(as("ada", {"studio", "unset", "grid"}));
    EXPECT_EQ(atServer("", "grid_N") + atServer("", "grid_D"), "");
}

TEST_F(StudioVerbs, NothingIsThereToLockOrToUnset)
{
    EXPECT_EQ(
        refused(as("ada", {"studio", "lock", "keepVideoAspect"})),
        "editor-settings: the studio has no value for 'keepVideoAspect', so there is nothing to lock; give the value behind the key\n");
    EXPECT_EQ(refused(as("ada", {"studio", "unlock", "keepVideoAspect"})),
              "editor-settings: the studio has no value for 'keepVideoAspect', so there is nothing to unlock\n");
    EXPECT_EQ(tool(as("ada", {"studio", "unset", "keepVideoAspect"})).err,
              "editor-settings: the studio has no value for 'keepVideoAspect'\n");
}

TEST_F(StudioVerbs, OthersAreToldThatTheyMayNot)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    for (std::vector<std::string> const& words : std::vector<std::vector<std::string>>{{"set", "keepVideoAspect", "yes"},
                                                                                       {"unset", "keepVideoAspect"},
                                                                                       {"lock", "keepVideoAspect"},
                                                                                       {"lock", "keepVideoAspect", "yes"},
                                                                                       {"unlock", "keepVideoAspect"},
                                                                                       {"forget", "bob", "--yes"}}) {
        std::vector<std::string> all = {"studio"};
        all.insert(all.end(), words.begin(), words.end());
        std::string const error = refused(as("alice", all));
        EXPECT_NE(error.find(": the account has no right to do this"), std::string::npos) << error;
        EXPECT_NE(error.find("; ask the administrator of the studio's settings\n"), std::string::npos) << error;
    }
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool false");
}

TEST_F(StudioVerbs, ForgottenUserStartsWithNothing)
{
    said(as("alice", {"set", "keepVideoAspect", "no"}));
    EXPECT_EQ(atServer("alice", "keepVideoAspect"), "P bool false");
    EXPECT_NE(refused(as("ada", {"studio", "forget", "alice"}), 2).find("--yes is required, as nothing brings the values back"),
              std::string::npos);
    EXPECT_EQ(atServer("alice", "keepVideoAspect"), "P bool false");
    said(as("ada", {"studio", "forget", "alice", "--yes"}));
    EXPECT_EQ(atServer("alice", "keepVideoAspect"), "");
    EXPECT_EQ(said(as("alice", {"get", "keepVideoAspect"})), "true\n");
    EXPECT_EQ(refused(as("ada", {"studio", "forget", "nobody", "--yes"})), "editor-settings: the server has nothing of 'nobody'\n");
}

TEST_F(StudioVerbs, StatusTellsServerUserAndWhatRoams)
{
    json const status = parsed(said(as("ada", {"studio", "status", "--json"})));
    EXPECT_EQ(status["user"], "ada");
    EXPECT_EQ(status["isAdministrator"], true);
    EXPECT_EQ(status["schema"], 2);
    EXPECT_EQ(status["historyChanged"], nullptr);
    EXPECT_EQ(status["isConnected"], true);
    EXPECT_EQ(status["problem"], nullptr);
    EXPECT_NE(status["asOf"], nullptr);
    EXPECT_NE(status["server"].get<std::string>().find(":5432"), std::string::npos) << status["server"];
    std::vector<std::string> const roaming = status["roams"];
    EXPECT_EQ(roaming.size(), 17u);
    for (char const* const key : {"keepVideoAspect", "favorites_*", "grid"})
        EXPECT_EQ(std::count(roaming.begin(), roaming.end(), key), 1) << key;
    EXPECT_EQ(std::count(roaming.begin(), roaming.end(), "exportPath"), 0);
    std::string const table = said(as("alice", {"studio", "status", "--plain"}));
    EXPECT_NE(table.find("\nuser\talice\nadministrator\tno\nschema\t2\nchanges\tlistening\nas of\t20"), std::string::npos) << table;
    EXPECT_NE(table.find("\nroams\tkeepVideoAspect\n"), std::string::npos) << table;
    std::string const local = said(as("alice", {"studio", "status"}));
    EXPECT_TRUE(contains(local, "\nas of\t20\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\n")) << local;
}

TEST_F(StudioVerbs, StatusOfAServerThatIsAwayHasItsReason)
{
    m_server->stop();
    Ended const ended = tool(as("alice", {"studio", "status", "--json"}));
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.err.find(": cannot read the studio's settings: the server cannot be reached; check its name, its port and the network, "
                             "and whether it runs\n"),
              std::string::npos)
        << ended.err;
    json const status = parsed(ended.out);
    EXPECT_EQ(status["isConnected"], false);
    EXPECT_EQ(status["problem"]["reason"], "the server cannot be reached");
    EXPECT_EQ(status["asOf"], nullptr);
    EXPECT_EQ(status["user"], nullptr);
}

TEST_F(StudioVerbs, ServerWithoutASchemaIsSaidToHaveNone)
{
    m_server->ask("CREATE DATABASE empty");
    Ended const ended = tool({"studio", "status", m_server->connection("postgres", "empty")});
    EXPECT_EQ(ended.status, 1);
    EXPECT_NE(ended.err.find("the database is not set up for this version"), std::string::npos) << ended.err;
}

TEST_F(StudioVerbs, ValueThatLostAConflictIsListed)
{
    EXPECT_EQ(said(as("alice", {"studio", "superseded", "--json"})), "[]\n");
    said(as("alice", {"set", "audioRecordFormat", "wav"}));
    // A change of another workstation's, made an hour ago without knowledge of the first.
    m_server->ask("SET SESSION AUTHORIZATION alice; SELECT * FROM settings.hello_v1('00000000-0000-0000-0000-000000000007', 0); "
                  "SELECT * FROM settings.put_v1('00000000-0000-0000-0000-000000000007', 1, false, 'P', 'audioRecordFormat', 'string', "
                  "'mp3', false, 3600000, 0); "
                  "SELECT * FROM settings.put_v1('00000000-0000-0000-0000-000000000007', 2, false, 'P', 'audioRecordFormat', NULL, "
                  "NULL, false, 3600000, 0)",
                  "studio");
    json const all = parsed(said(as("alice", {"studio", "superseded", "--json"})));
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0]["store"], "P");
    EXPECT_EQ(all[0]["key"], "audioRecordFormat");
    EXPECT_EQ(all[0]["kind"], "string");
    EXPECT_EQ(all[0]["value"], "mp3");
    EXPECT_EQ(all[0]["by"], "alice");
    EXPECT_EQ(all[0]["from"], "local");
    EXPECT_LT(all[0]["changed"].get<std::string>(), all[0]["lost"].get<std::string>());
    EXPECT_EQ(all[1]["kind"], nullptr);
    EXPECT_EQ(all[1]["value"], nullptr);
    std::vector<std::string> const table = lines(said(as("alice", {"studio", "superseded", "--plain"})));
    ASSERT_EQ(table.size(), 2u);
    EXPECT_NE(table[0].find("\tP\taudioRecordFormat\tmp3\t20"), std::string::npos) << table[0];
    EXPECT_NE(table[1].find("\taudioRecordFormat\t(unset)\t"), std::string::npos) << table[1];
    EXPECT_EQ(lines(said(as("alice", {"studio", "superseded"}))).size(), 3u) << "a heading, and both";
    EXPECT_EQ(said(as("bob", {"studio", "superseded", "--json"})), "[]\n");
}

TEST_F(StudioVerbs, EachVerbSaysThatNoServerIsNamed)
{
    for (std::vector<std::string> const& words : std::vector<std::vector<std::string>>{{"status"},
                                                                                       {"superseded"},
                                                                                       {"set", "autoUpdate", "no"},
                                                                                       {"unset", "autoUpdate"},
                                                                                       {"lock", "autoUpdate"},
                                                                                       {"unlock", "autoUpdate"},
                                                                                       {"forget", "bob", "--yes"}}) {
        std::vector<std::string> all = {"studio"};
        all.insert(all.end(), words.begin(), words.end());
        EXPECT_EQ(refused(all).rfind("editor-settings: no server is named; ", 0), 0u) << words.front();
    }
}
