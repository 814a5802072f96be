// SPDX-License-Identifier: MIT
//
// What the fuzz targets share: how an input is split into lines, the library bound in a home folder of its own, and what
// becomes of a finding.
#pragma once

#include <Settings/Settings.h>
#include <TestKit/FixedProductInfo.h>
#include <TestKit/MemoryStorage.h>
#include <TestKit/ScopedBinding.h>
#include <TestKit/TemporaryHome.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace Fuzz {

/// Ends the process; libFuzzer then keeps the input. Every text in `about` is printed with C escapes.
[[noreturn]] void finding(std::string const& what, std::vector<std::string> const& about = {});

void expect(bool holds, std::string const& what);
void expectEqual(std::string const& what, std::string const& answer, std::string const& expected);
void expectEqual(std::string const& what, QString const& answer, QString const& expected);
void expectEqual(std::string const& what, QStringList const& answer, QStringList const& expected);

/// `text` cut at each `separator`; always one part more than separators.
std::vector<std::string> split(std::string const& text, char separator);
/// The lines of an input, so that a corpus can be written by hand: `\n`, `\t`, `\0` and `\\` stand for what a line
/// cannot hold. At least `count` of them; those that the input has not got are empty.
std::vector<std::string> lines(std::uint8_t const* data, std::size_t size, std::size_t count);

QString utf8(std::string const& text);
/// The number that `text` begins with; 0 without one.
long long number(std::string const& text);

std::string fileContent(std::filesystem::path const& file);
void writeFile(std::filesystem::path const& file, void const* data, std::size_t size);

/// The library bound to values in memory, for as long as the object lives. Whatever Qt has to warn of is a finding, but
/// for what the library's header tells of.
struct BoundLibrary {
    BoundLibrary();

    TestKit::TemporaryHome const home;
    std::shared_ptr<TestKit::FixedProductInfo> const product = std::make_shared<TestKit::FixedProductInfo>();
    std::shared_ptr<TestKit::MemoryStorage> const commonValues = std::make_shared<TestKit::MemoryStorage>();
    std::shared_ptr<TestKit::MemoryStorage> const productValues = std::make_shared<TestKit::MemoryStorage>();
    TestKit::ScopedBinding const binding{{product, commonValues, productValues, Lumora::ioPath("/resources")}};
};

} // namespace Fuzz

/// What libFuzzer calls for each input.
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);
