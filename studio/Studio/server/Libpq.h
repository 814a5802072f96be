// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

struct pg_conn;
struct pg_result;

namespace Studio {

/// Frees what libpq has allocated.
struct LibpqRelease {
    void operator()(pg_conn* connection) const noexcept;
    void operator()(pg_result* result) const noexcept;
};

/// A connection of libpq's, with its owner. To release it sends a farewell where there is room for it, and never blocks.
using Link = std::unique_ptr<pg_conn, LibpqRelease>;
/// An answer of the server's, with its owner.
using Answer = std::unique_ptr<pg_result, LibpqRelease>;

} // namespace Studio
