// SPDX-License-Identifier: MIT
#include <Studio/server/Backoff.h>

#include <algorithm>
#include <memory>
#include <random>
#include <utility>

namespace Studio {

using std::chrono::milliseconds;

namespace {

constexpr milliseconds shortest{250};

// Accounts are often locked after some failed logins within minutes.
constexpr milliseconds longest(Backoff::Failure failure)
{
    return failure == Backoff::Failure::refusedLogin ? std::chrono::minutes(5) : std::chrono::seconds(30);
}

Backoff::Source systemSource()
{
    auto const engine = std::make_shared<std::mt19937>(std::random_device()());
    return {Backoff::Clock::now, [engine] { return std::generate_canonical<double, 32>(*engine); }};
}

} // namespace

Backoff::Backoff() : Backoff(systemSource()) {}

Backoff::Backoff(Source source) : m_source(std::move(source)), m_next(shortest) {}

void Backoff::connected() { m_connected = m_source.now(); }

milliseconds Backoff::failed(Failure failure)
{
    // A server that accepts and then drops its clients would otherwise be asked four times a second, for ever.
    Clock::time_point const connected = std::exchange(m_connected, Clock::time_point::max());
    if (connected != Clock::time_point::max() && m_source.now() - connected >= goodService)
        m_next = shortest;
    // After a refused login the next wait may be longer than an unreachable server has.
    milliseconds const limit = std::min(m_next, longest(failure));
    m_next = std::min(2 * limit, longest(failure));
    return milliseconds(static_cast<milliseconds::rep>(m_source.random() * static_cast<double>(limit.count())));
}

} // namespace Studio
