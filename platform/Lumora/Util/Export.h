// SPDX-License-Identifier: MIT

/// @file
/// What the utility library is marked with.
#pragma once

#include <QtGlobal>

/// Marks what libLumoraUtil offers to other libraries.
#ifdef LUMORA_UTIL_BUILD
#define LUMORA_UTIL_EXPORT Q_DECL_EXPORT
#else
#define LUMORA_UTIL_EXPORT Q_DECL_IMPORT
#endif
