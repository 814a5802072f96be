// SPDX-License-Identifier: MIT
//
// The subjects of questions. Each function makes something up, and asks the library about it.
// Each draw of a random choice is a statement of its own, as compilers differ in the order in which they evaluate the
// operands of "+".
#pragma once

#include <generated/Block.h>

/// Bytes and code units that are read, written, lowered and made part of a key.
void askTexts(Block& block);
/// Preferences, lists, fractions and families, read from a store and written again.
void askValues(Block& block);
/// Locations and names below made-up roots, products and paths.
void askPaths(Block& block);
/// The movies and music locations for contents of user-dirs.dirs.
void askUserFolders(Block& block);
/// Names for new files in folders of hostile entries.
void askNames(Block& block);
/// Whether a sample is found by its wildcards.
void askFilters(Block& block);
