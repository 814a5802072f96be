// SPDX-License-Identifier: MIT
//
// A program that brings its own GetStandardPath: the platform library asks it too.
#include <Lumora/Util/StandardPaths.h>

#include <support/BoundLibrary.h>

QString Lumora::Util::GetStandardPath(QStandardPaths::StandardLocation location)
{
    return location == QStandardPaths::MoviesLocation ? QStringLiteral("/own/movies") : QStringLiteral("/another/location");
}

namespace {

TEST(OwnStandardPath, MovesTheUserLibrary)
{
    EXPECT_EQ(Lumora::Util::GetLumoraLibraryPath(QStringLiteral("Lumora Library")), QStringLiteral("/own/movies/Lumora Library"));
}

} // namespace
