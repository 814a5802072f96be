// SPDX-License-Identifier: MIT
#include <generated/Subjects.h>

#include <Settings/Settings.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

using namespace std::string_literals; // texts with a NUL

Texts const namePieces = {"Holiday",
                          "holiday",
                          "Clip",
                          "a",
                          "b",
                          "A",
                          "s",
                          "K",
                          " ",
                          "-",
                          "-1",
                          "7",
                          " (3)",
                          "x y",
                          "a.b",
                          ".",
                          ":",
                          "\n",
                          "%1",
                          "%2",
                          "%L2",
                          "(a|b)",
                          "(1)",
                          "[ab]",
                          "[^a]",
                          "[!a]",
                          "a*",
                          "?",
                          "b+",
                          "a{2}",
                          "(",
                          ")",
                          "[",
                          "]",
                          "|",
                          "^",
                          "$",
                          "\\",
                          "\\d",
                          "{",
                          u8"\u00E9",
                          u8"\u00C9",
                          u8"e\u0301",
                          u8"\u05D0",
                          u8"\U0001F3AC",
                          u8"\U00010400",
                          u8"\u017F",
                          u8"\u212A",
                          u8"\u0663",
                          u8"\uFFFD",
                          u8"\uFEFF",
                          "\xFF",
                          "\xE9"};
Texts const formats = {"png",   "png",  "PNG", "mp4", "",   "p.g",      "p?g", "p*",   "[pj]ng",
                       "(png)", "(png", "[",   "%1",  "%3", u8"\u0130", "p|g", "p\0g"s};
Texts const runningNumbers = {"1",           "7",  "8",  "10", "007",      "0",         "2147483646", "2147483647",  "2147483648",
                              "99999999999", "-5", "+5", "x",  u8"\u0663", u8"1\u0663", u8"\uFF11",   u8"\U0001D7CF"};

// With the other case of ASCII and of U+00C0 to U+00DE.
std::string inOtherCase(std::string bytes)
{
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        auto const byte = static_cast<unsigned char>(bytes[at]);
        bool const isLatin = at > 0 && bytes[at - 1] == '\xC3' && (byte & 0x1F) != 0x17 && (byte & 0x1F) != 0x1F;
        if ((byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || isLatin)
            bytes[at] = static_cast<char>(byte ^ 0x20);
    }
    return bytes;
}

bool isFileName(std::string const& name)
{
    return !name.empty() && name != "." && name != ".." && name.size() < 256 && name.find('/') == std::string::npos;
}

std::string anyEntry(std::string const& stem, std::string const& format, Chance& chance)
{
    std::string const number = chance.of(runningNumbers);
    std::string const before = chance.some(namePieces, 2);
    std::string const after = chance.some(namePieces, 2);
    Texts const names = {stem + " (" + number + ")." + format, stem + '-' + number + "." + format, "Rec-" + number + "-a-b." + format,
                         before + stem + '-' + number + after};
    std::string const name = chance.of(names).c_str();
    return chance.oneIn(4) ? inOtherCase(name) : name;
}

void fill(fs::path const& folder, Texts const& stems, std::string const& format, Block& block)
{
    std::string made = "entries";
    for (std::size_t count = block.chance.below(16); count > 0; --count) {
        std::string const stem = block.chance.of(stems);
        std::string const name = anyEntry(stem, format, block.chance);
        std::size_t const kind = block.chance.below(12);
        if (!isFileName(name))
            continue;
        std::string const path = folder / name;
        if (kind < 2)
            static_cast<void>(::symlink(kind == 0 ? "../target" : "missing", path.c_str()));
        else if (kind == 2)
            ::mkdir(path.c_str(), 0700);
        else
            ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
        made += ' ' + std::to_string(kind) + Answers::shown(name);
    }
    block.note(made);
}

// Ways to name the folder, and others that name none.
std::string anyForm(std::string const& name, Block& block)
{
    std::string const absolute = (block.home.path() / name).string();
    Texts const forms = {absolute,          absolute + '/', name,          "./" + name + "//../" + name, "link", "missing", "",
                         absolute + "\0x"s, "\xFF",         "file:" + name};
    return block.chance.oneIn(2) ? absolute : block.chance.of(forms);
}

} // namespace

