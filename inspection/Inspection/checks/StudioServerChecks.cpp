// SPDX-License-Identifier: MIT
#include <Inspection/checks/StudioServerChecks.h>

#include <Inspection/RowDifference.h>

#include <absl/strings/str_cat.h>

#include <cstdlib>

namespace Inspection {

namespace {

using Seconds = std::chrono::duration<double>;

// From here on Kerberos refuses a login, and a certificate may seem to be of the past or of the future.
constexpr std::chrono::minutes longestDifference{5};

// The queue holds 8 GB. A tenth of it is far more than clients that listen leave there.
constexpr double fullestQueue = 0.1;

// As long as the server keeps what lost a conflict.
constexpr std::chrono::hours longestMemory{90 * 24};

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

Findings checkKeptChanges(KeptChanges const& kept, std::chrono::system_clock::time_point now)
{
    Findings findings;
    if (kept.pending > 0)
        findings.push_back(
            found(Severity::note, Check::studioPending,
                  absl::StrCat(kept.pending, kept.pending == 1 ? " change waits" : " changes wait", " for the studio's server since ",
                               inLocalTime(*kept.since)),
                  "start the editor where it can reach the server, which sends them; do not remove the user's files before"));
    for (RefusedChange const& refused : kept.refused)
        if (now - refused.when < longestMemory)
            findings.push_back({Severity::warning,
                                Check::studioRefused,
                                absl::StrCat("the studio's server refused the change of ", inLocalTime(refused.when),
                                             ", which was undone: ", refused.reason),
                                absl::StrCat(refused.remedy, "; then set it again"),
                                refused.store == "common" ? Catalogue::Store::common : Catalogue::Store::product,
                                refused.key,
                                {},
                                {}});
    for (std::string const& file : kept.damaged)
        findings.push_back({Severity::warning,
                            Check::studioOutbox,
                            "changes that waited for the studio's server were in a file that is damaged, and may be lost",
                            "look which settings are missing, and set them again; then remove the file",
                            std::nullopt,
                            {},
                            file,
                            {}});
    return findings;
}

namespace {

Findings checkAnswers(StudioServer& server)
try {
    if (std::optional<Storage::StorageError> const problem = server.status().problem)
        throw Storage::StorageError(*problem);
    return checkStudioServer(server.health());
} catch (Storage::StorageError const& error) {
    return {found(Severity::error, Check::studioServer, absl::StrCat(error.file(), ": ", error.reason()), error.remedy())};
}

Findings checkKept(StudioServer const& server)
try {
    return checkKeptChanges(server.kept(), std::chrono::system_clock::now());
} catch (Storage::StorageError const& error) {
    return {{Severity::error, Check::studioOutbox, error.reason(), error.remedy(), std::nullopt, {}, error.file(), {}}};
}

} // namespace

Findings checkStudioServer(StudioServer& server)
{
    Findings findings = checkAnswers(server);
    for (Finding& finding : checkKept(server))
        findings.push_back(std::move(finding));
    return findings;
}

} // namespace Inspection
