// SPDX-License-Identifier: MIT
#include <Inspection/DocumentTransfer.h>

#include <Inspection/PreferenceState.h>

#include <algorithm>
#include <memory>

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

void addUnwanted(Comparison& result, Store store, SqliteStorage::Row& row)
{
    if (isCarried(row))
        result.differences.push_back({store, *rowDifference(std::move(row), std::nullopt)});
    else
        result.uncarried.push_back(uncarried(store, row));
}

void addWanted(Comparison& result, std::optional<SqliteStorage::Row> stored, Entry entry)
{
    if (entry.isRedacted()) {
        ++result.redacted;
        return;
    }
    SqliteStorage::Row wanted = {std::move(entry.key), std::move(entry.kind), std::move(entry.value), {}};
    if (std::optional<RowDifference> difference = rowDifference(std::move(stored), std::move(wanted)))
        result.differences.push_back({entry.store, *std::move(difference)});
    else
        ++result.same;
}

// Rows and entries are sorted alike. Takes the entries of the store, which are the first.
void compare(Comparison& result, Store store, std::vector<SqliteStorage::Row> rows, std::deque<Entry>& entries, Selection const& selection)
{
    auto row = rows.begin();
    for (; !entries.empty() && entries.front().store == store; entries.pop_front()) {
        Entry& entry = entries.front();
        if (!isSelected(selection, entry.key))
            continue;
        for (; row != rows.end() && row->key < entry.key; ++row)
            addUnwanted(result, store, *row);
        std::optional<SqliteStorage::Row> stored;
        if (row != rows.end() && row->key == entry.key)
            stored = std::move(*row++);
        addWanted(result, std::move(stored), std::move(entry));
    }
    for (; row != rows.end(); ++row)
        addUnwanted(result, store, *row);
}

} // namespace

Comparison compared(Host::Application const& application, Selection const& selection, Document document, StoreBegins const& begins)
{
    Comparison result;
    for (Store const store : stores) {
        announce(begins, store);
        compare(result, store, selectedRows(application, store, selection), document.entries, selection);
    }
    return result;
}

// --- Importing ---

namespace {

struct Target {
    Store name;
    SqliteStorage* store; // null for a missing one
    std::deque<Difference> changes;
};

std::vector<Target> targetsOf(Host::Application const& application, std::deque<Difference> differences)
{
    std::vector<Target> targets;
    for (Store const store : stores) {
        Target target = {store, storage(application, store), {}};
        for (; !differences.empty() && differences.front().store == store; differences.pop_front())
            if (differences.front().row.after)
                target.changes.push_back(std::move(differences.front()));
        if (!target.changes.empty())
            targets.push_back(std::move(target));
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
        for (auto const& [store, change] : target.changes)
            if (std::optional<SqliteStorage::Row> const row = target.store->find(change.key); !row || row->value != change.after->value)
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
            target.store->applyEach(target.changes.size(), [&](std::size_t number) -> SqliteStorage::Change {
                RowDifference const& row = target.changes[number].row;
                return {row.key, row.after->value};
            });
            result.outcomes.emplace_back(target.name, Outcome::imported);
        } catch (Storage::StorageError const& error) {
            result.error = error;
            result.outcomes.emplace_back(target.name, outcomeOf(target));
        }
    }
    return result;
}

} // namespace

Imported imported(Host::Application const& application, std::deque<Difference> differences, StoreBegins const& begins)
{
    std::vector<Target> targets = targetsOf(application, std::move(differences));
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