void askNames(Block& block)
{
    Chance& chance = block.chance;
    std::string const hostile = chance.some(namePieces, 3);
    std::string const name = chance.oneIn(4) && isFileName(hostile) ? hostile : "folder";
    fs::path const folder = block.home.path() / name;
    fs::create_directory(folder);
    std::string const format = chance.of(formats);
    std::string const stem = chance.some(namePieces, 3);
    Texts const stems = {stem, inOtherCase(stem), chance.some(namePieces, 3)};
    fill(folder, stems, format, block);
    block.store->text = anyForm(name, block);
    block.store->format = format;
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, {}});
    block.note("folder " + Answers::shown(block.store->text) + " format " + Answers::shown(format));
    block.ask("recording", Answers::withoutTime(Settings::generateAudioRecordFilePath()));
    for (std::string const& one : stems) {
        QString const source = QString::fromStdString("/films/" + one + ".mov");
        block.ask("freeze of " + Answers::shown(source), Settings::generateFreezedFilePath(source));
        block.ask("stabilized", Settings::generateStabilizedFilePath(source, QString::fromStdString(format)));
    }
    fs::remove_all(folder);
}

namespace {

struct Wildcard {
    std::string pattern;
    std::string match;
};

// The second is what the first may stand for.
std::vector<Wildcard> const wildcards = {{"*", ""},
                                         {"*", "ab"},
                                         {"?", "b"},
                                         {"?", u8"\u00E9"},
                                         {"[ab]", "a"},
                                         {"[!a]", "b"},
                                         {"[^a]", "b"},
                                         {"[a-c]", "B"},
                                         {"[]a]", "]"},
                                         {"[[:alpha:]]", "a"},
                                         {"[", "["},
                                         {"]", "]"},
                                         {"[z-a]", "b"},
                                         {"\\", "\\"},
                                         {"\\*", "*"},
                                         {"\\?", "\\x"},
                                         {".", "."},
                                         {"x", "X"},
                                         {"-", "-"},
                                         {"(", "("},
                                         {"$^", "$^"},
                                         {"{1}", "{1}"},
                                         {"+", "+"},
                                         {"|", "|"},
                                         {":", ":"},
                                         {"\n", "\n"},
                                         {u8"\u00E9", u8"\u00C9"},
                                         {u8"\u00DF", u8"\u1E9E"},
                                         {u8"\u017F", "s"},
                                         {u8"k", u8"\u212A"},
                                         {u8"\U00010400", u8"\U00010428"},
                                         {u8"\uFFFD", "\xFF"},
                                         {" *", "x"},
                                         {",", ""}};

Wildcard anyWildcard(Chance& chance)
{
    Wildcard result;
    for (std::size_t count = chance.below(5); count > 0; --count) {
        Wildcard const& one = chance.of(wildcards);
        result.pattern += one.pattern;
        result.match += one.match;
    }
    return result;
}

} // namespace

void askFilters(Block& block)
{
    Wildcard const first = anyWildcard(block.chance);
    Wildcard const second = anyWildcard(block.chance);
    std::string const start = block.chance.oneIn(2) ? "Film." : ".";
    std::string const name = start + (block.chance.oneIn(4) ? second.match : first.match);
    if (!isFileName(name))
        return;
    fs::path const folder = block.home.path() / "resources/samples/stock/projects";
    fs::create_directories(folder);
    std::string const path = folder / name;
    ::close(::open(path.c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, Lumora::ioPath(block.home.path().string())});
    for (std::string const& pattern : {first.pattern, first.pattern + "," + second.pattern, inOtherCase(first.pattern), second.pattern}) {
        block.product->extensions = pattern;
        block.ask("sample " + Answers::shown(name) + " by " + Answers::shown(pattern), Settings::sampleProjectPath());
    }
    fs::remove(path);
}
