// SPDX-License-Identifier: MIT
//
// Runs a fuzz target on files, for builds without libFuzzer: what was once found, or is hostile in a known way, is then
// tried by every run of the tests.
#include <support/Fuzz.h>

#include <cstdio>

int main(int argc, char** argv)
{
    int inputs = 0;
    for (int index = 1; index < argc; ++index)
        for (auto const& file : std::filesystem::directory_iterator(argv[index])) {
            std::string const content = Fuzz::fileContent(file.path());
            std::printf("%s\n", file.path().filename().c_str()); // the last name is that of a finding
            std::fflush(stdout);
            LLVMFuzzerTestOneInput(reinterpret_cast<std::uint8_t const*>(content.data()), content.size());
            ++inputs;
        }
    if (inputs == 0)
        std::fprintf(stderr, "there are no files to try\n");
    return inputs == 0;
}
