// SPDX-License-Identifier: MIT
//
// Changes at a studio's server, told as they arrive.
#include "support/StudioTool.h"

#include <support/Json.h>

#include <tools/commands/stores/Monitoring.h>

class StudioMonitor : public Monitoring<SharedStudio> {
protected:
    void watch(std::string const& format)
    {
        start({format, "--product", m_products["alice"], "--home", inHome("alice")});
        awaitReady("both stores and the studio's server");
    }
    // Each line without its time.
    std::vector<std::string> told(std::string const& until) const
    {
        std::vector<std::string> result = lines(awaited("out", until));
        for (std::string& line : result)
            line = line.substr(line.find('\t') + 1);
        return result;
    }
};

TEST_F(StudioMonitor, TellsWhoseValueHoldsAfterAChange)
{
    said(as("ada", {"studio", "set", "keepVideoAspect", "yes"}));
    watch("--plain");
    said(as("ada", {"studio", "lock", "keepVideoAspect", "no"}));
    EXPECT_EQ(told("locked\n"), (std::vector<std::string>{"product\tkeepVideoAspect\ttrue\tfalse\tlocked"}));
    said(as("alice", {"set", "useGuideLines", "no"}));
    said(as("bob", {"set", "fastTrackEnabled", "no"}));
    said(as("alice", {"set", "npsSendCount", "3"}));
    std::vector<std::string> const all = told("user\n");
    EXPECT_EQ(std::count(all.begin(), all.end(), "product\tuseGuideLines\t(unset)\tfalse\tuser"), 1);
    EXPECT_EQ(timesIn(awaited("out", "npsSendCount"), "product\tnpsSendCount\t(unset)\t3\n"), 1u);
    said(as("ada", {"studio", "unset", "keepVideoAspect"}));
    EXPECT_EQ(told("default\n").back(), "product\tkeepVideoAspect\tfalse\t(unset)\tdefault");
    EXPECT_EQ(content(inHome("out")).find("fastTrackEnabled"), std::string::npos) << "bob's are not alice's";
    EXPECT_EQ(statusAfter(SIGINT), 0);
}

TEST_F(StudioMonitor, TellsNoChangeOfACoveredValue)
{
    said(as("alice", {"set", "keepVideoAspect", "yes"}));
    watch("--json");
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    said(as("ada", {"studio", "set", "sendStatistics", "no"}));
    std::vector<std::string> const all = lines(awaited("out", "sendStatistics"));
    ASSERT_EQ(all.size(), 1u);
    json line = parsed(all.front());
    line.erase("time");
    EXPECT_EQ(line, parsed(R"({"store": "common", "layer": "studio", "key": "sendStatistics", "before": null,
                                    "after": {"kind": "bool", "value": false}})"));
    EXPECT_EQ(statusAfter(SIGTERM), 0);
}

TEST_F(StudioMonitor, GoesOnAfterTheServerWasAway)
{
    watch("--plain");
    m_server->stop();
    m_server->start();
    said(as("ada", {"studio", "set", "keepVideoAspect", "no"}));
    EXPECT_EQ(told("studio\n"), (std::vector<std::string>{"product\tkeepVideoAspect\t(unset)\tfalse\tstudio"}));
    EXPECT_EQ(statusAfter(SIGINT), 0);
}
