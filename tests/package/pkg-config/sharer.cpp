// SPDX-License-Identifier: MIT
#include <Studio/Session.h>

#include <cstdio>

int main()
{
    Studio::Session const session({"host=/no/such/folder", {}});
    std::puts(session.status().problem->explanation().c_str());
}
