// SPDX-License-Identifier: MIT
#include <Host/FileContent.h>

#include <cerrno>
#include <cstdio>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Host {

// C streams, as C++ streams do not distinguish an empty file from an unreadable one.
std::string fileContent(std::filesystem::path const& file)
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

namespace {

[[noreturn]] void refuse(int error) { throw std::runtime_error(std::generic_category().message(error)); }

// O_NONBLOCK: opening a FIFO would wait for a writer.
class RegularFile {
public:
    explicit RegularFile(std::filesystem::path const& file) : descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY))
    {
        if (descriptor < 0 && errno != ENXIO) // a socket
            refuse(errno);
    }
    ~RegularFile() { ::close(descriptor); }
    RegularFile(RegularFile const&) = delete;
    RegularFile& operator=(RegularFile const&) = delete;

    void check() const
    {
        struct stat status = {};
        if (descriptor >= 0 && ::fstat(descriptor, &status) != 0)
            refuse(errno);
        if (S_ISDIR(status.st_mode))
            throw std::runtime_error("it is a folder");
        if (!S_ISREG(status.st_mode))
            throw std::runtime_error("it is not a regular file");
    }

    int const descriptor;
};

} // namespace

std::string boundedFileContent(std::filesystem::path const& file, std::size_t most)
{
    RegularFile const opened(file);
    opened.check();
    std::string content;
    char buffer[1 << 16];
    for (ssize_t count; (count = ::read(opened.descriptor, buffer, sizeof buffer)) != 0;) {
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            refuse(errno);
        content.append(buffer, static_cast<std::size_t>(count));
        if (content.size() > most)
            throw std::runtime_error("it is larger than " + std::to_string(most) + " bytes");
    }
    return content;
}

} // namespace Host
