// SPDX-License-Identifier: MIT
//
// The platform library's path value: joining paths of any bytes, against the rule told by text alone.
//
// An input has a path, and then a line for each path that is joined to it.
#include <support/Fuzz.h>

#include <Lumora/Util/ioPath.h>

#include <unistd.h>

using Fuzz::expectEqual;
using Lumora::ioPath;

namespace {

bool isAbsolute(std::string const& path) { return !path.empty() && path.front() == '/'; }

// With one separator between the two, unless the left side is empty or brings it along; absolute ones replace all.
std::string joined(std::string const& left, std::string const& right)
{
    if (isAbsolute(right) || left.empty())
        return right;
    return left.back() == '/' ? left + right : left + '/' + right;
}

std::string currentFolder()
{
    std::string folder(4096, '\0');
    Fuzz::expect(::getcwd(folder.data(), folder.size()) != nullptr, "there is a current directory");
    return folder.c_str();
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static std::string const current = currentFolder();
    std::vector<std::string> const lines = Fuzz::lines(data, size, 1);
    ioPath path(lines[0]);
    std::string text = lines[0];
    expectEqual("text", path.utf8string(), text);
    for (std::size_t index = 1; index < lines.size(); ++index) {
        ioPath const before = path;
        path /= ioPath(lines[index]);
        expectEqual("copy of the left side", before.utf8string(), text);
        text = joined(text, lines[index]);
        expectEqual("joined", path.utf8string(), text);
    }
    expectEqual("absolute", path.absolute_path().utf8string(), isAbsolute(text) ? text : joined(current, text));
    expectEqual("absolute twice", path.absolute_path().absolute_path().utf8string(), path.absolute_path().utf8string());
    expectEqual("preferred", path.make_preferred().utf8string(), text);
    expectEqual("joined to the empty path", (ioPath() /= path).utf8string(), text);
    return 0;
}
