// SPDX-License-Identifier: MIT
#include "WakeUp.h"

#include <cerrno>
#include <cstdint>
#include <system_error>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace Storage {

namespace {

int madeEvent()
{
    int const descriptor = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "cannot watch stores");
    return descriptor;
}

} // namespace

WakeUp::WakeUp() : m_descriptor(madeEvent()) {}

WakeUp::~WakeUp() { ::close(m_descriptor); }

void WakeUp::wake() const
{
    std::uint64_t const once = 1;
    [[maybe_unused]] ssize_t const written = ::write(m_descriptor, &once, sizeof once);
}

void WakeUp::clear() const
{
    std::uint64_t wakes = 0;
    [[maybe_unused]] ssize_t const count = ::read(m_descriptor, &wakes, sizeof wakes);
}

void WakeUp::wait() const
{
    pollfd awaited = {m_descriptor, POLLIN, 0};
    ::poll(&awaited, 1, -1);
}

} // namespace Storage
