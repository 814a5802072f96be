// SPDX-License-Identifier: MIT
//
// Settings of a product that belongs to a studio: whose a value is, and what the studio lets nobody change.
#include <inspector/model/DeskTest.h>

#include <studio/support/ServerTest.h>
#include <support/Process.h>

namespace {

class Shared : public DeskTest {
protected:
    void SetUp() override
    {
        ServerEnvironment::forgetEnvironment();
        if (!Cluster::obstacle().empty()) {
            if (std::getenv("CI"))
                FAIL() << Cluster::obstacle();
            GTEST_SKIP() << Cluster::obstacle();
        }
        m_server.emplace();
        tool({"studio", "migrate", m_server->connection("postgres", "studio")});
        m_server->ask("CREATE ROLE alice LOGIN IN ROLE settings_user; CREATE ROLE ada LOGIN IN ROLE settings_admin");
        m_place.productFile = product("alice");
    }

    std::filesystem::path product(std::string const& user) const
    {
        return m_home.write(user + ".json",
                            R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,
            "projectFileExtensions": [], "resourcesRoot": "r", "studio": ")" +
                                m_server->connection(user, "studio") + R"(", "ownKeys": [
            {"key": "who", "kind": "string", "store": "product", "class": "personal", "purpose": "the user"}]})");
    }

    static void tool(std::vector<std::string> words)
    {
        words.insert(words.begin(), std::string(TOOL_FOLDER) + "/editor-settings");
        Ended const ended = run(words);
        ASSERT_EQ(ended.status, 0) << ended.err;
    }

    // As a user, on another workstation.
    void tool(std::string const& user, std::vector<std::string> words) const
    {
        words.insert(words.end(), {"--product", product(user).string(), "--home", (m_home.path() / user).string()});
        tool(words);
    }

    void startConnected()
    {
        startChanging();
        ASSERT_TRUE(comes([this] { return m_snapshot->studio && m_snapshot->studio->isConnected; }))
            << (m_snapshot->studio ? m_snapshot->studio->trouble : "no studio");
    }

    bool comesFrom(std::string const& key, std::string const& layer) { return comesToShow(key, layer, Setting::layerColumn); }

    std::optional<Cluster> m_server;
};

TEST_F(Shared, EachValueIsSaidToBeWhoseAsItChangesAtTheServer)
{
    m_other.set("lastTarget", "mine");
    startConnected();
    EXPECT_EQ(m_snapshot->studio->trouble, "");
    EXPECT_TRUE(m_snapshot->studio->asOf);
    EXPECT_TRUE(comesFrom("lastTarget", "local"));
    EXPECT_EQ(cell("exportPath", Setting::layerColumn), "default");
    tool("ada", {"studio", "set", "exportPath", "/mnt/exports"});
    ASSERT_TRUE(comesFrom("exportPath", "studio"));
    EXPECT_EQ(cell("exportPath"), "/mnt/exports");
    EXPECT_TRUE(setting("exportPath")->rows.empty()) << "nothing of it is in this workstation's store";
    EXPECT_TRUE(setting("exportPath")->isSettable);
    tool("alice", {"set", "keepVideoAspect", "no"});
    EXPECT_TRUE(comesFrom("keepVideoAspect", "user"));
}

TEST_F(Shared, ValueOfOnesOwnCoversTheStudiosAndComesOff)
{
    startConnected();
    tool("ada", {"studio", "set", "exportPath", "/mnt/exports"});
    ASSERT_TRUE(comesFrom("exportPath", "studio"));
    ASSERT_EQ(set("exportPath", QStringLiteral("/mine")).outcome, Outcome::stored);
    EXPECT_EQ(cell("exportPath"), "/mine");
    EXPECT_EQ(cell("exportPath", Setting::layerColumn), "local");
    std::vector<Inspection::LayerFact> const& facts = setting("exportPath")->layers;
    ASSERT_EQ(facts.size(), 2u);
    EXPECT_EQ(facts[0].what + ": " + facts[0].text, "layer: this workstation's");
    EXPECT_EQ(facts[1].what, "covers");
    EXPECT_EQ(facts[1].text.rfind("/mnt/exports (the studio's, for who has no other, of 20", 0), 0u) << facts[1].text;
    EXPECT_EQ(reset("exportPath").outcome, Outcome::stored);
    EXPECT_EQ(cell("exportPath"), "/mnt/exports");
}

