// SPDX-License-Identifier: MIT
#include <Studio/ClientName.h>

#include <random>

namespace Studio {

std::string newClientName()
{
    std::random_device device;
    std::string name;
    for (int const part : {8, 4, 4, 4, 12}) {
        name += name.empty() ? "" : "-";
        for (int digit = 0; digit < part; ++digit)
            name += "0123456789abcdef"[device() % 16];
    }
    return name;
}

} // namespace Studio
