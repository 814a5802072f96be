// SPDX-License-Identifier: MIT
//
// The version that a host is compiled with, for its preprocessor; needs nothing else. The library that it runs with may be
// a later one of the same major version.
#pragma once

/// Another one is another library: hosts are to be built anew, and the SONAME says so.
#define EDITOR_SETTINGS_VERSION_MAJOR 1
/// A higher one offers more, and still all that the lower ones offered.
#define EDITOR_SETTINGS_VERSION_MINOR 0
/// A higher one corrects and adds nothing.
#define EDITOR_SETTINGS_VERSION_PATCH 0

/// The three, joined with dots.
#define EDITOR_SETTINGS_VERSION_STRING "1.0.0"
/// The three as one number, a byte for each, that grows with the version: 1.2.3 is 0x010203.
///
///     #if EDITOR_SETTINGS_VERSION >= 0x010200
#define EDITOR_SETTINGS_VERSION (EDITOR_SETTINGS_VERSION_MAJOR << 16 | EDITOR_SETTINGS_VERSION_MINOR << 8 | EDITOR_SETTINGS_VERSION_PATCH)
