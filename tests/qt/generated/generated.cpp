// SPDX-License-Identifier: MIT
//
// generated BLOCKS          asks the library what is made up, and prints for each block of each subject the count of questions
//                           and a hash of questions and answers
// generated SUBJECT BLOCK   prints the questions and answers of one block
//
// A block follows from its number alone, whatever the Qt, so that builds with two versions can be compared.
#include <generated/Subjects.h>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

constexpr std::size_t questionsInABlock = 1000;

struct Subject {
    char const* name;
    void (*ask)(Block&);
    std::size_t fewestAnswers; // that differ, in a block: with fewer it would compare little
};

Subject const subjects[] = {{"texts", &askTexts, 400},        {"values", &askValues, 200}, {"paths", &askPaths, 400},
                            {"folders", &askUserFolders, 40}, {"names", &askNames, 400},   {"filters", &askFilters, 20}};

void askBlock(Subject const& subject, Block& block)
{
    while (block.questions() < questionsInABlock)
        subject.ask(block);
}

// FNV-1a.
std::uint64_t hash(std::string const& text)
{
    std::uint64_t result = 0xCBF29CE484222325;
    for (char const byte : text)
        result = (result ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return result;
}

int printHashes(int blocks)
{
    for (Subject const& subject : subjects)
        for (int number = 0; number < blocks; ++number) {
            Block block(static_cast<std::uint64_t>(number));
            askBlock(subject, block);
            std::printf("%s %d %zu %016llx\n", subject.name, number, block.questions(),
                        static_cast<unsigned long long>(hash(block.text())));
            if (block.differentAnswers() < subject.fewestAnswers) {
                std::fprintf(stderr, "%s %d: only %zu different answers\n", subject.name, number, block.differentAnswers());
                return 1;
            }
        }
    return 0;
}

int printBlock(std::string const& name, int number)
{
    for (Subject const& subject : subjects)
        if (subject.name == name) {
            Block block(static_cast<std::uint64_t>(number));
            askBlock(subject, block);
            std::fputs(block.text().c_str(), stdout);
            return 0;
        }
    return 2;
}

} // namespace

int main(int argc, char** argv)
{
    std::setlocale(LC_ALL, "");
    if (argc == 2 && std::atoi(argv[1]) > 0)
        return printHashes(std::atoi(argv[1]));
    if (argc == 3)
        return printBlock(argv[1], std::atoi(argv[2]));
    std::fputs("usage: generated BLOCKS, or generated SUBJECT BLOCK\n", stderr);
    return 2;
}
