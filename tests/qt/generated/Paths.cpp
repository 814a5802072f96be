// SPDX-License-Identifier: MIT
#include <generated/Subjects.h>

#include <Catalogue/Catalogue.h>

#include <cstdlib>

namespace {

using namespace std::string_literals; // texts with a NUL

Texts const pathPieces = {"/",  "/",       "//", "/./",   "/../",     "..",        ".",        "a",    "B.c",  "d.e.f",      ".g",
                          "h.", " ",       "~",  "file:", ":",        "qrc:/",     ":/x",      "C:/",  "\\",   "\\\\server", "%1",
                          "%2", "*?\"<>|", "\n", "\0"s,   u8"\u00E9", u8"e\u0301", u8"\uFEFF", "\xFF", "\xC3", "...",        "Clip"};

std::string anyPath(Chance& chance)
{
    bool const isAbsolute = chance.oneIn(2);
    std::string const rest = chance.some(pathPieces, 8);
    return isAbsolute ? '/' + rest : rest;
}

// Names the folders of data and caches in the environment.
void moveFolders(Block& block)
{
    for (char const* const variable : {"XDG_DATA_HOME", "XDG_CACHE_HOME"}) {
        std::string const path = anyPath(block.chance).c_str();
        ::setenv(variable, path.c_str(), 1); // restored with the home folder
        block.note(variable + (' ' + Answers::shown(path)));
    }
}

void askLocation(Block& block)
{
    Catalogue::Location const& location = block.chance.of(Catalogue::locations());
    bool const ofAnyText = std::holds_alternative<QString (*)(std::string const&)>(location.function) ||
                           std::holds_alternative<std::string (*)(std::string const&)>(location.function);
    std::string const path = anyPath(block.chance);
    std::string const argument = ofAnyText ? path : location.arguments.empty() ? "" : block.chance.of(location.arguments);
    block.ask(location.name + (' ' + Answers::shown(argument)), location.path(argument));
}

} // namespace

void askPaths(Block& block)
{
    Chance& chance = block.chance;
    moveFolders(block);
    for (std::string* const text : {&block.product->vendor, &block.product->product, &block.product->sharedData})
        block.note("product " + Answers::shown(*text = anyPath(chance)));
    std::string const root = anyPath(chance);
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, Lumora::ioPath(root)});
    block.store->text = "missing";
    block.note("resources " + Answers::shown(root));
    for (int count = 0; count < 6; ++count)
        askLocation(block);
    for (int count = 0; count < 3; ++count) {
        QString const path = QString::fromStdString(anyPath(chance));
        int const location = static_cast<int>(chance.below(QStandardPaths::AppConfigLocation + 1));
        block.ask("default " + std::to_string(location) + ' ' + Answers::shown(path),
                  makeDefaultPath(static_cast<QStandardPaths::StandardLocation>(location), path));
        block.ask("freeze of " + Answers::shown(path), Settings::generateFreezedFilePath(path));
        block.ask("stabilized " + Answers::shown(path), Settings::generateStabilizedFilePath(path, path));
    }
}

namespace {

Texts const dirsPieces = {"XDG_VIDEOS_DIR=",
                          "XDG_MUSIC_DIR=",
                          "XDG_VIDEOS_DIR",
                          "\"",
                          "\"",
                          "$HOME",
                          "$HOME/",
                          "/abs",
                          "/",
                          "..",
                          "rel",
                          "\n",
                          "\n",
                          "#",
                          " ",
                          "\t",
                          "\r",
                          "=",
                          "\\",
                          "\\\"",
                          "${HOME}",
                          "\xFF",
                          u8"\u00E9",
                          "\0"s,
                          "\xEF\xBB\xBF"};

} // namespace

void askUserFolders(Block& block)
{
    Chance& chance = block.chance;
    TestKit::ScopedBinding const binding({block.product, block.store, block.store, {}});
    std::string text = chance.some(dirsPieces, 4);
    text += chance.oneIn(2) ? "\nXDG_VIDEOS_DIR=\"" : "\nXDG_MUSIC_DIR=\"";
    text += chance.some(dirsPieces, 4);
    text += "\"\n";
    text += chance.some(dirsPieces, 4);
    block.home.write(".config/user-dirs.dirs", text);
    block.ask("movies for " + Answers::shown(text), Settings::defaultProjectPath());
    block.ask("music", Settings::defaultAudioRecordPath());
}
