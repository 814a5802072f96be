// SPDX-License-Identifier: MIT
#include "commands/Examples.h"

#include <absl/strings/str_cat.h>

#include <map>

namespace {

using Examples = std::map<std::string, std::vector<Example>>;

Examples const& preferenceExamples()
{
    static Examples const all = {
        {"list",
         {{"editor-settings list '*Path'", "Every preference whose key ends in Path."},
          {"editor-settings list --set --plain", "What is stored, one preference a line, for a script."}}},
        {"get",
         {{"editor-settings get exportPath", "The folder that the editor exports to."},
          {"editor-settings get userCustomColors --json", "A list in a form that every program reads alike."}}},
        {"set",
         {{"editor-settings set keepVideoAspect no", "Stores false."},
          {"editor-settings set exportPath ~/Videos/Exports", "Stores another folder; the editor makes it."},
          {"editor-settings set userCustomColors '#ff8800' navy", "Stores a list of two."},
          {"editor-settings set lastTarget -- -x", "Stores a value that looks like an option."}}},
        {"unset", {{"editor-settings unset exportPath", "From now on the default holds."}}},
        {"explain", {{"editor-settings explain exportPath", "Whether it is stored, where and since when, and what the default is."}}},
        {"project", {{"editor-settings project", "What a new project is called, and which files the editor opens."}}},
        {"favorites", {{"editor-settings favorites fonts", "The favourites of the list \"fonts\"."}}},
        {"indication",
         {{"editor-settings indication tour", "What is kept for the indication \"tour\", in base64."},
          {"editor-settings indication tour @tour.state", "Stores the bytes of the file tour.state for it."}}},
        {"tutorials",
         {{"editor-settings tutorials", "The finished ones, one a line."}, {"editor-settings tutorials --empty", "Forgets them all."}}},
        {"colors", {{"editor-settings colors '#ff8800' navy", "Stores these two in the place of those before."}}},
        {"target-history", {{"editor-settings target-history --json", "The text in which the editor keeps them."}}},
    };
    return all;
}

Examples const& locationExamples()
{
    static Examples const all = {
        {"paths",
         {{"editor-settings paths 'stock*'", "Every location whose name begins with stock."},
          {"editor-settings paths exportPath --explain", "What decides where exports go."},
          {"editor-settings paths --check", "Whether the editor can write wherever it writes to."}}},
        {"next-name",
         {{"editor-settings next-name audio", "The file that the next recording goes into."},
          {"editor-settings next-name --reserve freeze holiday.mov", "Makes an empty file of the next name, and prints that."}}},
        {"next-name audio", {{"editor-settings next-name audio --plain", "The path on one line, whatever its folder is called."}}},
        {"next-name freeze", {{"editor-settings next-name freeze holiday.mov", "The next freeze frame of that film."}}},
        {"next-name stabilized", {{"editor-settings next-name stabilized holiday.mov mp4", "The next stabilized clip of it."}}},
    };
    return all;
}

Examples const& upkeepExamples()
{
    static Examples const all = {
        {"backup", {{"editor-settings backup settings.backup", "Copies both stores into that file."}}},
        {"restore",
         {{"editor-settings restore settings.backup --dry-run", "What would be otherwise than now."},
          {"editor-settings restore settings.backup", "Brings the stores back, and tells where those of now are kept."}}},
        {"monitor", {{"editor-settings monitor", "A line for each change, until Ctrl+C."}}},
        {"doctor",
         {{"editor-settings doctor", "What is wrong and what to do; exit status 0 where all is well."},
          {"editor-settings doctor --json > report.json", "The same, for somebody who helps."}}},
        {"export",
         {{"editor-settings export settings.json", "Writes all that is stored."},
          {"editor-settings export --redact -", "The same without what is personal, on standard output."}}},
        {"import",
         {{"editor-settings import settings.json --dry-run", "What would change."},
          {"editor-settings import --only roaming settings.json", "Stores what belongs to the user rather than to the machine."}}},
        {"diff",
         {{"editor-settings diff settings.json", "What is stored otherwise than in the file; exit status 1, as something is."},
          {"editor-settings export - | editor-settings diff -", "Nothing, as the two are alike."}}},
        {"completion", {{"editor-settings completion bash > editor-settings.bash", "A script for bash: source editor-settings.bash"}}},
        {"manual", {{"editor-settings manual > editor-settings.1", "The page in a file: man ./editor-settings.1"}}},
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
        text += absl::StrCat(text.empty() ? "Examples:" : "", "\n  ", example.command, "\n      ", example.effect);
    return text;
}
