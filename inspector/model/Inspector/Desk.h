// SPDX-License-Identifier: MIT
#pragma once

#include <Inspector/Commits.h>
#include <Inspector/Place.h>

#include <QObject>

#include <chrono>
#include <filesystem>
#include <memory>

namespace Inspector {

class DeskThread;

/// Looks at both stores again and again, and stores what it is asked to, in the one thread that calls library and stores. While it
/// lives no other thread may call either.
///
/// Nothing is stored, and no store is created, until changes are allowed. A store that others keep locked holds up nobody: what is to
/// be stored is tried again for five seconds, and the last lines of the store stay as they were.
///
/// Before the first change of a store it is copied to a backup, once in the life of this object; at most five of them are kept for
/// each store. Where that fails nothing is stored, until `storeWithoutBackup` is called.
///
/// Threads: all functions and signals belong to the thread that the object lives in, whose event loop must run. None of them waits
/// for a store, a folder or a server, but the destructor for a look that has begun: some tenths of a second, and up to four seconds
/// where a studio's server does not answer. What has not been stored then is dropped. Folders and documents are looked at by threads
/// that nobody waits for, as the system may take minutes for a network that is gone; they own all that they use.
class Desk : public QObject {
    Q_OBJECT

public:
    /// Throws `std::system_error` where the process can have no further descriptor or thread.
    explicit Desk(Place const& place, QObject* parent = nullptr);
    ~Desk() override;

    /// Whether commits are stored from now on.
    void allowChanges(bool isAllowed) { m_isAllowed = isAllowed; }
    /// How long a change may stay unseen where the system gives no hint of it; 200 ms at first.
    void setPause(std::chrono::milliseconds longest);
    /// Looks at once and at everything, also at a product file that could not be read.
    void lookAgain();
    /// Stores `commit` after those that were asked for before. Returns the number of its answer.
    int commit(Commit const& commit);
    /// Has the request of that number answered as `cancelled`, unless it is being carried out or answered already.
    void cancel(int number);
    /// Stores from now on also what cannot be backed up. A value of a kind that this version cannot read stays as it is all the same.
    void storeWithoutBackup() { m_mayGoWithoutBackup = true; }
    /// Compares the document `file`, an export, with the stores, as `editor-settings diff` does. What is to be taken of it is stored by
    /// `commit(stepOf(...))`. Returns the number of the answer.
    int compare(std::filesystem::path const& file);
    /// Exports what is stored to the new file `file`. With `isRedacted` without personal values, as `editor-settings export --redact`.
    int exportTo(std::filesystem::path const& file, bool isRedacted = true);
    /// Copies both stores to the new file `file`, as `editor-settings backup` does.
    int backUpTo(std::filesystem::path const& file);
    /// Looks at a folder that is being typed, for an editor that would write there. Returns the number of `folderChecked`.
    int checkFolder(QString const& path);

Q_SIGNALS:
    /// Something differs from the last snapshot. The first one comes by itself.
    void looked(std::shared_ptr<Inspector::Snapshot const> const& snapshot);
    /// What became of a request, after the snapshot that shows it.
    void answered(Inspector::Answer const& answer);
    /// Others have kept a store locked for a quarter of a second, so the request of that number, or one before it, still waits.
    /// Once for each request at most.
    void waits(int number);
    /// What a typed folder leads to, in the words of `remark(status)`. May come late, or never.
    void folderChecked(int number, Inspection::PathStatus const& status);

private:
    Q_INVOKABLE void deliver();

    bool m_isAllowed = false;
    bool m_mayGoWithoutBackup = false;
    int m_lastNumber = 0;
    std::shared_ptr<Snapshot const> m_told;
    std::unique_ptr<DeskThread> m_thread;
};

} // namespace Inspector
