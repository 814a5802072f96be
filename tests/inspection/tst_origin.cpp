// SPDX-License-Identifier: MIT
//
// The reasons for a location where the editor's own platform library, here the test's, answers otherwise than ours.
#include <Inspection/PathOrigin.h>

#include <Lumora/Util/StandardPaths.h>

#include <support/BoundLibrary.h>

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation location)
{
    return location == QStandardPaths::MoviesLocation ? QStringLiteral("/own\nmovies") : QStandardPaths::writableLocation(location);
}

namespace {

class Origin : public BoundLibrary {
protected:
    std::vector<Decision> decisionsAbout(char const* place) const
    {
        Host::Application const application(m_productFile, m_home.path() / "stores", Host::StorePolicy::leaveOutMissing);
        return decisions(application, *Catalogue::findLocation(place));
    }

    std::filesystem::path const m_productFile =
        m_home.write("product.json", R"({"vendorName": "V", "productName": "P", "sharedDataFolderName": "S", "productKind": 0,)"
                                     R"( "projectFileExtensions": [], "resourcesRoot": "r"})");
};

TEST_F(Origin, FolderThatNoReasonLeadsToIsThePlatformsOwn)
{
    m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/films\"\n");
    std::vector<Decision> const reasons = decisionsAbout("defaultProjectPath");
    ASSERT_EQ(reasons.size(), 1u);
    EXPECT_EQ(reasons[0].by, "platform");
    EXPECT_EQ(reasons[0].name, "Lumora::Util::GetStandardPath");
    EXPECT_EQ(reasons[0].value, "/own\nmovies");
    EXPECT_EQ(reasons[0].where, "");
    EXPECT_EQ(reasons[0].text, "Lumora::Util::GetStandardPath gives /own\\nmovies");
}

TEST_F(Origin, FolderThatAReasonLeadsToIsNot)
{
    m_home.write(".config/user-dirs.dirs", "XDG_MUSIC_DIR=\"/sounds\"\n");
    std::vector<Decision> const reasons = decisionsAbout("defaultAudioRecordPath");
    ASSERT_FALSE(reasons.empty());
    EXPECT_EQ(reasons[0].by, "user-dirs.dirs");
    EXPECT_EQ(reasons[0].name, "XDG_MUSIC_DIR");
    EXPECT_EQ(reasons[0].value, "/sounds");
}

// Half of a character is no text, and Qt takes no setting from a line that is none.
TEST_F(Origin, LineThatIsNoTextSetsNothing)
{
    std::u16string const content = u"\uFEFFXDG_MUSIC_DIR=\"/a\xD800\"\n";
    m_home.write(".config/user-dirs.dirs", std::string(reinterpret_cast<char const*>(content.data()), content.size() * 2));
    std::vector<Decision> const reasons = decisionsAbout("defaultAudioRecordPath");
    ASSERT_FALSE(reasons.empty());
    EXPECT_EQ(reasons[0].by, "user-dirs.dirs");
    EXPECT_EQ(reasons[0].value, std::nullopt);
    EXPECT_EQ(Lumora::Util::GetStandardPath(QStandardPaths::MusicLocation), inHome("Music"));
}

} // namespace
