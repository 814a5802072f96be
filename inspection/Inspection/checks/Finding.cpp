// SPDX-License-Identifier: MIT
#include <Inspection/checks/Finding.h>

#include <array>
#include <cstddef>

namespace Inspection {

Finding aboutProductFile(std::string const& error, std::string const& file)
{
    return {Severity::error,
            Check::productFile,
            error,
            "nothing else can be checked without it: correct it, or name another with --product",
            std::nullopt,
            {},
            file};
}

char const* severityName(Severity severity)
{
    constexpr std::array<char const*, 3> names = {"note", "warning", "error"};
    return names.at(static_cast<std::size_t>(severity));
}

char const* checkName(Check check)
{
    constexpr std::array<char const*, 35> names = {
        "product-file",   "home",          "store-unusable",  "store-missing",  "store-newer",    "store-read-only", "store-folder",
        "file-mode",      "file-owner",    "journal-left",    "file-system",    "misplaced-key",  "unknown-key",     "unknown-key",
        "rational-half",  "rational-kind", "rational-zero",   "other-kind",     "unreadable",     "no-utf8",         "list-changes",
        "unusable-value", "folder",        "folders-missing", "kept-stores",    "studio-server",  "studio-schema",   "studio-tls",
        "studio-pooler",  "studio-clock",  "studio-queue",    "studio-standby", "studio-pending", "studio-refused",  "studio-outbox",
    };
    static_assert(names.size() == static_cast<std::size_t>(Check::studioOutbox) + 1);
    return names.at(static_cast<std::size_t>(check));
}

} // namespace Inspection