TEST_F(Shared, LockedSettingIsNotSettable)
{
    startConnected();
    std::shared_ptr<Setting const> const seen = setting("lastTarget");
    ASSERT_TRUE(seen->isSettable);
    tool("ada", {"studio", "lock", "lastTarget", "theirs"});
    ASSERT_TRUE(comesFrom("lastTarget", "locked"));
    EXPECT_FALSE(setting("lastTarget")->isSettable);
    EXPECT_TRUE(setting("lastTarget")->isLocked);
    QString const why = QStringLiteral("the studio has locked this setting; ask the administrator of the studio's settings to unlock it");
    EXPECT_EQ(setting("lastTarget")->whyFixed, why);
    EXPECT_EQ(setting("lastTarget")->layers.at(1).what + ' ' + setting("lastTarget")->layers.at(1).text, "locked by ada");
    EXPECT_TRUE(setting("lastTarget")->searchText.contains(QStringLiteral("\t@locked")));
    Answer const answer = committed(std::vector<Edit>{{seen, QStringLiteral("mine")}});
    EXPECT_EQ(answer.outcome, Outcome::refused);
    EXPECT_EQ(answer.whyNot(), why);
    EXPECT_FALSE(std::filesystem::exists(m_productFile)) << "nothing is stored";
    tool("ada", {"studio", "unlock", "lastTarget"});
    ASSERT_TRUE(comesFrom("lastTarget", "studio"));
    EXPECT_TRUE(setting("lastTarget")->isSettable);
}

TEST_F(Shared, WhatRoamsIsChangedAtTheServerOnly)
{
    startConnected();
    EXPECT_FALSE(setting("keepVideoAspect")->isSettable);
    EXPECT_EQ(setting("keepVideoAspect")->whyFixed,
              QStringLiteral("it is the user's own on every workstation of the studio, so it is changed at the studio's server: "
                             "'editor-settings set keepVideoAspect VALUE'"));
    EXPECT_EQ(set("keepVideoAspect", false).outcome, Outcome::refused);
    EXPECT_EQ(m_server->ask("SELECT count(*) FROM settings.value", "studio"), "0");
}

TEST_F(Shared, PersonalValueOfTheStudioIsHidden)
{
    tool("ada", {"studio", "set", "who", "s3cret"});
    startConnected();
    ASSERT_TRUE(comesFrom("who", "studio"));
    EXPECT_EQ(cell("who"), "personal, hidden");
    ASSERT_EQ(set("who", std::string("my s3cret")).outcome, Outcome::stored);
    for (Inspection::LayerFact const& fact : setting("who")->layers)
        EXPECT_EQ(fact.text.find("s3cret"), std::string::npos) << fact.text;
}

TEST_F(Shared, ServerThatHaltsHoldsUpNoLook)
{
    startConnected();
    m_server->halt();
    for (int round = 0; round < 20; ++round) {
        m_other.set("lastTarget", std::to_string(round));
        ASSERT_TRUE(comesToShow("lastTarget", std::to_string(round)));
    }
    ASSERT_EQ(set("lastTarget", QStringLiteral("mine")).outcome, Outcome::stored);
    m_server->goOn();
}

TEST_F(Shared, TroubleWithTheServerIsTold)
{
    startConnected();
    m_server->stop();
    ASSERT_TRUE(comes([this] { return !m_snapshot->studio->isConnected; }));
    EXPECT_NE(m_snapshot->studio->trouble.find("; what follows is as of 20"), std::string::npos) << m_snapshot->studio->trouble;
    m_server->start();
    EXPECT_TRUE(comes([this] { return m_snapshot->studio->isConnected && m_snapshot->studio->trouble.empty(); }));
}

// --- Without a server ---

TEST_F(DeskTest, StudioThatIsNowhereLeavesTheWorkstationsSettings)
{
    m_place.productFile = m_home.write("alone.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S",
        "productKind": 0, "projectFileExtensions": [], "resourcesRoot": "r", "studio": "host=/nowhere dbname=none"})");
    m_other.set("exportPath", "/films");
    startChanging();
    EXPECT_EQ(cell("exportPath"), "/films") << "before anything is known of the server";
    ASSERT_TRUE(
        comes([this] { return m_snapshot->studio->trouble.find("what follows is what this workstation has") != std::string::npos; }));
    EXPECT_FALSE(m_snapshot->studio->isConnected);
    EXPECT_FALSE(setting("keepVideoAspect")->isSettable) << "it would stay here";
    EXPECT_EQ(set("exportPath", QStringLiteral("/other")).outcome, Outcome::stored);
    m_desk->lookAgain();
    EXPECT_EQ(set("exportPath", QStringLiteral("/third")).outcome, Outcome::stored);
}

} // namespace
