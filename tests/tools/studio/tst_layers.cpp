// SPDX-License-Identifier: MIT
//
// The verbs on preferences where a product shares settings with a studio.
#include "support/StudioTool.h"

#include <support/Json.h>
#include <support/Patterns.h>

class Layers : public SharedStudio {
protected:
    json explained(std::string const& user, std::string const& key) { return parsed(said(as(user, {"explain", key, "--json"}))); }
    // Whose value a read takes, and the value.
    std::string taken(std::string const& user, std::string const& key)
    {
        json const found = explained(user, key);
        return found["layer"].get<std::string>() + ' ' + found["value"].dump();
    }
    // The first words of each line that explains a key.
    std::map<std::string, std::string> table(std::string const& user, std::string const& key)
    {
        std::map<std::string, std::string> result;
        for (std::string const& line : lines(said(as(user, {"explain", key, "--plain"}))))
            result[line.substr(0, line.find('\t'))] = line.substr(line.find('\t') + 1);
        return result;
    }
};

TEST_F(Layers, EachValueIsSaidToBeWhose)
{
    EXPECT_EQ(taken("alice", "keepVideoAspect"), "default true");
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    EXPECT_EQ(taken("alice", "keepVideoAspect"), "studio false");
    said(as("alice", {"set", "keepVideoAspect", "yes"}));
    EXPECT_EQ(taken("alice", "keepVideoAspect"), "user true");
    EXPECT_EQ(taken("bob", "keepVideoAspect"), "studio false");
    said(as("ada", {"studio", "lock", "keepVideoAspect"}));
    EXPECT_EQ(taken("alice", "keepVideoAspect"), "locked false");
    said(as("alice", {"set", "npsSendCount", "3"}));
    EXPECT_EQ(taken("alice", "npsSendCount"), "local 3");
    EXPECT_EQ(atServer("alice", "npsSendCount"), "") << "it stays on the workstation";
}

TEST_F(Layers, CoveredValuesAreTold)
{
    said(as("alice", {"set", "keepVideoAspect", "yes"}));
    said(as("ada", {"studio", "lock", "keepVideoAspect", "no"}));
    json const explanation = explained("alice", "keepVideoAspect");
    EXPECT_EQ(explanation["layer"], "locked");
    EXPECT_EQ(explanation["by"], "ada");
    EXPECT_EQ(explanation["stored"]["value"], false);
    ASSERT_EQ(explanation["covers"].size(), 1u);
    EXPECT_EQ(explanation["covers"][0]["layer"], "user");
    EXPECT_EQ(explanation["covers"][0]["by"], "alice");
    EXPECT_EQ(explanation["covers"][0]["kind"], "bool");
    EXPECT_EQ(explanation["covers"][0]["value"], true);
    auto found = table("alice", "keepVideoAspect");
    EXPECT_EQ(found["layer"], "the studio's, which has locked it");
    EXPECT_EQ(found["locked by"], "ada");
    EXPECT_EQ(found["covers"].rfind("true (the user's own, on every workstation of the studio, of 20", 0), 0u) << found["covers"];
    EXPECT_NE(found["covers"].find("Z by alice)"), std::string::npos) << found["covers"];
    EXPECT_EQ(found["changed"].substr(0, 2), "20");
    std::string const local = said(as("alice", {"explain", "keepVideoAspect"}));
    EXPECT_TRUE(contains(local, "of 20\\d\\d-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d by alice")) << local;
}

TEST_F(Layers, FolderThatTheEditorCannotUseIsRefusedOnRequest)
{
    EXPECT_EQ(refused(as("ada", {"studio", "set", "exportPath", "films", "--strict"})),
              "editor-settings: exportPath: the editor cannot use 'films': not absolute: it depends on the folder that the editor is "
              "started in; nothing was stored; give the absolute path of a folder\n");
    EXPECT_EQ(explained("alice", "exportPath")["layer"], "default");
}

TEST_F(Layers, LocalValueCoversTheStudios)
{
    said(as("ada", {"studio", "set", "exportPath", "/mnt/exports"}));
    EXPECT_EQ(said(as("alice", {"get", "exportPath"})), "/mnt/exports\n");
    std::filesystem::create_directories(inHome("mine"));
    said(as("alice", {"set", "exportPath", inHome("mine")}));
    EXPECT_EQ(taken("alice", "exportPath"), "local \"" + inHome("mine") + '"');
    EXPECT_EQ(explained("alice", "exportPath")["covers"][0]["layer"], "studio");
    said(as("alice", {"unset", "exportPath"}));
    EXPECT_EQ(taken("alice", "exportPath"), "studio \"/mnt/exports\"");
}

