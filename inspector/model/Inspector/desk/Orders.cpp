// SPDX-License-Identifier: MIT
#include "Orders.h"

#include <Inspection/ExportDocument.h>
#include <Inspection/OneLine.h>
#include <Storage/AtomicFile.h>
#include <Storage/Backup.h>

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <utility>

using Storage::StorageError;

namespace Inspector {

namespace {

// As long as a store waits for others where nobody chooses.
constexpr std::chrono::seconds patience{5};
constexpr std::chrono::milliseconds untilItIsTold{250};

std::vector<std::string> notesOf(Inspection::Export const& result)
{
    std::vector<std::string> notes;
    for (Inspection::Uncarried const& row : result.uncarried)
        notes.push_back(absl::StrCat(inWords(row), ", so it is left out; 'editor-settings backup' keeps it"));
    for (auto const& [store, count] : result.unknown)
        notes.push_back(absl::StrCat(count, count == 1 ? " unknown key" : " unknown keys", " in the ", name(store), " store left out"));
    return notes;
}

// Makes the file, and tells what became of it.
Answer writtenTo(std::filesystem::path const& file, std::string const& bytes)
try {
    if (!Storage::writeNewFile(file, bytes, "write the export"))
        return refused(absl::StrCat("'", Inspection::onOneLine(file.u8string()),
                                    "' is there already and was left as it is; name a new file, or move that one away"));
    Answer answer = {0, Outcome::written};
    answer.file = file;
    return answer;
} catch (StorageError const& error) {
    return failed(error);
}

} // namespace

void Orders::add(Order order)
{
    if (begin(order))
        m_orders.push_back(std::move(order));
}

// Whether it is to be carried out in its turn. A document is read first.
bool Orders::begin(Order& order)
{
    auto const* const comparing = std::get_if<Comparing>(&order.what);
    if (!comparing || comparing->document)
        return true;
    m_aside[order.number] = true;
    m_calls.add([this, number = order.number, file = comparing->file]() -> SlowCalls::Result {
        try {
            auto document = std::make_shared<Inspection::Document const>(documentIn(file));
            return [=] {
                if (m_aside.erase(number) > 0)
                    m_orders.push_back({number, Comparing{file, document}});
            };
        } catch (std::exception const& error) {
            return [this, number, reason = std::string(error.what())] {
                if (m_aside.erase(number) > 0)
                    finish(number, refused(reason));
            };
        }
    });
    return false;
}

void Orders::cancel(int number)
{
    auto const order = std::find_if(m_orders.begin(), m_orders.end(), [&](Order const& each) { return each.number == number; });
    if (order == m_orders.begin())
        m_firstAttempt.reset();
    bool const isThere = order != m_orders.end();
    if (isThere)
        m_orders.erase(order);
    auto const aside = m_aside.find(number);
    bool const isAside = aside != m_aside.end() && aside->second;
    if (isAside)
        m_aside.erase(aside);
    if (isThere || isAside)
        finish(number, {0, Outcome::cancelled});
}

void Orders::finish(int number, Answer answer)
{
    answer.number = number;
    m_answers.push_back(std::move(answer));
}

// In their order: one that waits holds up the others.
void Orders::carryOut()
{
    while (!m_orders.empty()) {
        m_firstAttempt = m_firstAttempt.value_or(Clock::now());
        Order const& order = m_orders.front();
        std::optional<Answer> answer = attempt(order);
        if (!answer)
            break;
        if (m_aside.count(order.number) == 0)
            finish(order.number, *std::move(answer));
        m_orders.pop_front();
        m_firstAttempt.reset();
    }
}

std::vector<int> Orders::takeWaiting()
{
    std::vector<int> waiting;
    if (m_orders.empty() || !m_firstAttempt || Clock::now() < *m_firstAttempt + untilItIsTold)
        return waiting;
    for (Order const& order : m_orders)
        if (m_toldToWait.insert(order.number).second)
            waiting.push_back(order.number);
    return waiting;
}

// nullopt where another attempt may succeed.
std::optional<Answer> Orders::attempt(Order const& order)
try {
    return std::visit([&](auto const& what) { return carriedOut(what, order); }, order.what);
} catch (StorageError const& error) {
    bool const isWorthAnother = error.code() == StorageError::Code::busy && Clock::now() < *m_firstAttempt + patience;
    return isWorthAnother ? std::nullopt : std::optional(failed(error));
} catch (std::exception const& error) {
    return refused(error.what());
}

std::optional<Answer> Orders::carriedOut(Commit const& commit, Order const& order)
{
    return order.isAllowed ? m_writer.store(commit, order.mayGoWithoutBackup) : Answer{0, Outcome::lookingOnly};
}

std::optional<Answer> Orders::carriedOut(Comparing const& comparing, Order const&)
try {
    if (!m_stores.application())
        return refused(m_stores.productError());
    Answer answer = {0, Outcome::compared};
    answer.comparison =
        std::make_shared<DocumentComparison const>(comparisonOf(*m_stores.application(), comparing.file, *comparing.document));
    return answer;
} catch (Inspection::DocumentError const& error) {
    return refused(documentFault(comparing.file, error));
}

// The file is written aside: its folder may be on a network that is gone.
std::optional<Answer> Orders::carriedOut(Exporting const& exporting, Order const& order)
{
    if (!m_stores.application())
        return refused("the product file cannot be read, so there is nothing to export");
    Inspection::Export const result = Inspection::exported(*m_stores.application(), {{}, exporting.isRedacted});
    m_aside[order.number] = false;
    m_calls.add([this, number = order.number, file = exporting.file, bytes = written(result.document),
                 notes = notesOf(result)]() -> SlowCalls::Result {
        Answer answer = writtenTo(file, bytes);
        answer.notes = notes;
        return [this, number, answer] {
            if (m_aside.erase(number) > 0)
                finish(number, answer);
        };
    });
    return Answer{};
}

std::optional<Answer> Orders::carriedOut(BackingUp const& backingUp, Order const&)
{
    if (!m_stores.application())
        return refused(m_stores.productError());
    std::map<std::string, Storage::SqliteStorage const*> present;
    for (Catalogue::Store const store : Catalogue::bothStores)
        if (Storage::SqliteStorage const* const storage = m_stores.storage(store))
            present[Catalogue::name(store)] = storage;
    if (present.empty())
        return refused("there is no store yet, so there is nothing to back up");
    Storage::Backup::write(backingUp.file, present);
    Answer answer = {0, Outcome::written};
    answer.file = backingUp.file;
    return answer;
}

} // namespace Inspector
