// SPDX-License-Identifier: MIT
//
// The library and both stores, as the desk's thread looks at them. Internal.
#pragma once

#include "FolderLooks.h"
#include "StudioLink.h"

#include <Inspector/Place.h>
#include <Inspector/Snapshot.h>

#include <Host/ToolApplication.h>
#include <Storage/StoreWatcher.h>

#include <array>
#include <chrono>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace Inspector {

class SharedTexts;

/// Everything here waits for other processes for some tenths of a second at most. One thread.
class OpenedStores {
public:
    /// `haveNews` is called in any thread when another look may find something.
    OpenedStores(Place place, SlowCalls& calls, std::function<void()> haveNews);
    ~OpenedStores();

    /// Looks at the stores. Once changes have stopped for as long as `pause`, a look that finds none examines stores and folders,
    /// which takes longer. An equal snapshot is the same object as before.
    std::shared_ptr<Snapshot const> look(std::chrono::milliseconds pause);
    /// Opens everything again, so that what was in the way is asked for again.
    void openAgain();
    /// The files of both stores; none where the product file cannot be read.
    std::vector<std::filesystem::path> files() const;

    /// nullptr where the product file cannot be read; `productError` tells why.
    Host::ToolApplication const* application() const { return m_application.get(); }
    std::string const& productError() const { return m_productError; }
    /// Whether the product belongs to a studio.
    bool hasStudio() const { return m_studio != nullptr; }
    /// As of when it was opened.
    StoreView const& view(Catalogue::Store store) const { return side(store).view; }
    /// nullptr where it is missing, or cannot be used.
    Storage::SqliteStorage* storage(Catalogue::Store store) const { return m_application ? opened(side(store)) : nullptr; }
    /// Makes the missing store, and opens it. Throws `Storage::StorageError`.
    void create(Catalogue::Store store);
    /// Has the next look read the settings.
    void readAgain() { m_isDirty = true; }

private:
    using Clock = std::chrono::steady_clock;
    using Row = Storage::SqliteStorage::Row;

    struct FileIdentity {
        dev_t device;
        ino_t inode;
        timespec changed;

        bool isSameFile(FileIdentity const& other) const { return device == other.device && inode == other.inode; }
        bool isUntouched(FileIdentity const& other) const
        {
            return isSameFile(other) && changed.tv_sec == other.changed.tv_sec && changed.tv_nsec == other.changed.tv_nsec;
        }
    };

    struct Side {
        Catalogue::Store store;
        std::optional<FileIdentity> identity{}; // of the file that was opened
        std::optional<Storage::StoreWatcher> watcher{};
        bool isReadable = false;  // whether the watcher's last look succeeded
        bool hasBaseline = false; // whether one of its looks has
        long long version = 0;    // of the last read
        StoreView view{};
    };

    static std::optional<FileIdentity> identityOf(StoreView const& view);
    Side& side(Catalogue::Store store) { return m_sides[store == Catalogue::Store::product ? 0 : 1]; }
    Side const& side(Catalogue::Store store) const { return m_sides[store == Catalogue::Store::product ? 0 : 1]; }
    Storage::SqliteStorage* opened(Side const& side) const { return Inspection::storage(*m_application, side.store); }
    Storage::SqliteStorage::Options options(bool createsMissing) const;

    void readProductFile();
    void open();
    void openSide(Side& side);
    static bool isOutdated(Side const& side);
    bool watch(Side& side);
    bool isChanged(Side const& side) const;
    void note(Storage::StoreWatcher::Difference const& difference, Catalogue::Store store);
    void readStudio();
    static bool isUnread(Side const& side);
    bool readSettings();
    void readAll();
    std::shared_ptr<Setting const> const* lineThatHolds(Catalogue::Store store, Row const& row) const;
    std::shared_ptr<Setting const> lineOf(Inspection::PreferenceState const& state, SharedTexts& texts) const;
    void addUnread(Lines<Setting>& lines) const;
    Lines<Setting> settings() const;
    bool isTimeToExamine(std::chrono::milliseconds pause) const;
    void examine();

    std::vector<Row> localRows(Inspection::PreferenceState const& state) const;

    Place const m_place;
    std::function<void()> const m_haveNews;
    FolderLooks m_folders;
    std::shared_ptr<Host::ProductFile> m_product;
    std::unique_ptr<StudioLink> m_studio; // where the product belongs to a studio
    bool m_isShared = false;              // whether the stores were opened with the studio's server
    std::unique_ptr<Host::ToolApplication> m_application;
    std::array<Side, 2> m_sides{{{Catalogue::Store::product}, {Catalogue::Store::common}}};
    std::string m_productError = {}; // why there is no application
    std::shared_ptr<Snapshot const> m_snapshot = std::make_shared<Snapshot>();
    bool m_isDirty = true;             // the settings are to be read
    bool m_isDeclaredAsBefore = false; // all lines are of the product file that was read last
    Clock::time_point m_lastRead = {};
    Clock::time_point m_lastExamined = {};
    bool m_isExamined = false;        // locations and findings are of those settings
    std::set<std::string> m_changed;  // ids of settings
    std::set<std::string> m_troubled; // keys of settings
    std::deque<std::shared_ptr<Change const>> m_journal;
    std::size_t m_changes = 0; // also those that are no longer in the journal
};

} // namespace Inspector
