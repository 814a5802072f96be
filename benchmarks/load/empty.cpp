// SPDX-License-Identifier: MIT
//
// A library without content, linked to all that the settings library is linked to.
extern "C" __attribute__((visibility("default"))) void emptyLibrary() {}
