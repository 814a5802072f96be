// SPDX-License-Identifier: MIT
//
// The library with one more location: its declaration, its definition and its row.
#include <Catalogue/Catalogue.h>

#include <cstdio>

namespace Settings {
@1@
} // namespace Settings

@2@

using namespace Catalogue;

template <typename Function>
Location location(char const* name, char const* purpose, Function* function, Root root, Use use)
{
    return {name, purpose, root, use, function};
}

Location const added[] = {
@3@
};

int main() { std::puts(qUtf8Printable(added[0].path())); }
