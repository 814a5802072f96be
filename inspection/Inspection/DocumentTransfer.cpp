// SPDX-License-Identifier: MIT
#include <Inspection/DocumentTransfer.h>

#include <Inspection/PreferenceState.h>

#include <algorithm>
#include <memory>
#include <set>

using Catalogue::DataClass;
using Catalogue::Store;
using Storage::SqliteStorage;

namespace Inspection {

namespace {

constexpr Store stores[] = {Store::product, Store::common};

void announce(StoreBegins const& begins, Store store)
{
    if (begins)
        begins(store);
}

bool isSelected(Selection const& selection, std::string const& key)
{
    auto const& classes = selection.classes;
    return classes.empty() || std::find(classes.begin(), classes.end(), classOf(key)) != classes.end();
}

bool isReadable(SqliteStorage::Row const& row) { return !std::holds_alternative<std::monostate>(row.value); }

// A document's names hold no NUL.
bool isCarried(SqliteStorage::Row const& row) { return isReadable(row) && row.key.find('\0') == std::string::npos; }

Uncarried uncarried(Store store, SqliteStorage::Row const& row) { return {store, row.key, row.kind, isReadable(row)}; }

std::vector<SqliteStorage::Row> selectedRows(Host::Application const& application, Store store, Selection const& selection)
{
    std::vector<SqliteStorage::Row> rows;
    if (SqliteStorage const* const opened = storage(application, store))
        rows = opened->rows();
    auto const isLeftOut = [&](SqliteStorage::Row const& row) { return !isSelected(selection, row.key); };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isLeftOut), rows.end());
    return rows;
}

// Any other value may name the user, the user's work or a folder.
bool survivesRedaction(SqliteStorage::Row const& row, DataClass dataClass)
{
    bool const isPlain = std::holds_alternative<bool>(row.value) || std::holds_alternative<int>(row.value);
    return dataClass == DataClass::roaming || dataClass == DataClass::transient || (dataClass == DataClass::local && isPlain);
}

} // namespace

Export exported(Host::ToolApplication const& application, Selection const& selection, StoreBegins const& begins)
{
    Export result = {{inUtc(std::chrono::system_clock::now()), application.productFile().productName(), {}}, {}, {}};
    for (Store const store : stores) {
        announce(begins, store);
        std::size_t unknown = 0;
        for (SqliteStorage::Row const& row : selectedRows(application, store, selection)) {
            std::optional<KnownKey> const known = knownKey(row.key);
            if (selection.redact && !known) {
                ++unknown;
            } else if (!isCarried(row)) {
                result.uncarried.push_back(uncarried(store, row));
            } else {
                bool const isRedacted = selection.redact && !survivesRedaction(row, known->dataClass);
                result.document.entries.push_back(
                    {store, row.key, row.kind, classOf(row.key), isRedacted ? SqliteStorage::Value() : row.value});
            }
        }
        if (unknown > 0)
            result.unknown.emplace_back(store, unknown);
    }
    return result;
}

// --- Comparing ---

namespace {

void compare(Comparison& result, Store store, std::vector<SqliteStorage::Row> rows, std::vector<Entry> const& entries)
{
    std::vector<SqliteStorage::Row> wanted;
    std::set<std::string> redacted;
    for (Entry const& entry : entries) {
        if (entry.isRedacted())
            redacted.insert(entry.key);
        else
            wanted.push_back({entry.key, entry.kind, entry.value, {}});
    }
    auto const isRedacted = [&](SqliteStorage::Row const& row) { return redacted.count(row.key) > 0; };
    rows.erase(std::remove_if(rows.begin(), rows.end(), isRedacted), rows.end());
    result.redacted += redacted.size();
    result.same += wanted.size();
    for (RowDifference const& difference : rowDifferences(rows, wanted)) {
        if (difference.after)
            --result.same;
        if (difference.after || isCarried(*difference.before))
            result.differences.push_back({store, difference});
        else
            result.uncarried.push_back(uncarried(store, *difference.before));
    }
}

} // namespace

Comparison compared(Host::Application const& application, Selection const& selection, Document const& document, StoreBegins const& begins)
{
    Comparison result;
    for (Store const store : stores) {
        announce(begins, store);
        std::vector<Entry> entries;
        for (Entry const& entry : document.entries)
            if (entry.store == store && isSelected(selection, entry.key))
                entries.push_back(entry);
        compare(result, store, selectedRows(application, store, selection), entries);
    }
    return result;
}

// --- Importing ---

namespace {

struct Target {
    Store name;
    SqliteStorage* store; // null for a missing one
    std::vector<SqliteStorage::Change> changes;
};

std::vector<Target> targetsOf(Host::Application const& application, std::vector<Difference> const& differences)
{
    std::vector<Target> targets;
    for (Store const store : stores) {
        Target target = {store, storage(application, store), {}};
        for (auto const& [where, row] : differences)
            if (where == store && row.after)
                target.changes.push_back({row.key, row.after->value});
        if (!target.changes.empty())
            targets.push_back(target);
    }
    return targets;
}

std::optional<Storage::StorageError> readOnlyError(std::vector<Target> const& targets)
{
    for (Target const& target : targets)
        if (target.store && target.store->isReadOnly())
            return target.store->readOnlyError();
    return std::nullopt;
}

// After a failure of the disk's last step, only a read shows whether the changes hold.
Outcome outcomeOf(Target const& target)
{
    try {
        for (SqliteStorage::Change const& change : target.changes)
            if (std::optional<SqliteStorage::Row> const row = target.store->find(change.key); !row || row->value != change.value)
                return Outcome::unchanged;
        return Outcome::imported;
    } catch (Storage::StorageError const&) {
        return Outcome::unreadable;
    }
}

Imported applied(std::vector<Target> const& targets, StoreBegins const& begins)
{
    Imported result;
    for (Target const& target : targets) {
        if (result.error) {
            result.outcomes.emplace_back(target.name, Outcome::unchanged);
            continue;
        }
        announce(begins, target.name);
        try {
            target.store->apply(target.changes);
            result.outcomes.emplace_back(target.name, Outcome::imported);
        } catch (Storage::StorageError const& error) {
            result.error = error;
            result.outcomes.emplace_back(target.name, outcomeOf(target));
        }
    }
    return result;
}

} // namespace

Imported imported(Host::Application const& application, std::vector<Difference> const& differences, StoreBegins const& begins)
{
    std::vector<Target> targets = targetsOf(application, differences);
    if (std::optional<Storage::StorageError> const error = readOnlyError(targets))
        return {error, {}};
    std::vector<std::unique_ptr<SqliteStorage>> created;
    try {
        for (Target& target : targets)
            if (!target.store)
                target.store =
                    created.emplace_back(std::make_unique<SqliteStorage>(storageFile(application, target.name), application.storeOptions()))
                        .get();
    } catch (Storage::StorageError const& error) {
        return {error, {}};
    }
    return applied(targets, begins);
}

} // namespace Inspection
