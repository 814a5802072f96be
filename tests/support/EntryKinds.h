// SPDX-License-Identifier: MIT
#pragma once

/// What the kernel's listings tell this program of the kinds of entries, whoever asks. Some network file systems tell
/// none, and each entry has to be asked for. Linked into a test program that exports its symbols.
namespace EntryKinds {

enum class Told { all, none, everyOther };

/// For as long as it lives. One at a time, and no other thread lists meanwhile.
class Limit {
public:
    explicit Limit(Told told);
    ~Limit();
    Limit(Limit const&) = delete;
    Limit& operator=(Limit const&) = delete;

    /// How many entries have been listed without their kind, by the kernel's own call and by the C library's.
    long withheldFromTheCall() const;
    long withheldFromTheLibrary() const;
};

} // namespace EntryKinds
