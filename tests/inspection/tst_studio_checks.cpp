// SPDX-License-Identifier: MIT
#include <Inspection/checks/StudioServerChecks.h>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using Inspection::StudioHealth;

namespace {

// A server about which nothing is to be said.
StudioHealth sound()
{
    StudioHealth health;
    health.account.schema = health.knownSchema = 3;
    health.isEncrypted = true;
    health.hasSynchronousStandby = true;
    return health;
}

// Each finding as "severity|check|what".
std::vector<std::string> findings(StudioHealth const& health)
{
    std::vector<std::string> result;
    for (Inspection::Finding const& finding : checkStudioServer(health)) {
        EXPECT_NE(finding.remedy, "");
        result.push_back(std::string(severityName(finding.severity)) + '|' + checkName(finding.check) + '|' + finding.what);
    }
    return result;
}

using Lines = std::vector<std::string>;

TEST(StudioChecks, SoundServerIsNotFound) { EXPECT_EQ(findings(sound()), Lines()); }

TEST(StudioChecks, OtherSchemaIsFound)
{
    StudioHealth health = sound();
    health.account.schema = 2;
    EXPECT_EQ(findings(health), (Lines{"warning|studio-schema|the studio's server has schema 2, and this program knows 3"}));
    health.account.schema = 4;
    EXPECT_EQ(findings(health), (Lines{"note|studio-schema|the studio's server has schema 4, and this program knows 3"}));
}

TEST(StudioChecks, OpenNetworkIsFoundButNoSocket)
{
    StudioHealth health = sound();
    health.isEncrypted = false;
    EXPECT_EQ(findings(health), (Lines{"warning|studio-tls|what goes to the studio's server and back can be read on the network"}));
    health.isLocal = true;
    EXPECT_EQ(findings(health), Lines());
}

TEST(StudioChecks, PoolerIsFound)
{
    StudioHealth health = sound();
    health.isPooled = true;
    EXPECT_EQ(findings(health), (Lines{"note|studio-pooler|a pooler stands before the studio's server, so changes of others arrive "
                                       "when they are asked for"}));
}

TEST(StudioChecks, ClockIsFoundFromFiveMinutesOn)
{
    StudioHealth health = sound();
    health.clockDifference = 300s;
    EXPECT_EQ(findings(health), Lines());
    health.clockDifference = 301s;
    EXPECT_EQ(findings(health), (Lines{"warning|studio-clock|the studio's server is 301 seconds ahead of this workstation"}));
    health.clockDifference = -3600s;
    EXPECT_EQ(findings(health), (Lines{"warning|studio-clock|the studio's server is 3600 seconds behind this workstation"}));
}

TEST(StudioChecks, FillingQueueIsFound)
{
    StudioHealth health = sound();
    health.queueUsage = 0.1;
    EXPECT_EQ(findings(health), Lines());
    health.queueUsage = 0.5;
    EXPECT_EQ(findings(health), (Lines{"warning|studio-queue|the queue of notifications of the studio's server is filled to 50 %"}));
}

TEST(StudioChecks, MissingStandbyIsNoted)
{
    StudioHealth health = sound();
    health.hasSynchronousStandby = false;
    EXPECT_EQ(findings(health),
              (Lines{"note|studio-standby|the studio's server waits for no standby, so a failover may lose the last changes"}));
}

} // namespace
