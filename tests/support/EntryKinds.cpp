// SPDX-License-Identifier: MIT
//
// The two functions of the C library that list a folder, in front of its own.
#include <support/EntryKinds.h>

#include <dirent.h>
#include <dlfcn.h>
#include <sys/types.h>

namespace {

EntryKinds::Told told = EntryKinds::Told::all;
long listed = 0;
long fromCall = 0;
long fromLibrary = 0;

void limit(dirent64& entry, long& withheld)
{
    if (told == EntryKinds::Told::all || (told == EntryKinds::Told::everyOther && ++listed % 2 == 0))
        return;
    entry.d_type = DT_UNKNOWN;
    ++withheld;
}

template <typename Function>
Function* next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

EntryKinds::Limit::Limit(Told kinds)
{
    told = kinds;
    listed = fromCall = fromLibrary = 0;
}

EntryKinds::Limit::~Limit() { told = Told::all; }

long EntryKinds::Limit::withheldFromTheCall() const { return fromCall; }

long EntryKinds::Limit::withheldFromTheLibrary() const { return fromLibrary; }

extern "C" __attribute__((visibility("default"))) ssize_t getdents64(int file, void* entries, size_t size)
{
    static auto* const real = next<ssize_t(int, void*, size_t)>("getdents64");
    ssize_t const length = real(file, entries, size);
    for (ssize_t at = 0; at < length;) {
        auto* const entry = reinterpret_cast<dirent64*>(static_cast<char*>(entries) + at);
        limit(*entry, fromCall);
        at += entry->d_reclen;
    }
    return length;
}

extern "C" __attribute__((visibility("default"))) dirent64* readdir64(DIR* folder)
{
    static auto* const real = next<dirent64*(DIR*)>("readdir64");
    dirent64* const entry = real(folder);
    if (entry)
        limit(*entry, fromLibrary);
    return entry;
}
