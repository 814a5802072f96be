// SPDX-License-Identifier: MIT
//
// The two functions of the C library that list a folder, in front of its own.
#include <support/names/EntryKinds.h>

#include <dirent.h>
#include <dlfcn.h>

namespace {

EntryKinds::Told told = EntryKinds::Told::all;
long listed = 0;
long withheldKinds = 0;
long openedFolders = 0;

void limit(dirent64& entry)
{
    if (told == EntryKinds::Told::all || (told == EntryKinds::Told::everyOther && ++listed % 2 == 0))
        return;
    entry.d_type = DT_UNKNOWN;
    ++withheldKinds;
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
    listed = withheldKinds = openedFolders = 0;
}

EntryKinds::Limit::~Limit() { told = Told::all; }

long EntryKinds::Limit::withheld() const { return withheldKinds; }

long EntryKinds::Limit::listings() const { return openedFolders; }

extern "C" __attribute__((visibility("default"))) DIR* opendir(char const* path)
{
    static auto* const real = next<DIR*(char const*)>("opendir");
    ++openedFolders;
    return real(path);
}

extern "C" __attribute__((visibility("default"))) dirent64* readdir64(DIR* folder)
{
    static auto* const real = next<dirent64*(DIR*)>("readdir64");
    dirent64* const entry = real(folder);
    if (entry)
        limit(*entry);
    return entry;
}
