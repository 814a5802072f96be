// SPDX-License-Identifier: MIT
#include <Studio/outbox/OutboxReport.h>

#include <Studio/outbox/OutboxFile.h>
#include <Studio/outbox/OutboxFolder.h>

#include <Storage/sqlite/SqliteErrors.h>

#include <SQLiteCpp/Column.h>

#include <algorithm>

namespace fs = std::filesystem;

namespace Studio {

namespace {

std::chrono::system_clock::time_point timeOfMilliseconds(std::int64_t milliseconds)
{
    return std::chrono::system_clock::time_point(std::chrono::milliseconds(milliseconds));
}

void readOne(fs::path const& file, std::string const& identity, OutboxReport& report)
{
    SQLite::Database database = openOutboxToRead(file, identity);
    SQLite::Statement pending(database, "SELECT count(*), coalesce(min(time_of_day), 0) FROM operation");
    pending.executeStep();
    if (auto const count = static_cast<std::size_t>(pending.getColumn(0).getInt64()); count > 0) {
        auto const since = timeOfMilliseconds(pending.getColumn(1).getInt64());
        report.since = std::min(report.since.value_or(since), since);
        report.pending += count;
    }
    for (Outbox::Refusal& refusal : readRefusals(database))
        report.refusals.push_back(std::move(refusal));
}

} // namespace

OutboxReport readOutboxes(std::vector<fs::path> const& folders, std::string const& identity)
{
    OutboxReport report;
    for (fs::path const& folder : folders) {
        fs::path const file = outboxFile(folder, identity);
        std::error_code none;
        if (fs::exists(file, none))
            Storage::withStorageErrors(file, "read the outbox", [&] { readOne(file, identity, report); });
        for (fs::path& damaged : damagedOutboxes(file))
            report.damaged.push_back(std::move(damaged));
    }
    return report;
}

} // namespace Studio
