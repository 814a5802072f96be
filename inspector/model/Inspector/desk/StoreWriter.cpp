// SPDX-License-Identifier: MIT
#include "StoreWriter.h"

#include <Inspection/ValueFormat.h>
#include <Inspector/Commands.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <utility>

using Catalogue::Store;
using Inspection::PreferenceState;
using Storage::SqliteStorage;
using Storage::StorageError;

namespace Inspector {

namespace {

using Row = SqliteStorage::Row;
using StoreChange = SqliteStorage::Change;

bool isUnreadable(Row const& row) { return std::holds_alternative<std::monostate>(row.value); }

std::optional<Row> rowOf(std::vector<Row> const& rows, std::string const& key)
{
    auto const found = std::find_if(rows.begin(), rows.end(), [&](Row const& row) { return row.key == key; });
    return found == rows.end() ? std::nullopt : std::optional(*found);
}

// The row that `change` has left. Where somebody else has changed it already, one that is never found in a store.
std::optional<Row> rowLeft(SqliteStorage const& store, StoreChange const& change)
{
    bool const isRemoval = change.value == SqliteStorage::Value() && change.payload == SqliteStorage::Payload();
    if (isRemoval)
        return std::nullopt;
    try {
        std::optional<Row> found = store.find(change.key);
        bool const isUnreadable = change.payload != SqliteStorage::Payload();
        if (found && found->value == change.value && found->payload == change.payload && (!isUnreadable || found->kind == change.kind))
            return found;
    } catch (StorageError const&) { // as if somebody else had changed it
    }
    return Row{change.key, change.kind, change.value, {}, change.payload};
}

// An equal value that was stored again is no other value than the one that was seen.
bool adopt(std::vector<StoreChange>& changes, Storage::Conflict const& conflict)
{
    for (StoreChange& change : changes)
        if (change.key == conflict.key() && !Storage::rowDifference(change.expected->row, conflict.row())) {
            change.expected->row = conflict.row();
            return true;
        }
    return false;
}

bool isChange(Edit const& edit) { return edit.value ? *edit.value != edit.seen->value : !edit.seen->rows.empty(); }

} // namespace

// Why one of the edits cannot be stored, as the command line refuses it; nullopt where all can.
std::optional<std::string> StoreWriter::refusal(std::vector<Edit> const& edits) const
{
    for (Edit const& edit : edits) {
        if (!edit.value)
            continue;
        std::optional<PreferenceState> const state = Inspection::preferenceState(*m_stores.application(), edit.seen->key);
        if (!state || !state->write)
            return "it takes " + edit.seen->about.accepts;
        if (std::string const reason = whyFixed(*state, m_stores.hasStudio()); !reason.empty())
            return reason;
        try {
            Inspection::parsed(state->observation.value, wordsOf(*edit.value));
        } catch (Inspection::ValueError const& error) {
            return error.what();
        }
    }
    return std::nullopt;
}

// The library makes the rows of a value, as it does for the editor: lists, fractions and paths have their form from there.
std::vector<StoreWriter::Planned> StoreWriter::plan(std::vector<Edit> const& edits)
{
    std::vector<Planned> planned;
    for (Edit const& edit : edits) {
        Setting const& seen = *edit.seen;
        if (!edit.value)
            for (Row const& row : seen.rows)
                planned.push_back({seen.store, {row.key, {}, SqliteStorage::Expected{row}}});
        if (!edit.value || !isChange(edit))
            continue;
        createWhereMissing(seen.store, seen.rows.empty() ? std::nullopt : std::optional(seen.rows.front()));
        std::optional<PreferenceState> const state = Inspection::preferenceState(*m_stores.application(), seen.key);
        for (SqliteStorage::Change& change : changesTo(*m_stores.application(), state.value(), *edit.value)) {
            change.expected = SqliteStorage::Expected{rowOf(seen.rows, change.key)};
            planned.push_back({seen.store, std::move(change)});
        }
    }
    return planned;
}

std::vector<StoreWriter::Planned> StoreWriter::plan(Step const& step)
{
    std::vector<Planned> planned;
    for (auto const& [store, row] : step) {
        SqliteStorage::Expected const expected{row.after};
        planned.push_back(
            {store, row.before ? SqliteStorage::Change::restoring(*row.before, expected) : SqliteStorage::Change{row.key, {}, expected}});
    }
    return planned;
}

// Only for a change that finds what it expects.
void StoreWriter::createWhereMissing(Store store, std::optional<Row> const& expected)
{
    if (m_stores.storage(store))
        return;
    StoreView const& view = m_stores.view(store);
    if (view.error)
        throw StorageError(*view.error);
    if (expected)
        throw Storage::Conflict(view.file, "make a change", expected->key, expected, std::nullopt);
    m_stores.create(store);
}

// `mayRewrite` takes a row that was stored again with an equal value for the one that is expected.
Step StoreWriter::apply(Store store, std::vector<SqliteStorage::Change> changes, bool mayRewrite)
{
    createWhereMissing(store, changes.front().expected->row);
    SqliteStorage& target = *m_stores.storage(store);
    for (bool isApplied = false; !isApplied;)
        try {
            target.apply(changes);
            isApplied = true;
        } catch (Storage::Conflict const& conflict) {
            if (!mayRewrite || !adopt(changes, conflict))
                throw;
        }
    Step made;
    for (SqliteStorage::Change const& change : changes)
        made.push_back({store, {change.key, change.expected->row, rowLeft(target, change)}});
    return made;
}

// One transaction for each store. Once the first is done there is no other try, as it would be done twice.
Answer StoreWriter::applied(std::vector<Planned> const& planned, bool mayRewrite)
{
    Answer answer;
    m_stores.readAgain();
    for (Store const store : Catalogue::bothStores) {
        std::vector<SqliteStorage::Change> changes;
        for (Planned const& each : planned)
            if (each.store == store)
                changes.push_back(each.change);
        if (changes.empty())
            continue;
        try {
            Step const made = apply(store, std::move(changes), mayRewrite);
            answer.made.insert(answer.made.end(), made.begin(), made.end());
            answer.outcome = Outcome::stored;
        } catch (Storage::Conflict const& conflict) {
            return {0, Outcome::conflict, answer.made, store, conflict.key(), conflict.row()};
        } catch (StorageError const& error) {
            if (error.code() == StorageError::Code::busy && answer.made.empty())
                throw;
            return {0, Outcome::failed, answer.made, store, {}, {}, {}, error};
        }
    }
    return answer;
}

namespace {

// What a commit changes, each with the row that it was made over.
std::vector<std::pair<Store, std::optional<Row>>> rowsBefore(Commit const& commit)
{
    std::vector<std::pair<Store, std::optional<Row>>> rows;
    if (auto const* const step = std::get_if<Step>(&commit)) {
        for (auto const& [store, row] : *step)
            rows.emplace_back(store, row.after);
        return rows;
    }
    for (Edit const& edit : std::get<std::vector<Edit>>(commit)) {
        if (!isChange(edit))
            continue;
        rows.emplace_back(edit.seen->store, std::nullopt);
        for (Row const& row : edit.seen->rows)
            rows.emplace_back(edit.seen->store, row);
    }
    return rows;
}

Answer withoutBackup(StorageError const& error) { return {0, Outcome::noBackup, {}, {}, {}, {}, {}, error}; }

} // namespace

// Why the commit cannot be stored without a backup; empty where it can.
std::string StoreWriter::refusalWithoutBackup(Commit const& commit) const
{
    for (auto const& [store, row] : rowsBefore(commit))
        if (row && isUnreadable(*row) && !m_backups.has(store))
            return absl::StrCat(Inspection::onOneLine(row->key), " holds a value of kind ", Inspection::onOneLine(row->kind),
                                " that this version cannot read, so it stays as it is until the store can be backed up");
    return {};
}

// Of the stores that it changes and that were not changed before.
void StoreWriter::keepBackups(Commit const& commit)
{
    for (auto const& [name, row] : rowsBefore(commit))
        if (SqliteStorage const* const store = m_stores.storage(name); store && !store->isReadOnly())
            if (std::optional<std::filesystem::path> file = m_backups.keep(name, *store))
                m_untoldBackups.push_back(*std::move(file));
}

// What keeps the commit from being stored; nullopt if it can be stored.
std::optional<Answer> StoreWriter::obstacle(Commit const& commit, bool mayGoWithout)
{
    if (!m_stores.application())
        return refused(m_stores.productError());
    if (auto const* const edits = std::get_if<std::vector<Edit>>(&commit)) {
        if (std::none_of(edits->begin(), edits->end(), isChange))
            return Answer{};
        if (std::optional<std::string> const reason = refusal(*edits))
            return refused(*reason);
    }
    try {
        keepBackups(commit);
    } catch (StorageError const& error) {
        if (error.code() == StorageError::Code::busy)
            throw;
        if (!mayGoWithout)
            return withoutBackup(error);
        if (std::string const reason = refusalWithoutBackup(commit); !reason.empty())
            return refused(reason);
    }
    return std::nullopt;
}

Answer StoreWriter::stored(Commit const& commit, bool mayGoWithout)
try {
    if (std::optional<Answer> const answer = obstacle(commit, mayGoWithout))
        return *answer;
    auto const* const edits = std::get_if<std::vector<Edit>>(&commit);
    return edits ? applied(plan(*edits), true) : applied(plan(std::get<Step>(commit)), false);
} catch (Storage::Conflict const& conflict) {
    return {0, Outcome::conflict, {}, {}, conflict.key(), conflict.row()};
} catch (StorageError const& error) {
    if (error.code() == StorageError::Code::busy)
        throw;
    return failed(error);
}

Answer StoreWriter::store(Commit const& commit, bool mayGoWithout)
{
    Answer answer = stored(commit, mayGoWithout);
    answer.backups = std::exchange(m_untoldBackups, {});
    return answer;
}

} // namespace Inspector
