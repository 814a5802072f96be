// SPDX-License-Identifier: MIT
#include <Inspection/checks/FolderChecks.h>

#include <Host/Home.h>
#include <Inspection/Locations.h>

#include <absl/strings/str_cat.h>

namespace Inspection {

Findings checkHome()
{
    std::string const trouble = Host::troubleWithHome();
    if (trouble.empty())
        return {};
    return {{Severity::warning, Check::home, trouble, "set HOME to the folder of the user whom the editor runs for"}};
}

namespace {

std::string remedyFor(WrittenFolder const& folder)
{
    std::string const there = remedy(folder.check);
    if (!folder.isPreference)
        return absl::StrCat(there, there.empty() ? "" : "; ", "'editor-settings paths --explain' shows what decides it");
    return absl::StrCat(there, there.empty() ? "set another" : ", or set another", ": 'editor-settings set ", folder.label, " FOLDER'");
}

} // namespace

Findings checkFolders(PathLook const& look)
{
    Findings findings;
    std::vector<std::string> missing;
    for (WrittenFolder const& folder : foldersToWrite(look)) {
        bool const isUsable = folder.check.isUsable;
        if (isUsable && !folder.check.exists)
            missing.push_back(folder.label);
        else if (folder.check.reason != PathReason::none && folder.check.reason != PathReason::unanswered)
            findings.push_back({isUsable ? Severity::warning : Severity::error,
                                Check::folder,
                                absl::StrCat(folder.label, isUsable ? ": " : ": the editor cannot write there: ", remark(folder.check)),
                                remedyFor(folder),
                                std::nullopt,
                                {},
                                folder.path.toStdString(),
                                {},
                                folder.isPreference ? folder.label : ""});
    }
    if (std::size_t const count = missing.size(); count > 0)
        findings.push_back({Severity::note,
                            Check::foldersMissing,
                            count == 1 ? "1 folder is not there yet; the editor makes it"
                                       : absl::StrCat(count, " folders are not there yet; the editor makes them"),
                            {},
                            std::nullopt,
                            {},
                            {},
                            missing});
    return findings;
}

} // namespace Inspection