TEST_F(Layers, PathsAndNewNamesAreThoseOfTheStudiosFolder)
{
    said(as("ada", {"studio", "set", "exportPath", "/mnt/exports"}));
    std::string const shown = said(as("alice", {"paths", "exportPath", "--explain"}));
    EXPECT_NE(shown.find("/mnt/exports"), std::string::npos) << shown;
    EXPECT_NE(shown.find("exportPath is stored in the studio's settings"), std::string::npos) << shown;
    said(as("ada", {"studio", "lock", "audioRecordPath", "/mnt/sounds"}));
    EXPECT_EQ(said(as("alice", {"next-name", "audio"})).rfind("/mnt/sounds/", 0), 0u);
}

TEST_F(Layers, RoamingValueGoesToTheServerAndToOtherWorkstations)
{
    said(as("alice", {"set", "userCustomColors", "red", "navy"}));
    EXPECT_EQ(atServer("alice", "userCustomColors"), "P string red|#|navy");
    said(as("alice", {"set", "grid", "1/25"}));
    std::vector<std::string> elsewhere = {"get",       "userCustomColors",  "grid",   "--plain",
                                          "--product", m_products["alice"], "--home", inHome("other")};
    EXPECT_EQ(said(elsewhere), "userCustomColors\t[\"red\",\"navy\"]\ngrid\t1/25\n");
    EXPECT_FALSE(std::filesystem::exists(inHome("other"))) << "reading creates no file";
    said(as("alice", {"unset", "grid"}));
    EXPECT_EQ(atServer("alice", "grid_N") + atServer("alice", "grid_D"), "");
    EXPECT_EQ(taken("alice", "grid"), "default \"0/1\"");
}

TEST_F(Layers, LockedKeyIsNotChanged)
{
    said(as("ada", {"studio", "lock", "keepVideoAspect", "no"}));
    said(as("ada", {"studio", "lock", "npsSendCount", "5"}));
    for (std::vector<std::string> const& words : std::vector<std::vector<std::string>>{
             {"set", "keepVideoAspect", "yes"}, {"unset", "keepVideoAspect"}, {"set", "npsSendCount", "6"}}) {
        std::string const error = refused(as("alice", words));
        EXPECT_NE(error.find("cannot change a setting: the studio has locked this setting; ask the administrator of the studio's settings "
                             "to unlock it\n"),
                  std::string::npos)
            << error;
        EXPECT_EQ(lines(error).size(), 1u) << "a backup is of no use here: " << error;
    }
    EXPECT_EQ(said(as("alice", {"get", "npsSendCount"})), "5\n");
}

TEST_F(Layers, UnsettingTheStudiosValueSaysWhoseItIs)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    Ended const ended = tool(as("alice", {"unset", "keepVideoAspect"}));
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.err, "editor-settings: keepVideoAspect was not set by you: the studio gives its value to who has no other\n");
    EXPECT_EQ(atServer("", "keepVideoAspect"), "P bool false");
}

TEST_F(Layers, ListHasAColumnAndWhatOnlyTheServerHas)
{
    said(as("ada", {"studio", "lock", "keepVideoAspect", "no"}));
    m_server->ask("SET SESSION AUTHORIZATION alice; SELECT * FROM settings.hello_v1('00000000-0000-0000-0000-000000000007', 0); "
                  "SELECT * FROM settings.put_v1('00000000-0000-0000-0000-000000000007', 1, false, 'P', 'of a plugin', 'int', "
                  "'7', false, 0, 0); "
                  "SELECT * FROM settings.put_v1('00000000-0000-0000-0000-000000000007', 2, false, 'P', 'favorites_Music', 'string', "
                  "'a|#|b', false, 0, 0)",
                  "studio");
    EXPECT_EQ(said(as("alice", {"list", "--set", "--plain"})), "favorites_Music\tlist\tproduct\tset\t[\"a\",\"b\"]\tuser\n"
                                                               "keepVideoAspect\tbool\tproduct\tset\tfalse\tlocked\n");
    std::string const forPeople = said(as("alice", {"list", "keep*"}));
    EXPECT_EQ(forPeople, "KEY\tTYPE\tSTORE\tSTATE\tLAYER\tVALUE\nkeepVideoAspect\tbool\tproduct\tset\tlocked\tfalse\n");
    json const all = parsed(said(as("bob", {"list", "keep*", "--json"})));
    ASSERT_EQ(all.size(), 1u);
    EXPECT_EQ(all[0]["layer"], "locked");
}

