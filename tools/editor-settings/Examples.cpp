// SPDX-License-Identifier: MIT
#include "Examples.h"

#include "Translation.h"

#include <map>

namespace {

using Examples = std::map<std::string, std::vector<Example>>;

Examples const& preferenceExamples()
{
    static Examples const all = {
        {"list",
         {{"editor-settings list '*Path'", Text::mark("Every preference whose key ends in Path.")},
          {"editor-settings list --set --plain", Text::mark("What is stored, one preference a line, for a script.")}}},
        {"get",
         {{"editor-settings get exportPath", Text::mark("The folder that the editor exports to.")},
          {"editor-settings get userCustomColors --json", Text::mark("A list in a form that every program reads alike.")}}},
        {"set",
         {{"editor-settings set keepVideoAspect no", Text::mark("Stores false.")},
          {"editor-settings set exportPath ~/Videos/Exports", Text::mark("Stores another folder; the editor makes it.")},
          {"editor-settings set userCustomColors '#ff8800' navy", Text::mark("Stores a list of two.")},
          {"editor-settings set lastTarget -- -x", Text::mark("Stores a value that looks like an option.")}}},
        {"unset", {{"editor-settings unset exportPath", Text::mark("From now on the default holds.")}}},
        {"explain",
         {{"editor-settings explain exportPath", Text::mark("Whether it is stored, where and since when, and what the default is.")}}},
        {"project", {{"editor-settings project", Text::mark("What a new project is called, and which files the editor opens.")}}},
        {"favorites", {{"editor-settings favorites fonts", Text::mark("The favourites of the list \"fonts\".")}}},
        {"indication",
         {{"editor-settings indication tour", Text::mark("What is kept for the indication \"tour\", in base64.")},
          {"editor-settings indication tour @tour.state", Text::mark("Stores the bytes of the file tour.state for it.")}}},
        {"tutorials",
         {{"editor-settings tutorials", Text::mark("The finished ones, one a line.")},
          {"editor-settings tutorials --empty", Text::mark("Forgets them all.")}}},
        {"colors", {{"editor-settings colors '#ff8800' navy", Text::mark("Stores these two in the place of those before.")}}},
        {"target-history", {{"editor-settings target-history --json", Text::mark("The text in which the editor keeps them.")}}},
    };
    return all;
}

Examples const& locationExamples()
{
    static Examples const all = {
        {"paths",
         {{"editor-settings paths 'stock*'", Text::mark("Every location whose name begins with stock.")},
          {"editor-settings paths exportPath --explain", Text::mark("What decides where exports go.")},
          {"editor-settings paths --check", Text::mark("Whether the editor can write wherever it writes to.")}}},
        {"next-name",
         {{"editor-settings next-name audio", Text::mark("The file that the next recording goes into.")},
          {"editor-settings next-name --reserve freeze holiday.mov",
           Text::mark("Makes an empty file of the next name, and prints that.")}}},
        {"next-name audio",
         {{"editor-settings next-name audio --plain", Text::mark("The path on one line, whatever its folder is called.")}}},
        {"next-name freeze", {{"editor-settings next-name freeze holiday.mov", Text::mark("The next freeze frame of that film.")}}},
        {"next-name stabilized", {{"editor-settings next-name stabilized holiday.mov mp4", Text::mark("The next stabilized clip of it.")}}},
    };
    return all;
}

Examples const& upkeepExamples()
{
    static Examples const all = {
        {"backup", {{"editor-settings backup settings.backup", Text::mark("Copies both stores into that file.")}}},
        {"restore",
         {{"editor-settings restore settings.backup --dry-run", Text::mark("What would be otherwise than now.")},
          {"editor-settings restore settings.backup", Text::mark("Brings the stores back, and tells where those of now are kept.")}}},
        {"monitor", {{"editor-settings monitor", Text::mark("A line for each change, until Ctrl+C.")}}},
        {"doctor",
         {{"editor-settings doctor", Text::mark("What is wrong and what to do; exit status 0 where all is well.")},
          {"editor-settings doctor --json > report.json", Text::mark("The same, for somebody who helps.")}}},
        {"export",
         {{"editor-settings export settings.json", Text::mark("Writes all that is stored.")},
          {"editor-settings export --redact -", Text::mark("The same without what is personal, on standard output.")}}},
        {"import",
         {{"editor-settings import settings.json --dry-run", Text::mark("What would change.")},
          {"editor-settings import --only roaming settings.json",
           Text::mark("Stores what belongs to the user rather than to the machine.")}}},
        {"diff",
         {{"editor-settings diff settings.json", Text::mark("What is stored otherwise than in the file; exit status 1, as something is.")},
          {"editor-settings export - | editor-settings diff -", Text::mark("Nothing, as the two are alike.")}}},
        {"completion",
         {{"editor-settings completion bash > editor-settings.bash", Text::mark("A script for bash: source editor-settings.bash")}}},
        {"manual", {{"editor-settings manual > editor-settings.1", Text::mark("The page in a file: man ./editor-settings.1")}}},
    };
    return all;
}

} // namespace

std::vector<Example> const& examplesOf(std::string const& path)
{
    static std::vector<Example> const none;
    for (Examples const* all : {&preferenceExamples(), &locationExamples(), &upkeepExamples()})
        if (auto const found = all->find(path); found != all->end())
            return found->second;
    return none;
}

std::string helpExamples(std::string const& path)
{
    std::string text;
    for (Example const& example : examplesOf(path))
        text += (text.empty() ? Text::of("Examples:") : "") + "\n  " + example.command + "\n      " + Text::of(example.effect);
    return text;
}
