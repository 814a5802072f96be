// SPDX-License-Identifier: MIT
#include "cli/HelpTexts.h"

#include <absl/strings/str_cat.h>

std::vector<HelpText> const& helpTexts()
{
    static std::vector<HelpText> const all = {
        {"Exit status", R"(  0  success
  1  failure: unknown key, wrong value, trouble with a store or the product file, an unusable folder,
     or something wrong found by doctor
  2  wrong usage
diff exits with 0 for no difference, with 1 for any, and with 2 on an error.)"},
        {"Output",
         R"(Values go to standard output, messages to standard error. With --plain a backslash is printed as \\, a tab as \t,
line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array. A
terminal receives no control characters but tabs, line breaks and colour codes. Output that cannot be written completely is
an error.)"},
        {"On a terminal",
         R"(Long answers go through the pager that EDITOR_SETTINGS_PAGER names, else PAGER, else "less"; an empty name or
"cat" turns it off. Where LESS is not set, less ends by itself when the answer fits the screen. Columns line up; elsewhere a
tab separates them. Colours only repeat what the words say; NO_COLOR, or TERM=dumb, turns them off. While a long step runs,
standard error shows its name.)"},
        {"Words that look like options", R"(A value that begins with "-" goes after "--": editor-settings set lastTarget -- -x)"},
    };
    return all;
}

std::string helpFooter()
{
    std::string footer;
    for (HelpText const& note : helpTexts())
        footer += absl::StrCat(footer.empty() ? "" : "\n\n", note.title, ":\n", note.text);
    return footer;
}

std::string helpOf(std::vector<Example> const& examples)
{
    std::string text;
    for (Example const& example : examples)
        text += absl::StrCat(text.empty() ? "Examples:" : "", "\n  ", example.command, "\n      ", example.effect);
    return text;
}
