// SPDX-License-Identifier: MIT
#include <Inspection/checks/StudioServerChecks.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

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

// Each finding as "severity|check|key|what|remedy|file", for a workstation of the time 2026-01-01 00:00 UTC.
std::vector<std::string> findings(Inspection::KeptChanges const& kept)
{
    std::vector<std::string> result;
    for (Inspection::Finding const& finding : checkKeptChanges(kept, std::chrono::system_clock::time_point(1767225600s)))
        result.push_back(std::string(severityName(finding.severity)) + '|' + checkName(finding.check) + '|' + finding.key + '|' +
                         finding.what + '|' + finding.remedy + '|' + finding.path);
    return result;
}

std::chrono::system_clock::time_point daysBefore(int days) { return std::chrono::system_clock::time_point(1767225600s - days * 24h); }

class KeptChanges : public testing::Test {
protected:
    void SetUp() override
    {
        ::setenv("TZ", "UTC", 1);
        ::tzset();
    }
};

TEST_F(KeptChanges, NothingIsFoundWhereNothingIsKept) { EXPECT_EQ(findings(Inspection::KeptChanges()), Lines()); }

TEST_F(KeptChanges, ThoseThatWaitAreNoted)
{
    Inspection::KeptChanges kept;
    kept.pending = 1;
    kept.since = daysBefore(2);
    std::string const remedy = "|start the editor where it can reach the server, which sends them; do not remove the user's files before|";
    EXPECT_EQ(findings(kept), (Lines{"note|studio-pending||1 change waits for the studio's server since 2025-12-30 00:00:00" + remedy}));
    kept.pending = 12;
    EXPECT_EQ(findings(kept), (Lines{"note|studio-pending||12 changes wait for the studio's server since 2025-12-30 00:00:00" + remedy}));
}

TEST_F(KeptChanges, RefusedOnesOf90DaysAreWarnedOf)
{
    Inspection::KeptChanges kept;
    kept.refused = {{"common", "old", "it is locked", "ask somebody", daysBefore(90)},
                    {"Editor", "number", "it is locked", "ask somebody", daysBefore(89)}};
    EXPECT_EQ(findings(kept),
              (Lines{"warning|studio-refused|number|the studio's server refused the change of 2025-10-04 00:00:00, which was "
                     "undone: it is locked|ask somebody; then set it again|"}));
}

TEST_F(KeptChanges, StoreOfARefusedOneIsNamed)
{
    Inspection::KeptChanges kept;
    kept.refused = {{"common", "a", "", "", daysBefore(1)}, {"Editor", "b", "", "", daysBefore(1)}};
    Inspection::Findings const all = checkKeptChanges(kept, daysBefore(0));
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].store, Catalogue::Store::common);
    EXPECT_EQ(all[1].store, Catalogue::Store::product);
}

TEST_F(KeptChanges, DamagedFileIsWarnedOf)
{
    Inspection::KeptChanges kept;
    kept.damaged = {"/outbox.damaged"};
    EXPECT_EQ(findings(kept),
              (Lines{"warning|studio-outbox||changes that waited for the studio's server were in a file that is damaged, and may be lost|"
                     "look which settings are missing, and set them again; then remove the file|/outbox.damaged"}));
}

} // namespace