TEST_F(Layers, StudiosValueThatCannotBeReadIsSaidToBeSo)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    m_server->ask("UPDATE settings.value SET kind = 'string', value = 'maybe', revision = revision + 1; "
                  "UPDATE settings.layer SET revision = revision + 1 WHERE kind = 'studio'",
                  "studio");
    Ended const ended = tool(as("alice", {"get", "keepVideoAspect"}));
    EXPECT_EQ(ended.out, "true\n");
    EXPECT_EQ(ended.err, "editor-settings: keepVideoAspect holds a value of kind string, so the default is read; 'editor-settings explain "
                         "keepVideoAspect' shows both\n");
}

TEST_F(Layers, WithoutTheServerTheWorkstationsValuesAreShown)
{
    said(as("alice", {"set", "keepVideoAspect", "no"}));
    said(as("alice", {"set", "npsSendCount", "3"}));
    m_server->stop();
    for (std::vector<std::string> const& words :
         std::vector<std::vector<std::string>>{{"get", "npsSendCount"}, {"list", "--set"}, {"explain", "keepVideoAspect"}}) {
        Ended const ended = tool(as("alice", words));
        EXPECT_EQ(ended.status, 0);
        EXPECT_NE(ended.err.find(": the server cannot be reached; what follows is what this workstation has; check its name"),
                  std::string::npos)
            << ended.err;
        EXPECT_EQ(lines(ended.err).size(), 1u);
    }
    EXPECT_EQ(tool(as("alice", {"get", "npsSendCount"})).out, "3\n");
    EXPECT_EQ(tool(as("alice", {"get", "keepVideoAspect"})).out, "true\n");
    std::string const error = refused(as("alice", {"set", "keepVideoAspect", "yes"}));
    EXPECT_NE(error.find("cannot change a setting: the server cannot be reached"), std::string::npos) << error;
    EXPECT_EQ(lines(error).size(), 1u) << error;
    said(as("alice", {"set", "npsSendCount", "4"}));
}

// What talks to a server is looked for where the program lies.
TEST_F(Layers, WithoutTheModuleTheWorkstationsValuesAreShown)
{
    std::filesystem::create_directory(m_home.path() / "bin");
    std::filesystem::copy_file(TOOL, m_home.path() / "bin/alone");
    auto const alone = [&](std::vector<std::string> words) {
        words = as("alice", words);
        words.insert(words.begin(), inHome("bin/alone"));
        return run(words);
    };
    Ended const looked = alone({"get", "npsSendCount"});
    EXPECT_EQ(looked.status, 0);
    EXPECT_EQ(looked.out, "0\n");
    EXPECT_EQ(looked.err.rfind("editor-settings: cannot load what talks to the server: ", 0), 0u) << looked.err;
    EXPECT_NE(looked.err.find("; what follows is what this workstation has\n"), std::string::npos) << looked.err;
    Ended const changed = alone({"set", "npsSendCount", "1"});
    EXPECT_EQ(changed.status, 1);
    EXPECT_EQ(changed.err.rfind("editor-settings: cannot load what talks to the server: ", 0), 0u) << changed.err;
}

// libpq brings some twenty libraries with it: whoever shares nothing never loads it.
TEST_F(Layers, ProductWithoutAStudioLoadsNoClient)
{
    auto const opened = [&](std::vector<std::string> const& words) {
        return tool(words, {{"LD_DEBUG", "files"}}).err.find("studio.so") != std::string::npos;
    };
    EXPECT_TRUE(opened(as("alice", {"get", "npsSendCount"})));
    m_products["nobody"] = product("", "nobody.json");
    for (std::vector<std::string> const& words : std::vector<std::vector<std::string>>{
             {"get", "npsSendCount"}, {"list"}, {"explain", "npsSendCount"}, {"set", "npsSendCount", "1"}, {"unset", "npsSendCount"}})
        EXPECT_FALSE(opened(as("nobody", words))) << words.front();
}
