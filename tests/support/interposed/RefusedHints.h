// SPDX-License-Identifier: MIT
#pragma once

/// While it lives, inotify is refused to this program as where the limit of its instances is reached. The program links
/// RefusedHints.cpp, which stands before the C library's function.
class RefusedHints {
public:
    RefusedHints();
    ~RefusedHints();
    RefusedHints(RefusedHints const&) = delete;
    RefusedHints& operator=(RefusedHints const&) = delete;
};
