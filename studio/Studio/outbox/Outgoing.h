// SPDX-License-Identifier: MIT
#pragma once

#include <Studio/ServerError.h>
#include <Studio/Session.h>
#include <Studio/Snapshot.h>
#include <Studio/outbox/Outbox.h>

#include <deque>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace Studio {

/// The changes of a session on their way to the server: on this workstation's disk, shown by the snapshot, and in the order in which
/// they are to be sent.
///
/// Threads: `add`, `offer`, `first`, `count` and `report` are for any thread, the others for that of the session.
class Outgoing {
public:
    using Answer = std::optional<Failure>; ///< Why the server refused a change; nullopt where it did not.

    struct Change {
        Outbox::Operation operation;
        std::promise<Answer> answer;
    };

    /// Opens the outbox for the server of `options`, and shows in `snapshot` what it holds: what is known of the server, and what lies over
    /// that. Never throws because there can be none.
    Outgoing(Session::Options const& options, Snapshot& snapshot);

    /// What the outbox knew of the server when it was opened.
    News const& known() const { return m_known; }

    /// Keeps a change and shows it; what will come of it. An invalid future where there is no outbox: then nothing was done.
    /// Throws `Storage::StorageError`, also without an effect.
    std::future<Answer> add(std::string const& store, std::string const& key, std::optional<Value> const& value, std::string const& epoch,
                            std::int64_t base);

    /// Keeps and shows an offer for each of `values`, once for each key. Nothing where there is no outbox.
    void offer(std::string const& store, std::vector<Outbox::Local> const& values);

    /// The change that is to be sent next; null where none waits.
    std::shared_ptr<Change> first() const;
    /// How many changes wait.
    std::size_t count() const;
    /// The outbox; null where there is none.
    Outbox* outbox() { return m_outbox.get(); }

    /// The first change is stored, at this revision of the user's layer.
    void stored(Change& change, std::string const& epoch, std::int64_t revision);
    /// It was stored before, or another one holds: the snapshot has the server's value.
    void overtaken(Change& change);
    /// The server refused it.
    void refused(Change& change, Failure const& failure);
    /// Has the outbox forget what the server has answered.
    void tidy();
    /// What the server has is new.
    void keep(News const& news);
    /// Something is wrong with the outbox.
    void note(Storage::StorageError const& error);
    /// Ends the use of the outbox. Who waits hears that no change was refused.
    void close();

    /// Adds what is to be known of the outbox.
    void report(Status& status) const;

private:
    void open(Session::Options const& options);
    void showAll(Outbox const& outbox);
    void show(Outbox::Operation const& operation);
    void end(Change& change, Answer const& answer);
    void attempt(std::function<void()> const& work);

    Snapshot& m_snapshot;
    News m_known;
    std::mutex m_turns; // held from the file to the queue, so that both have one order
    std::unique_ptr<Outbox> m_outbox;
    mutable std::mutex m_mutex; // for these
    std::deque<std::shared_ptr<Change>> m_changes;
    std::vector<Refused> m_refused;
    std::optional<std::filesystem::path> m_file;
    std::vector<Storage::StorageError> m_obstacles;
    std::vector<std::filesystem::path> m_damaged;
};

/// The changes that bring `news` into a snapshot.
std::vector<Snapshot::Change> changesOf(News const& news);

} // namespace Studio
