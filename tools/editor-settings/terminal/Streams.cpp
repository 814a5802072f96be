// SPDX-License-Identifier: MIT
#include "terminal/Streams.h"

#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

void holdStandardStreams()
{
    // Each in the direction in which it is of no use: reading from standard input fails, and writing to the others.
    for (int const stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) < 0)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY); // takes the lowest free number: this one
}

std::string StandardOutput::trouble()
{
    std::cout.flush();
    return m_error == 0 ? std::string() : std::generic_category().message(m_error);
}

StandardOutput::int_type StandardOutput::overflow(int_type character)
{
    if (sync() != 0)
        return traits_type::eof();
    return traits_type::eq_int_type(character, traits_type::eof()) ? traits_type::not_eof(character)
                                                                   : sputc(traits_type::to_char_type(character));
}

int StandardOutput::sync()
{
    for (char const* next = pbase(); m_error == 0 && next < pptr();) {
        ssize_t const count = ::write(STDOUT_FILENO, next, static_cast<std::size_t>(pptr() - next));
        if (count >= 0)
            next += count;
        else if (errno != EINTR)
            m_error = errno;
    }
    setp(m_buffer.data(), m_buffer.data() + m_buffer.size());
    return m_error == 0 ? 0 : -1;
}
