// SPDX-License-Identifier: MIT
//
// Counts what is taken from the heap. A program that is built with Allocations.cpp has its own malloc and its kin before the
// C library's; operator new and Qt call them too. Not for a build with sanitizers, which bring their own.
#pragma once

namespace Allocations {

/// How often this thread has taken memory so far, or had it enlarged.
int soFar();

} // namespace Allocations
