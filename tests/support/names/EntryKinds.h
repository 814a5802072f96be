// SPDX-License-Identifier: MIT
#pragma once

/// What listings of folders tell this program of the kinds of entries, and how many listings there are. Some network file
/// systems list every entry without its kind. Linked into a test program that exports its symbols.
namespace EntryKinds {

enum class Told { all, none, everyOther };

/// For as long as it lives. One at a time, and no other thread lists meanwhile.
class Limit {
public:
    explicit Limit(Told told);
    ~Limit();
    Limit(Limit const&) = delete;
    Limit& operator=(Limit const&) = delete;

    /// How many entries have been listed without their kind.
    long withheld() const;
    /// How often a folder has been opened to be listed.
    long listings() const;
};

} // namespace EntryKinds
