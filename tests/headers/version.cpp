// SPDX-License-Identifier: MIT
//
// The header of a version 12.34.56, in which each number shows what it was made of. Compiled, not run.
#include <Settings/Version.h>

#include <string_view>

static_assert(EDITOR_SETTINGS_VERSION_MAJOR == 12);
static_assert(EDITOR_SETTINGS_VERSION_MINOR == 34);
static_assert(EDITOR_SETTINGS_VERSION_PATCH == 56);
static_assert(std::string_view(EDITOR_SETTINGS_VERSION_STRING) == "12.34.56");

static_assert(EDITOR_SETTINGS_VERSION == 0x0C2238);
#if EDITOR_SETTINGS_VERSION < 0x0C2238 || EDITOR_SETTINGS_VERSION >= 0x0C2239
#error "The preprocessor compares versions."
#endif
