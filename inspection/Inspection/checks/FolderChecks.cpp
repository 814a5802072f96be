// SPDX-License-Identifier: MIT
#include <Inspection/checks/FolderChecks.h>

#include <Host/Home.h>
#include <Inspection/Locations.h>

#include <absl/strings/str_cat.h>
#include <absl/strings/str_join.h>

namespace Inspection {

Findings checkHome()
{
    std::string const trouble = Host::troubleWithHome();
    if (trouble.empty())
        return {};
    return {{Severity::warning, Check::home, trouble, "set HOME to the folder of the user whom the editor runs for"}};
}

Findings checkFolders()
{
    Findings findings;
    std::vector<std::string> missing;
    auto const add = [&](Severity severity, WrittenFolder const& folder, char const* effect, char const* remedy) {
        findings.push_back({severity,
                            Check::folder,
                            absl::StrCat(folder.label, effect, remark(folder.check)),
                            remedy,
                            std::nullopt,
                            {},
                            folder.path.toStdString()});
    };
    for (WrittenFolder const& folder : foldersToWrite()) {
        if (!folder.check.isUsable)
            add(Severity::error, folder, ": the editor cannot write there: ",
                "make the folder writable, or set the preference to another; 'editor-settings paths --explain' shows what decides it");
        else if (!folder.check.exists)
            missing.push_back(folder.label);
        else if (folder.check.reason != PathReason::none)
            add(Severity::warning, folder, ": ", "make it readable, or set the preference to another folder");
    }
    if (!missing.empty())
        findings.push_back({Severity::note, Check::foldersMissing, "not there yet: " + absl::StrJoin(missing, ", "),
                            "nothing to do: the editor makes them when it writes there"});
    return findings;
}

} // namespace Inspection
