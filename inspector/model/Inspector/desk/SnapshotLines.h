// SPDX-License-Identifier: MIT
//
// The lines of a snapshot. One that tells the same as in the snapshot before is the same object, so that a model sees at once what
// has changed. Internal.
#pragma once

#include <Inspector/Snapshot.h>

#include <Inspection/PathStatus.h>

#include <QSet>

#include <string>

namespace Inspector {

/// Texts that many lines have, each of which is kept once.
class SharedTexts {
public:
    QString operator()(QString const& text) { return *m_all.insert(text); }
    void share(QStringList& texts)
    {
        for (QString& text : texts)
            text = (*this)(text);
    }

private:
    QSet<QString> m_all;
};

/// The line with that id; nullptr where there is none.
std::shared_ptr<Setting const> const* lineWithId(Lines<Setting> const& settings, std::string const& id);
/// Sorted by their ids.
Lines<Setting> sortedSettings(Lines<Setting> settings, Lines<Setting> const& earlier);
/// Of all stores and folders. Throws `Storage::StorageError`.
Lines<Finding> findingLines(Host::ToolApplication const& application, Inspection::PathLook const& look, Lines<Finding> const& earlier);
/// Of all locations.
Lines<Location> locationLines(Host::ToolApplication const& application, Inspection::PathLook const& look, Lines<Location> const& earlier);

} // namespace Inspector
