// SPDX-License-Identifier: MIT
#include "Register.h"

#include <storage/support/SharedMemory.h>

#include <new>

#include <sys/mman.h>

Register::Register() : m_shared(new (sharedMemory(sizeof(Shared))) Shared) {}

Register::~Register() { ::munmap(m_shared, sizeof(Shared)); }

void Register::write(std::function<void(int)> const& commit)
{
    int const number = ++m_shared->begun;
    commit(number);
    m_shared->ended = number;
}

void Register::read(std::function<int()> const& ask)
{
    int const ended = m_shared->ended;
    int seen = m_shared->seen;
    int const number = ask();
    ++m_shared->reads;
    m_shared->future += number > m_shared->begun;
    m_shared->stale += number < ended;
    m_shared->back += number < seen;
    while (seen < number && !m_shared->seen.compare_exchange_weak(seen, number)) {
    }
}

std::string Register::wrong() const
{
    if (wrongReads() == 0)
        return "";
    return std::to_string(m_shared->stale) + " stale, " + std::to_string(m_shared->back) + " back, " + std::to_string(m_shared->future) +
           " future";
}
