// SPDX-License-Identifier: MIT
#include <Host/FileContent.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

// C streams, as C++ streams do not distinguish an empty file from an unreadable one.
std::string Host::fileContent(std::filesystem::path const& file)
{
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> const stream(std::fopen(file.c_str(), "rb"), &std::fclose);
    if (!stream)
        throw std::system_error(errno, std::generic_category());
    std::string content;
    char buffer[1 << 16];
    while (std::size_t const count = std::fread(buffer, 1, sizeof buffer, stream.get()))
        content.append(buffer, count);
    if (std::ferror(stream.get()))
        throw std::system_error(errno, std::generic_category());
    return content;
}
