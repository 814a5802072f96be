// SPDX-License-Identifier: MIT
#pragma once

#include <Storage/SqliteStorage.h>

#include <QObject>
#include <QString>

#include <filesystem>
#include <memory>
#include <vector>

/// Telling of changes.
namespace Notifier {

class Worker;

/// Tells of changes to settings, made by this process or by another, with Qt's signals.
///
/// A thread of its own looks at the stores, five times a second and when the system hints at a change; it runs once a key
/// is chosen and a receiver is connected to `changed` or `rowChanged`, and rests when the last receiver is gone. The calls
/// here never wait for a store.
///
/// Changes count from `watching` on, which waits for a store that others keep locked, as long as its options say: read the values when it
/// is emitted, and then each value that changes. Several quick changes of a key may be told as one, but after the last of them a signal
/// follows, whose receiver reads the last value.
///
/// Threads: signals are emitted in the thread that the object lives in, whose event loop must run. Of the functions, any
/// thread may call `watch`, `watchPrefix` and `report`. The object may be destroyed at any time, also by a receiver of its signals;
/// the destructor waits for a look that has begun, some tenths of a second where another process keeps a store locked. A forked
/// process has no such thread, and may not use or destroy the object unless it calls exec.
class Notifier : public QObject {
    Q_OBJECT

public:
    /// A store, whose file need not exist; it is never created.
    struct Store {
        QString name;                              ///< Of the host's choice, for `rowChanged` and `failed`.
        std::filesystem::path file;                ///< As `Storage::SqliteStorage` takes it.
        Storage::SqliteStorage::Options options{}; ///< As the host opens it, for `Storage::StoreWatcher`.
    };

    /// Tells of changes to `stores`; a relative file is resolved here. No keys are chosen yet. Throws `std::system_error`
    /// where the process has no descriptor left, or no current directory for a relative file.
    explicit Notifier(std::vector<Store> const& stores, QObject* parent = nullptr);
    ~Notifier() override;

    /// Chooses the key `key`, in all stores.
    void watch(QString const& key);
    /// Chooses all keys that begin with `prefix`, in all stores; an empty one chooses every key.
    void watchPrefix(QString const& prefix);
    /// Tells of a change that somebody else made outside the stores' files, such as on the server of a `Studio::Session`, whose
    /// `onChange` calls this. `store` is the name of one of the stores; a key that is not chosen, and a change that nobody is there to hear
    /// of, is dropped. Not to be called any more once the object is being destroyed.
    void report(QString const& store, QString const& key);

Q_SIGNALS:
    /// The stores are watched from now on, for the first time or after a rest.
    void watching();
    /// A chosen key was set to another value, or removed, in one of the stores.
    void changed(QString const& key);
    /// The same, with more to know: the name of the store, and whether this process made the last change, for which see
    /// `Storage::StoreWatcher::Difference`. Emitted after `changed`.
    void rowChanged(QString const& store, QString const& key, bool byThisProcess);
    /// A store cannot be read, for the reason that `message` tells the user. Emitted once for as long as the error lasts;
    /// the store is watched on, and its values stay known as they were.
    void failed(QString const& store, QString const& message);

private:
    void connectNotify(QMetaMethod const& signal) override;
    void disconnectNotify(QMetaMethod const& signal) override;
    void deliver();
    void checkReceivers();
    bool hasReceivers() const;

    std::vector<QString> m_names;
    std::unique_ptr<Worker> m_worker;
};

} // namespace Notifier
