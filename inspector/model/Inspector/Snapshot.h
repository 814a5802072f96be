// SPDX-License-Identifier: MIT
//
// What one look at the stores found, as values that never change: any thread may read them.
#pragma once

#include <Inspection/DocumentTransfer.h>
#include <Inspection/PathOrigin.h>
#include <Inspection/PreferenceState.h>
#include <Inspection/checks/ExaminedStore.h>
#include <Inspection/checks/Finding.h>
#include <Inspection/studio/StudioServer.h>

#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// A window onto the stores of an editor: the part without widgets.
namespace Inspector {

/// What stands in place of a personal value.
inline constexpr char const* hiddenText = "personal, hidden";

/// A line of a table. Its texts are on one line and safe to show; none holds a personal value.
struct Item {
    std::string id = {};     ///< Differs from that of every other line; lines are sorted by its bytes.
    QStringList cells = {};  ///< A text for each column.
    QString spoken = {};     ///< The whole line, for a screen reader; empty where it is that of the cells.
    QString searchText = {}; ///< As `Search` asks for it; empty where it is that of the cells. With its marks.
    unsigned marks = 0;      ///< A bit for each mark, as `Search::bitsOf` has them.

    /// The whole line, for a screen reader.
    QString spokenLine() const;
    /// The text that is searched.
    QString searchedText() const;
};

/// A preference, a declared key, or whatever else is stored.
struct Setting : Item {
    /// The columns of `cells`.
    enum Column { keyColumn, valueColumn, stateColumn, storeColumn, classColumn, defaultColumn, changedColumn, purposeColumn, layerColumn };

    std::string key;                               ///< Of any bytes.
    Catalogue::Store store;                        ///< Where its rows lie.
    std::optional<Inspection::State> state;        ///< nullopt where its store could not be read yet.
    Catalogue::Value value;                        ///< What a read returns; of an undeclared key what is stored.
    Catalogue::Value defaultValue;                 ///< Of the type of the value.
    std::vector<Storage::SqliteStorage::Row> rows; ///< Of this workstation's store: none, one, or both halves of a rational.
    Inspection::Description about;                 ///< For people, and for programmers.
    Catalogue::Usable usable;                      ///< The values that the editor can use, among those of the type.
    std::string computedBy;                        ///< The location that is the default; empty for a fixed default.
    QString shownValue;                            ///< On one line, also where it is personal.
    bool isHidden = false;                         ///< Whether a personal value is stored.
    bool isSettable = false;                       ///< Whether it takes another value. It may be reset wherever it has rows.
    QString whyFixed;                              ///< Why it does not, for people; empty where it does.
    bool isLocked = false;                         ///< Whether a studio has locked it.
    std::vector<Inspection::LayerFact> layers;     ///< Whose value it is and what that covers, as `explain` tells; none without a studio.

    /// The whole line with the value, for somebody who asked to see it.
    QString spokenWithValue() const;
};

/// What is not in the stores and decides how a setting is found.
struct Marks {
    bool isChanged = false;  ///< Somebody has changed it since the first look.
    bool hasTrouble = false; ///< A finding is about it that is more than a note.
    bool hasStudio = false;  ///< The product belongs to a studio.
};

/// The setting as `state` has it, with its `rows` of this workstation's store; nothing but the key, the default and what it is for
/// where its store could not be read.
Setting settingOf(Inspection::PreferenceState const& state, std::vector<Storage::SqliteStorage::Row> const& rows, bool isRead,
                  Marks const& marks);
/// Why the window stores no other value of a setting that takes one; empty where it does.
std::string whyFixed(Inspection::PreferenceState const& state, bool hasStudio);
/// The id of a setting.
std::string settingId(std::string const& key, Catalogue::Store store);

/// A place of the editor's files, with what it leads to. Columns: location, path, use, status.
struct Location : Item {
    bool isUsable = true;               ///< False where the editor writes there and cannot.
    std::vector<std::string> decidedBy; ///< What decides the path, what decides most first; raw bytes.
};

Location locationOf(Inspection::LocationState const& state, Inspection::PathStatus const& status,
                    std::vector<Inspection::Decision> const& decisions);

/// Something that is wrong, or worth a note. Columns: severity, where, what, remedy.
struct Finding : Item {
    Inspection::Finding found; ///< Its texts may hold a personal value.
    std::string key;           ///< The setting that it is about; empty for none.
};

Finding findingOf(Inspection::Finding const& found);
/// The id of its line.
std::string findingId(Inspection::Finding const& found);

/// A change of a row. Columns: time, who, store, key, before, after.
struct Change : Item {
    Inspection::Difference row; ///< May hold a personal value.
    bool byThisWindow = false;
};

/// `number` is higher for a later change.
Change changeOf(Inspection::Difference const& row, bool byThisWindow, std::size_t number);

/// A store, as of the last look.
struct StoreView {
    std::string file;                                               ///< Absolute, in UTF-8; empty before the first look.
    Inspection::StoreState state = Inspection::StoreState::missing; ///< In the words of the doctor.
    std::optional<Storage::StorageError> error; ///< Why it is unusable or takes no change. The lines are then of an earlier look.
};

template <typename T>
using Lines = std::vector<std::shared_ptr<T const>>;

/// The studio's server that the product file names, without asking it.
struct StudioView {
    bool isConnected = false;
    std::optional<std::chrono::system_clock::time_point> asOf; ///< When its values were read; nullopt where they never were.
    std::string trouble;                                       ///< Why it is not reached, as the command line says it; empty where it is.
};

bool operator==(StudioView const& one, StudioView const& other);

/// Lines that have not changed since the snapshot before are the same objects.
struct Snapshot {
    StoreView product;
    StoreView common;
    std::optional<StudioView> studio; ///< nullopt where the product belongs to none.
    Lines<Setting> settings;
    Lines<Location> locations; ///< Empty until the folders have been looked at, as are `findings`.
    Lines<Finding> findings;   ///< The worst first.
    Lines<Change> changes;     ///< The newest first; of many the last 1000.
};

} // namespace Inspector
