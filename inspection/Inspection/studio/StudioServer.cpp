// SPDX-License-Identifier: MIT
#include <Inspection/studio/StudioServer.h>

#include <Host/ProductFile.h>
#include <Inspection/RowDifference.h>
#include <Inspection/studio/Layers.h>

#include <absl/strings/str_cat.h>

#include <stdexcept>

#include <dlfcn.h>

namespace Inspection {

std::unique_ptr<StudioServer> openStudioServer(std::string const& connection)
{
    roams(""); // the first look at families binds the library, and the server's thread may ask
    auto* const open = reinterpret_cast<decltype(openStudio)*>(studioFunction("openStudio"));
    return std::unique_ptr<StudioServer>(open(connection, roams));
}

std::string troubleOf(StudioStatus const& status)
{
    if (!status.problem)
        return {};
    std::string const known = status.asOf ? "as of " + inLocalTime(*status.asOf) : "what this workstation has";
    return absl::StrCat(status.problem->file(), ": ", status.problem->reason(), "; what follows is ", known, "; ",
                        status.problem->remedy());
}

void* studioFunction(char const* name)
{
    void* const module = ::dlopen((Host::installationPrefix() / STUDIO_MODULE).c_str(), RTLD_NOW | RTLD_LOCAL);
    void* const function = module ? ::dlsym(module, name) : nullptr;
    if (!function)
        throw std::runtime_error(absl::StrCat("cannot load what talks to the server: ", ::dlerror(),
                                              "; install editor-settings with its libraries, or build it where libpq-dev is installed"));
    return function;
}

} // namespace Inspection
