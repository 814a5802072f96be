// SPDX-License-Identifier: MIT
//
// The user's user-dirs.dirs of any content: what the platform library makes of it, told a second time for plain content,
// and the command line's reasons, which must lead to the same folders.
//
// An input is the file's content.
#include <support/Fuzz.h>
#include <support/NaiveNames.h>

#include <Inspection/PathOrigin.h>
#include <Lumora/Util/StandardPaths.h>

using Fuzz::expectEqual;
using Fuzz::utf8;

namespace {

// The value of the last line "NAME=VALUE", with what stands for the home folder filled in; else `otherwise`. Qt takes the
// last "_DIR=" of a line for the end of its name.
std::string folder(std::string const& content, std::string const& name, std::string const& home, std::string const& otherwise)
{
    std::string result = otherwise;
    for (std::string const& line : Fuzz::split(content, '\n')) {
        bool const hasName = line.compare(0, name.size() + 1, name + '=') == 0 && line.rfind("_DIR=") + 4 == name.size();
        if (!hasName)
            continue;
        std::string value = line.substr(name.size() + 1);
        if (value.size() > 2 && value.front() == '"' && value.back() == '"')
            value = value.substr(1, value.size() - 2);
        result = value.compare(0, 5, "$HOME") == 0 ? home + value.substr(5) : value;
        if (result.size() > 1 && result.back() == '/')
            result.pop_back();
    }
    return result;
}

// Text without carriage returns, which may belong to the end of a line, and without byte order marks.
bool isPlain(std::string const& content)
{
    return oracle::isUtf8(content) && content.find('\r') == std::string::npos && content.find("\xEF\xBB\xBF") == std::string::npos;
}

void checkReasons(Host::Application const& application, char const* place)
{
    std::vector<Decision> const reasons = decisions(application, *Catalogue::findLocation(place));
    if (reasons.empty() || reasons.front().by != "user-dirs.dirs")
        Fuzz::finding(std::string("the reasons for ") + place + " lead elsewhere", {reasons.empty() ? "" : reasons.front().text});
}

struct Surroundings : Fuzz::BoundLibrary {
    std::filesystem::path const file = home.write(".config/user-dirs.dirs", "");
    Host::Application const application{
        home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                   R"( "projectFileExtensions": ["x"], "resourcesRoot": "r"})"),
        home.path() / "stores", Host::StorePolicy::leaveOutMissing};
};

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Surroundings const surroundings;
    Fuzz::writeFile(surroundings.file, data, size);
    QString const movies = Lumora::Util::GetStandardPath(QStandardPaths::MoviesLocation);
    QString const music = Lumora::Util::GetStandardPath(QStandardPaths::MusicLocation);
    expectEqual("movies, asked of Qt", movies, QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
    expectEqual("music, asked of Qt", music, QStandardPaths::writableLocation(QStandardPaths::MusicLocation));
    expectEqual("user library", Lumora::Util::GetLumoraLibraryPath(QStringLiteral("a b")), movies + QStringLiteral("/a b"));

    std::string const content(data, data + size);
    std::string const home = surroundings.home.path().string();
    if (isPlain(content)) {
        expectEqual("movies", movies, utf8(folder(content, "XDG_VIDEOS_DIR", home, home + "/Videos")));
        expectEqual("music", music, utf8(folder(content, "XDG_MUSIC_DIR", home, home + "/Music")));
    }
    checkReasons(surroundings.application, "defaultProjectPath");
    checkReasons(surroundings.application, "defaultAudioRecordPath");
    return 0;
}
