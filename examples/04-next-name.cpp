// SPDX-License-Identifier: MIT
//
// The next free file name, safely: `04-next-name SOURCE` writes a freeze frame of SOURCE and prints its path.
//
// The library proposes a name and reserves nothing, so another process may get the same one. `O_EXCL` lets one process
// create the file; the other asks again.
#include "Product.h"

#include <Settings/Settings.h>
#include <Storage/SqliteStorage.h>

#include <QFile>
#include <QImage>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>

namespace fs = std::filesystem;

namespace {

struct Reserved {
    QString path;
    int descriptor;
};

Reserved reserveNext(QString const& source)
{
    for (QString path, taken;; taken = path) {
        path = Settings::generateFreezedFilePath(source);
        // For a source with a placeholder in its name, such as "%1", the library repeats itself.
        if (path == taken)
            throw std::runtime_error(path.toStdString() + " is taken and would be proposed again; rename the source");
        fs::path const onDisk = fs::u8path(path.toStdString());
        fs::create_directories(onDisk.parent_path());
        int const descriptor = ::open(onDisk.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0)
            return {path, descriptor};
        if (errno != EEXIST)
            throw fs::filesystem_error("cannot make the file", onDisk, {errno, std::generic_category()});
    }
}

QString writeFrame(QImage const& frame, QString const& source)
{
    Reserved const reserved = reserveNext(source);
    QFile file;
    if (file.open(reserved.descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle) && frame.save(&file, "PNG") && file.flush())
        return reserved.path;
    // This process created the file and may remove it: half a picture is worse than none.
    QFile::remove(reserved.path);
    throw std::runtime_error("cannot write " + reserved.path.toStdString() + ": " + file.errorString().toStdString());
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 2)
        throw std::invalid_argument("give the film that the frame is taken from");
    auto const product = std::make_shared<Product>();
    auto const common = std::make_shared<Storage::SqliteStorage>("common.sqlite");
    auto const own = std::make_shared<Storage::SqliteStorage>("product.sqlite");
    Settings::init({product, common, own, Lumora::ioPath("resources")});

    QImage frame(1, 1, QImage::Format_RGB32);
    frame.fill(Qt::black);
    std::puts(writeFrame(frame, QString::fromUtf8(argv[1])).toUtf8().constData());
} catch (std::exception const& error) {
    std::fprintf(stderr, "04-next-name: %s\n", error.what());
    return 1;
}
