// SPDX-License-Identifier: MIT
#include <Inspection/checks/StudioServerChecks.h>

#include <absl/strings/str_cat.h>

#include <cstdlib>

namespace Inspection {

namespace {

using Seconds = std::chrono::duration<double>;

// From here on Kerberos refuses a login, and a certificate may seem to be of the past or of the future.
constexpr std::chrono::minutes longestDifference{5};

// The queue holds 8 GB. A tenth of it is far more than clients that listen leave there.
constexpr double fullestQueue = 0.1;

Finding found(Severity severity, Check check, std::string what, std::string remedy)
{
    return {severity, check, std::move(what), std::move(remedy), std::nullopt, {}, {}, {}};
}

void checkSchema(StudioHealth const& health, Findings& findings)
{
    std::string const versions =
        absl::StrCat("the studio's server has schema ", health.account.schema, ", and this program knows ", health.knownSchema);
    if (health.account.schema < health.knownSchema)
        findings.push_back(
            found(Severity::warning, Check::studioSchema, versions, "let the administrator run: editor-settings studio migrate"));
    if (health.account.schema > health.knownSchema)
        findings.push_back(found(Severity::note, Check::studioSchema, versions, "update the program within its next two releases"));
}

void checkWay(StudioHealth const& health, Findings& findings)
{
    if (!health.isEncrypted && !health.isLocal)
        findings.push_back(found(Severity::warning, Check::studioTls,
                                 "what goes to the studio's server and back can be read on the network",
                                 "have the server offer TLS, and leave sslmode out of the connection"));
    if (health.isPooled)
        findings.push_back(found(Severity::note, Check::studioPooler,
                                 "a pooler stands before the studio's server, so changes of others arrive when they are asked for",
                                 "name the server itself in the connection, where it can take a connection of each editor"));
}

void checkUpkeep(StudioHealth const& health, Findings& findings)
{
    double const seconds = Seconds(health.clockDifference).count();
    if (std::abs(seconds) > Seconds(longestDifference).count())
        findings.push_back(found(Severity::warning, Check::studioClock,
                                 absl::StrCat("the studio's server is ", static_cast<long long>(std::abs(seconds)), " seconds ",
                                              seconds > 0 ? "ahead of" : "behind", " this workstation"),
                                 "set both clocks by NTP; settings come to no harm, but certificates and Kerberos need the time"));
    if (health.queueUsage > fullestQueue)
        findings.push_back(found(Severity::warning, Check::studioQueue,
                                 absl::StrCat("the queue of notifications of the studio's server is filled to ",
                                              static_cast<int>(health.queueUsage * 100), " %"),
                                 "end the connection that listens in an open transaction; ALTER DATABASE … SET "
                                 "idle_in_transaction_session_timeout = '60s' does so by itself"));
    if (!health.hasSynchronousStandby)
        findings.push_back(found(Severity::note, Check::studioStandby,
                                 "the studio's server waits for no standby, so a failover may lose the last changes",
                                 "name a standby in synchronous_standby_names, where there is one"));
}

} // namespace

Findings checkStudioServer(StudioHealth const& health)
{
    Findings findings;
    checkSchema(health, findings);
    checkWay(health, findings);
    checkUpkeep(health, findings);
    return findings;
}

Findings checkStudioServer(StudioServer& server)
try {
    if (std::optional<Storage::StorageError> const problem = server.status().problem)
        throw Storage::StorageError(*problem);
    return checkStudioServer(server.health());
} catch (Storage::StorageError const& error) {
    return {found(Severity::error, Check::studioServer, absl::StrCat(error.file(), ": ", error.reason()), error.remedy())};
}

} // namespace Inspection
