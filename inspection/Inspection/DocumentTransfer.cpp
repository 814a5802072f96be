// SPDX-License-Identifier: MIT
#include <Inspection/DocumentTransfer.h>

#include <Inspection/OneLine.h>
#include <Inspection/PreferenceState.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <memory>

using Catalogue::DataClass;
using Catalogue::Store;
using Storage::SqliteStorage;

namespace Inspection {

namespace {

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

std::string inWords(Uncarried const& row)
{
    std::string const place = absl::StrCat("'", onOneLine(row.key), "' in the ", name(row.store), " store ");
    return row.isReadable ? place + "has a NUL in its key"
                          : absl::StrCat(place, "holds a value of kind '", onOneLine(row.kind), "' that this version cannot read");
}

Export exported(Host::ToolApplication const& application, Selection const& selection, StoreBegins const& begins)
{
    Export result = {{inUtc(std::chrono::system_clock::now()), application.productFile().productName(), {}}, {}, {}};
    for (Store const store : Catalogue::bothStores) {
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
                    {store, *Storage::kindFromWord(row.kind), row.key, isRedacted ? SqliteStorage::Value() : row.value});
            }
        }
        if (unknown > 0)
            result.unknown.emplace_back(store, unknown);
    }
    return result;
}

// --- Comparing ---

namespace {

class Comparing {
public:
    Comparing(Selection const& selection, TakeDifference const& take) : m_selection(selection), m_take(take) {}

    // Rows and entries are sorted alike. Takes the entries of the store, which are the first.
    void compare(Store store, std::vector<SqliteStorage::Row> rows, std::deque<Entry>& entries)
    {
        auto row = rows.begin();
        for (; !entries.empty() && entries.front().store == store; entries.pop_front()) {
            Entry& entry = entries.front();
            if (!isSelected(m_selection, entry.key))
                continue;
            for (; row != rows.end() && row->key < entry.key; ++row)
                addUnwanted(store, *row);
            std::optional<SqliteStorage::Row> stored;
            if (row != rows.end() && row->key == entry.key)
                stored = std::move(*row++);
            addWanted(std::move(stored), std::move(entry));
        }
        for (; row != rows.end(); ++row)
            addUnwanted(store, *row);
    }

    Comparison takeResult() { return std::move(m_result); }

private:
    void addUnwanted(Store store, SqliteStorage::Row& row)
    {
        if (isCarried(row))
            m_take({store, *rowDifference(std::move(row), std::nullopt)});
        else
            m_result.uncarried.push_back(uncarried(store, row));
    }

    void addWanted(std::optional<SqliteStorage::Row> stored, Entry entry)
    {
        if (entry.isRedacted()) {
            ++m_result.redacted;
            return;
        }
        SqliteStorage::Row wanted = {std::move(entry.key), Storage::storedWord(entry.kind), std::move(entry.value), {}};
        if (std::optional<RowDifference> difference = rowDifference(std::move(stored), std::move(wanted)))
            m_take({entry.store, *std::move(difference)});
        else
            ++m_result.same;
    }

    Selection const& m_selection;
    TakeDifference const& m_take;
    Comparison m_result;
};

} // namespace

Comparison compared(Host::Application const& application, Selection const& selection, Document document, TakeDifference const& take,
                    StoreBegins const& begins)
{
    Comparing comparing(selection, take);
    for (Store const store : Catalogue::bothStores) {
        announce(begins, store);
        comparing.compare(store, selectedRows(application, store, selection), document.entries);
    }
    return comparing.takeResult();
}

// --- Importing ---

namespace {

struct Target {
    Store name;
    SqliteStorage* store; // null for a missing one
    std::deque<NewValue> values;
};

std::vector<Target> targetsOf(Host::Application const& application, std::deque<NewValue> values)
{
    std::vector<Target> targets;
    for (Store const store : Catalogue::bothStores) {
        Target target = {store, storage(application, store), {}};
        for (; !values.empty() && values.front().store == store; values.pop_front())
            target.values.push_back(std::move(values.front()));
        if (!target.values.empty())
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
        for (NewValue const& wanted : target.values)
            if (std::optional<SqliteStorage::Row> const row = target.store->find(wanted.key); !row || row->value != wanted.value)
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
            target.store->applyEach(target.values.size(), [&](std::size_t number) -> SqliteStorage::Change {
                return {target.values[number].key, target.values[number].value};
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

Imported imported(Host::Application const& application, std::deque<NewValue> values, StoreBegins const& begins)
{
    std::vector<Target> targets = targetsOf(application, std::move(values));
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
