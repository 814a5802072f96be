// SPDX-License-Identifier: MIT
#include "support/StudioTool.h"

#include <support/Json.h>

#include <studio/support/Pooler.h>

class StudioDoctor : public SharedStudio {
protected:
    // The findings about the studio, each as "severity check".
    std::vector<std::string> findings(Ended const& ended)
    {
        std::vector<std::string> result;
        json const report = parsed(ended.out);
        for (json const& finding : report["findings"])
            if (std::string const check = finding["check"]; check.rfind("studio", 0) == 0)
                result.push_back(finding["severity"].get<std::string>() + ' ' + check);
        return result;
    }
    Ended examined(std::string const& user) { return tool(as(user, {"doctor", "--json"})); }
};

TEST_F(StudioDoctor, ServerOnThisMachineIsWellButForItsStandby)
{
    EXPECT_EQ(findings(examined("alice")), (std::vector<std::string>{"note studio-standby"}));
}

TEST_F(StudioDoctor, ServerThatIsAwayIsAnErrorWithItsRemedy)
{
    m_server->stop();
    Ended const ended = examined("alice");
    EXPECT_EQ(ended.status, 1);
    ASSERT_EQ(findings(ended), (std::vector<std::string>{"error studio-server"}));
    json const report = parsed(ended.out);
    for (json const& finding : report["findings"])
        if (finding["check"] == "studio-server") {
            EXPECT_NE(finding["what"].get<std::string>().find(": the server cannot be reached"), std::string::npos);
            EXPECT_EQ(finding["remedy"], "check its name, its port and the network, and whether it runs");
        }
}

TEST_F(StudioDoctor, LoginWithoutRightsIsAnError)
{
    m_server->ask("CREATE ROLE mallory LOGIN; GRANT CONNECT ON DATABASE studio TO mallory");
    m_products["mallory"] = product(connection("mallory"), "mallory.json");
    EXPECT_EQ(findings(examined("mallory")), (std::vector<std::string>{"error studio-server"}));
}

TEST_F(StudioDoctor, ProductWithoutAStudioHasNoSuchFindings)
{
    m_products["nobody"] = product("", "nobody.json");
    EXPECT_EQ(findings(examined("nobody")), std::vector<std::string>());
}

TEST_F(StudioDoctor, PoolerIsNoted)
{
    if (!std::filesystem::exists(Pooler::program))
        GTEST_SKIP() << "there is no pooler here: install Debian's pgbouncer";
    Pooler const pooler(*m_server);
    m_products["pooled"] = product(pooler.connection("alice"), "pooled.json");
    EXPECT_EQ(findings(examined("pooled")), (std::vector<std::string>{"note studio-pooler", "note studio-standby"}));
}

TEST_F(StudioDoctor, NewerSchemaIsNoted)
{
    m_server->ask("INSERT INTO settings.schema_version (version, objects) VALUES (3, settings.objects())", "studio");
    EXPECT_EQ(findings(examined("alice")), (std::vector<std::string>{"note studio-schema", "note studio-standby"}));
}
