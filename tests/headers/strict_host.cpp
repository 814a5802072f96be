// SPDX-License-Identifier: MIT
//
// A host that allows itself no conversion and no warning, and uses a function of every kind. Compiled, not run.
#include <Settings/Settings.h>

#include <Lumora/Conf/Formats.h>
#include <Lumora/Util/ByteConversion.h>
#include <Lumora/Util/StandardPaths.h>
#include <Storage/EmptyStorage.h>

namespace {

class Product final : public IProductInfo {
public:
    std::string vendorName() const override { return "Maker"; }
    std::string productName() const override { return "Product"; }
    std::string sharedDataFolderName() const override { return "Shared"; }
    int productKind() const override { return 0; }
    std::string projectFileExtensions() const override { return "one,two"; }
};

} // namespace

int main()
{
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Storage::EmptyStorage>();
    auto const own = std::make_shared<Storage::EmptyStorage>();
    Settings::init({product, common, own, Lumora::ioPath("/opt/resources")});

    QString const suffix = QStringLiteral("x");
    Settings::setExportPath(Settings::exportPath() + QLatin1Char('/') + suffix);
    write("own", Settings::projectDirectory + suffix, false);
    write("own list", QStringList{suffix, Settings::waveformExtension}, false);
    write("own ratio", boost::rational<long long>(16, 9), true);
    std::vector<unsigned char> const bytes = Lumora::Util::QByteArrayToVectorByte(Settings::mainWindowState());
    QString const folder = makeDefaultPath(QStandardPaths::MoviesLocation, productDataPath() + nonLocalizedProductName());
    return folder.isEmpty() || bytes.empty() || Settings::countDownFont.italic() || Lumora::Conf::IFormatFile::FORMAT_WAV.empty() ? 1 : 0;
}
