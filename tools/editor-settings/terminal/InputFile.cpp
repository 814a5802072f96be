// SPDX-License-Identifier: MIT
#include "terminal/InputFile.h"

#include "terminal/Escaping.h"

#include <absl/strings/str_cat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

[[noreturn]] void refuse(std::string const& shown, std::string const& reason)
{
    throw UserError(absl::StrCat("cannot read ", shown, " (", reason, "); name a file that can be read, or give - for standard input"));
}

[[noreturn]] void refuse(std::string const& shown, int error) { refuse(shown, std::generic_category().message(error)); }

// O_NONBLOCK: opening a FIFO would wait for a writer.
class Input {
public:
    Input(std::string const& name, std::string const& shown)
        : m_isFile(name != "-"), m_descriptor(m_isFile ? ::open(name.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC) : STDIN_FILENO)
    {
        struct stat status = {};
        if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0)
            refuse(shown, errno);
        if (m_isFile && !S_ISREG(status.st_mode))
            refuse(shown, S_ISDIR(status.st_mode) ? "it is a folder" : "it is not a regular file");
        m_size = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) : 0;
    }
    ~Input()
    {
        if (m_isFile)
            ::close(m_descriptor);
    }
    Input(Input const&) = delete;
    Input& operator=(Input const&) = delete;

    int descriptor() const { return m_descriptor; }
    /// Of a regular file; 0 for any other.
    std::size_t size() const { return m_size; }

private:
    bool m_isFile;
    int m_descriptor;
    std::size_t m_size = 0;
};

} // namespace

std::string inputFile(std::string const& name, std::size_t most)
{
    std::string const shown = name == "-" ? "standard input" : quoted(name);
    Input const input(name, shown);
    std::string content;
    content.reserve(std::min(input.size(), most));
    char buffer[1 << 16];
    for (ssize_t count; (count = ::read(input.descriptor(), buffer, sizeof buffer)) != 0;) {
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            refuse(shown, errno);
        content.append(buffer, static_cast<std::size_t>(count));
        if (content.size() > most)
            throw UserError(absl::StrCat(shown, " holds more than ", most, " bytes, which is too much; name a smaller one"));
    }
    return content;
}
