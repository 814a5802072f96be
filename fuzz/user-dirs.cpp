// SPDX-License-Identifier: MIT
//
// The user's user-dirs.dirs of any content: the command line's reasons must lead to the folders that Qt reads from it.
//
// An input is the file's content.
#include <support/Fuzz.h>

#include <Inspection/PathOrigin.h>

namespace {

void checkReasons(Host::ToolApplication const& application, char const* place)
{
    std::vector<Inspection::Decision> const reasons =
        decisions(application, Inspection::locationState(*Catalogue::findLocation(place), {}));
    if (reasons.empty() || reasons.front().by != Inspection::Decision::By::userDirs)
        Fuzz::finding(std::string("the reasons for ") + place + " lead elsewhere", {reasons.empty() ? "" : text(reasons.front())});
}

struct Surroundings : Fuzz::BoundLibrary {
    std::filesystem::path const file = home.write(".config/user-dirs.dirs", "");
    Host::ToolApplication const application{
        home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                   R"( "projectFileExtensions": ["x"], "resourcesRoot": "r"})"),
        {home.path() / "stores", Host::StorePolicy::leaveOutMissing}};
};

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Surroundings const surroundings;
    Fuzz::writeFile(surroundings.file, data, size);
    checkReasons(surroundings.application, "defaultProjectPath");
    checkReasons(surroundings.application, "defaultAudioRecordPath");
    return 0;
}
