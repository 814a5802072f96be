// SPDX-License-Identifier: MIT
//
// An editor whose user works at several machines of a studio, as on a laptop that is not always online:
//
//     09-share-with-a-studio CONNECTION [COLOR]
//
// prints the user's own colour, or stores another one first. The session keeps a change on this machine until the server has
// it, so a setter never fails because the server is away. The next start sends what still waits.
#include "Product.h"

#include <Host/Application.h>
#include <Settings/Settings.h>
#include <Studio/Session.h>

#include <chrono>
#include <cstdio>

namespace {

// An editor lets every preference roam that the reference calls roaming.
bool roams(std::string const& key) { return key == "userCustomColors"; }

} // namespace

int main(int argc, char** argv)
try {
    if (argc < 2 || argc > 3) {
        std::fputs("usage: 09-share-with-a-studio CONNECTION [COLOR]\n", stderr);
        return 2;
    }
    Studio::Session session({argv[1], roams});
    Host::Application::Options options;
    options.share = [&](std::string const& name, std::shared_ptr<ISettingsStorage> const& local) { return session.store(name, local); };
    Host::Application const application(std::make_shared<Product>(), "resources", options);

    if (argc == 3)
        Settings::setUserCustomColors({QString::fromLocal8Bit(argv[2])});
    session.synchronise(std::chrono::seconds(5));
    std::printf("%s (waiting for the server: %zu)\n", qPrintable(Settings::userCustomColors().join(' ')), session.status().pending);
} catch (Storage::StorageError const& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
}
