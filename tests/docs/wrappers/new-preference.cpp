// SPDX-License-Identifier: MIT
//
// The library with one more preference: its declarations, its block and its row.
#include <Catalogue/Catalogue.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>

#include <cstdio>

namespace Settings {
@1@
} // namespace Settings

constexpr bool product = false;

@2@

using namespace Catalogue;

template <typename T>
Preference preference(char const* name, char const* purpose, Store store, DataClass dataClass, T (*get)(), void (*set)(T const&))
{
    return {name, purpose, store, dataClass, Accessors<T>{get, set}};
}

Preference const added[] = {
@3@
};

int main()
{
    auto const information = std::make_shared<TestKit::FixedProductInfo>();
    auto const store = std::make_shared<TestKit::MemoryStorage>();
    Settings::init({information, store, store, {}});
    for (Preference const& each : added) {
        InspectedValue const unset = inspect(each);
        each.write(!std::get<bool>(unset.value));
        InspectedValue const set = inspect(each);
        bool const isRight = unset.key == each.name && unset.store == each.store && set.isStored && set.value != unset.value;
        std::puts(isRight ? each.name : "wrong");
    }
}
