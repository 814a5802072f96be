// SPDX-License-Identifier: MIT
//
// Another process. Changes a setting for each line that it reads, and prints when the call returned, in nanoseconds of the
// steady clock, which all processes share.
#include <Storage/SqliteStorage.h>

#include <chrono>
#include <iostream>
#include <string>

int main(int, char** argv)
{
    Storage::SqliteStorage store(argv[1]);
    int number = 0;
    for (std::string line; std::getline(std::cin, line);) {
        store.setInt("number", ++number);
        std::cout << std::chrono::steady_clock::now().time_since_epoch().count() << std::endl;
    }
}
