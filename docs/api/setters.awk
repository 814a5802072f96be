# SPDX-License-Identifier: MIT
#
# What Doxygen reads in the place of a header: a setter of the library, which stands below its getter without a comment, gets one.
# It stays on its line, so that the lines that Doxygen names are those of the header.
/^EDITOR_SETTINGS_EXPORT void set[A-Za-z]+\(/ && getter != "" { printf "/** Stores what %s() gives from then on, unchecked. */ ", getter }
{
    getter = ""
    if (isDocumented && match($0, /[A-Za-z]+\(/))
        getter = substr($0, RSTART, RLENGTH - 1)
    isDocumented = /^\/\/\/ /
    print
}
