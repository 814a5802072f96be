// SPDX-License-Identifier: MIT
//
// The locations that take a name, for names of any bytes, with product information of any bytes.
//
// An input has a name for `userEffectsPath`, the vendor's, the product's and the shared-data folder's name, a folder for
// `makeDefaultPath`, a file for `resourceFile` and the number of a notification.
#include <support/Fuzz.h>

using Fuzz::expectEqual;
using Fuzz::utf8;

namespace {

// Each of the seven characters as "_", one for one.
QString sanitized(QString text)
{
    for (QChar& character : text)
        switch (character.unicode()) {
        case '/':
        case ':':
        case '?':
        case '"':
        case '<':
        case '>':
        case '|':
            character = QLatin1Char('_');
        }
    return text;
}

// The absolute path without empty parts, "." and ".."; what leads above the root stays.
QString cleaned(QString const& path)
{
    QStringList parts;
    for (QString const& part : path.split(QLatin1Char('/'))) {
        bool const leadsUp = part == QLatin1String("..");
        if (leadsUp && !parts.isEmpty() && parts.last() != part)
            parts.removeLast();
        else if (!part.isEmpty() && part != QLatin1String("."))
            parts.append(part);
    }
    return QLatin1Char('/') + parts.join(QLatin1Char('/'));
}

std::string resource(std::string const& relative)
{
    bool const isAbsolute = !relative.empty() && relative[0] == '/';
    return isAbsolute ? relative : "/resources/" + relative;
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Fuzz::BoundLibrary const library;
    std::vector<std::string> const lines = Fuzz::lines(data, size, 7);
    library.product->vendor = lines[1];
    library.product->product = lines[2];
    library.product->sharedData = lines[3];
    QString const home = utf8(library.home.path().string());
    QString const vendor = home + QStringLiteral("/.local/share/") + utf8(lines[1]);
    QString const sharedData = vendor + QStringLiteral("/SharedData/") + utf8(lines[3]);
    QString const product = vendor + QLatin1Char('/') + utf8(lines[2]);

    expectEqual("user effects", Settings::userEffectsPath(lines[0]),
                sharedData + QStringLiteral("/UserEffects/") + sanitized(utf8(lines[0])) + QLatin1Char('/'));
    expectEqual("user overlays", Settings::userOverlaysPath(), sharedData + QStringLiteral("/UserOverlays/"));
    expectEqual("user intros", Settings::userIntrosPath(), sharedData + QStringLiteral("/UserImports/"));
    expectEqual("waveforms", Settings::defaultWaveformCachePath(), sharedData + QStringLiteral("/Waveforms/Cache"));
    expectEqual("packages", Settings::packageDeploymentPath(), vendor + QStringLiteral("/SharedData/VideoEditor/Packages/"));
    expectEqual("product data", productDataPath(), product);
    expectEqual("collection", Settings::userUnsplashPath(), cleaned(product + QStringLiteral("/Unsplash/SavedCollection")));
    expectEqual("default folder", makeDefaultPath(QStandardPaths::MusicLocation, utf8(lines[4])),
                cleaned(home + QStringLiteral("/Music/Lumora Video Editor/") + utf8(lines[4])));
    expectEqual("resource", resourceFile(lines[5]), resource(lines[5]));
    int const sound = static_cast<int>(Fuzz::number(lines[6]));
    expectEqual("notification", Settings::notificationFile(static_cast<Settings::Notifications>(sound)),
                QStringLiteral("/resources/resources/samples/notifications/") + (sound == 0   ? QStringLiteral("finish.wav")
                                                                                 : sound == 1 ? QStringLiteral("error.wav")
                                                                                              : QString()));
    return 0;
}
