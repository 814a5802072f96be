// SPDX-License-Identifier: MIT
//
// How SQLite reaches the files of a store. Internal.
#pragma once

namespace Storage {

/// The name of SQLite's own access to files, made more careful where a passing fault of the system would have it do harm:
///
/// - A journal that cannot be looked for counts as trouble, not as absent: what it would undo must not be read, and its
///   place not be taken.
/// - A lock that could not be given back is given back before the next one is asked for. SQLite would go on as if it had
///   just got it, and take a journal of a killed process for its own.
/// - A file that may be written is never opened for reading only, which would hold for as long as it is open.
char const* carefulFiles();

} // namespace Storage
