# SPDX-License-Identifier: MIT
#
# What Doxygen reads in the place of a header, line for line:
# - What a section says of all that it holds belongs to the page of the header, under the title of the section.
# - A setter of the library, which stands below its getter without a comment, gets one.

# The title is held back until the next line tells whether the section says anything.
/^\/\/ --- .* -+$/ {
    held = $0
    next
}
held != "" {
    inSection = $0 == "//"
    print inSection ? "/// @file" : held
    title = held
    gsub(/^\/\/ --- | -+$/, "", title)
    held = ""
    if (inSection)
        $0 = "// @par " title
}
inSection && /^\/\// { $0 = "/" $0 }
!/^\/\// { inSection = 0 }

/^void set[A-Za-z]+\(/ && getter != "" { printf "/** Stores what %s() gives from then on, unchecked. */ ", getter }
{
    getter = ""
    if (isDocumented && match($0, /[A-Za-z]+\(/))
        getter = substr($0, RSTART, RLENGTH - 1)
    isDocumented = /^\/\/\/ /
    print
}
