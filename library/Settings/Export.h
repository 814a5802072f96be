// SPDX-License-Identifier: MIT

/// @file
/// What the settings library is marked with.
#pragma once

/// Marks what libEditorSettings offers to its host. Free of Qt, so that stores can be written without it.
#if !defined(_WIN32)
#define EDITOR_SETTINGS_EXPORT __attribute__((visibility("default")))
#elif defined(EDITOR_SETTINGS_BUILD)
#define EDITOR_SETTINGS_EXPORT __declspec(dllexport)
#else
#define EDITOR_SETTINGS_EXPORT __declspec(dllimport)
#endif
