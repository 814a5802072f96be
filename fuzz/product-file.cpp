// SPDX-License-Identifier: MIT
//
// A product file of any content: it is taken as its header says, or refused with a text for the user.
//
// An input is the file's content.
#include <support/Fuzz.h>
#include <support/names/NaiveNames.h>

#include <Host/ProductFile.h>

using Fuzz::expect;

namespace {

void checkFolderName(std::string const& field, std::string const& name)
{
    expect(oracle::isUtf8(name), field + " is UTF-8");
    expect(!name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos && name.find('\0') == std::string::npos,
           field + " is the name of a folder");
}

void checkExtensions(std::string const& text)
{
    expect(oracle::isUtf8(text), "extensions are UTF-8");
    if (text.empty())
        return;
    for (std::string const& extension : Fuzz::split(text, ','))
        expect(!extension.empty() && extension.find('.') == std::string::npos, "an extension is not empty and without dot");
}

void checkTaken(Host::ProductFile const& product, std::filesystem::path const& file)
{
    checkFolderName("vendorName", product.vendorName());
    checkFolderName("productName", product.productName());
    checkFolderName("sharedDataFolderName", product.sharedDataFolderName());
    checkExtensions(product.projectFileExtensions());
    expect(product.file() == file, "the file is as it was named");
    for (Host::OwnKey const& own : product.ownKeys().all())
        expect(oracle::isUtf8(own.key) && !own.key.empty() && product.ownKeys().find(own.key), "a declared key is found");
    std::string const root = product.resourcesRoot().string();
    expect(oracle::isUtf8(root) && root.find('\0') == std::string::npos && product.resourcesRoot().is_absolute(), "the root is absolute");
}

void checkRefused(std::string const& text, std::filesystem::path const& file)
{
    std::string const begin = "product file " + file.string() + ' ';
    if (text.compare(0, begin.size(), begin) != 0 || !oracle::isUtf8(text))
        Fuzz::finding("a text that names the file, in UTF-8", {text});
    // What is wrong, then what to do; on one line, as users report texts.
    bool const saysWhatToDo = text.find("; ") != std::string::npos || text.find(", which takes ") != std::string::npos ||
                              text.find(" is not JSON: ") != std::string::npos;
    if (!saysWhatToDo || text.size() == begin.size())
        Fuzz::finding("a text that says what to do", {text});
    for (char const byte : text)
        if (static_cast<unsigned char>(byte) < 0x20)
            Fuzz::finding("a text without control characters", {text});
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static TestKit::TemporaryHome const home;
    static std::filesystem::path const file = home.path() / "product.json";
    Fuzz::writeFile(file, data, size);
    try {
        Host::ProductFile const product(file);
        checkTaken(product, file);
    } catch (Host::ProductFileError const& error) {
        checkRefused(error.what(), file);
    }
    return 0;
}
