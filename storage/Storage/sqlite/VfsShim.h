// SPDX-License-Identifier: MIT
//
// A VFS shim: stands between SQLite and its own VFS, for the files of a store. Internal.
#pragma once

namespace Storage {

/// Registers the shim and returns its name. It passes every call on to SQLite's VFS and corrects three, in which SQLite
/// takes a passing error of the system for a fact:
///
/// - `shimAccess` reports an error where SQLite would call a journal absent that it cannot look for. SQLite would read
///   what the journal undoes, or put a new journal in its place.
/// - `shimLock` releases a lock whose release failed before it asks for the next one. SQLite would believe that it had
///   just taken the lock, and roll back the journal of a killed process as its own.
/// - `shimOpen` never opens a writable file for reading only, which would hold for as long as it is open.
char const* vfsShim();

} // namespace Storage
