// SPDX-License-Identifier: MIT
#include "cli/HelpTexts.h"

#include <absl/strings/str_cat.h>

std::vector<HelpText> const& helpTexts()
{
    static std::vector<HelpText> const all = {
        {"Exit status", R"(  0  done
  1  said no: unknown key, wrong value, trouble with a store or the product file, a folder that cannot be used,
     or doctor found something wrong
  2  wrong usage
diff ends with 0 where nothing differs, with 1 where something does, and with 2 for everything else.)"},
        {"Output",
         R"(Values are printed to standard output, reasons to standard error. With --plain a backslash is printed as \\, a tab
as \t, line breaks as \n and \r, other control characters and bytes that are not UTF-8 as \xHH, and a list as a JSON array.
A terminal is sent no control characters but tabs, line breaks and the codes of colours. An answer that could not be
printed whole is an error.)"},
        {"On a terminal",
         R"(What is longer than the screen is shown by the program that EDITOR_SETTINGS_PAGER names, else PAGER, else
"less"; an empty name and "cat" stand for none. Columns line up there; elsewhere a tab stands between each two. Colours say
nothing that the words do not say; NO_COLOR, or "dumb" in TERM, leaves them out. What takes longer than a second tells
meanwhile which step it is at, where standard error is a terminal.)"},
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
