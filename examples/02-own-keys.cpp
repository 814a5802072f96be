// SPDX-License-Identifier: MIT
//
// Settings of your own, beside those that the library knows: `read` and `write` take any key.
//
// Define name, kind and default of a key together and once. Give your keys a prefix that no later version of the library can
// take. `write("myhost.title", "text", false)` does not compile, as the literal would convert to `bool`: pass a `QString` or a
// `std::string`.
#include "Product.h"

#include <Settings/Settings.h>
#include <Storage/SqliteStorage.h>

#include <cstdio>

namespace {

constexpr bool ofTheProduct = false; // in productStorage; true would be commonStorage, which all products share

std::string const startsKey = "myhost.starts";
int starts() { return read(startsKey, 0, ofTheProduct); }
void setStarts(int value) { write(startsKey, value, ofTheProduct); }

std::string const titleKey = "myhost.title";
QString title() { return read(titleKey, QStringLiteral("Untitled"), ofTheProduct); }
void setTitle(QString const& value) { write(titleKey, value, ofTheProduct); }

// A fraction takes two keys in the store: "myhost.frameRate_N" and "myhost.frameRate_D".
std::string const frameRateKey = "myhost.frameRate";
boost::rational<long long> frameRate() { return read(frameRateKey, boost::rational<long long>(25), ofTheProduct); }
void setFrameRate(boost::rational<long long> const& value) { write(frameRateKey, value, ofTheProduct); }

std::string const tracksKey = "myhost.tracks";
QStringList tracks() { return read(tracksKey, QStringList{QStringLiteral("Video")}, ofTheProduct); }
void setTracks(QStringList const& value) { write(tracksKey, value, ofTheProduct); }

void print()
{
    std::printf("start %d: %s, %lld/%lld frames a second, %s\n", starts(), title().toUtf8().constData(), frameRate().numerator(),
                frameRate().denominator(), tracks().join(QStringLiteral(" and ")).toUtf8().constData());
}

} // namespace

int main()
{
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Storage::SqliteStorage>("common.sqlite");
    auto const own = std::make_shared<Storage::SqliteStorage>("product.sqlite");
    Settings::init({product, common, own, Lumora::ioPath("resources")});

    print();
    setStarts(starts() + 1);
    setTitle(QStringLiteral("Summer"));
    setFrameRate({30000, 1001});
    setTracks({QStringLiteral("Video"), QStringLiteral("Music")});
    print();
}
