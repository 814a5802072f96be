# SPDX-License-Identifier: MIT
#
# awk -v wrappers=FOLDER -v blocks=FOLDER -f blocks.awk PAGE
#
# Takes the code out of a page in Markdown. Into the folder `blocks` go
#   NUMBER.cpp       each block of C++, a program by itself
#   NUMBER.sh        each block of commands
#   NUMBER.expected  what the program or the commands before it print: a block of text
#   CMakeLists.txt   all blocks of CMake, one after the other
# A comment of HTML on the line before a block may say "in NAME": then the block is put into the file NAME.cpp of the
# folder `wrappers`, in the place of its line "@1@"; where that has "@2@" too, the next block "in NAME" goes there, and all of
# them make one program. It may say "shown only" for what cannot be run here. Anything else is an error.

function fail(text) {
    printf "%s:%d: %s\n", FILENAME, FNR, text > "/dev/stderr"
    failed = 1
    exit 1
}

# The file `name` with the lines of its parts in their places.
function wrapped(name,    file, line, number, result) {
    file = wrappers "/" name ".cpp"
    while ((getline line < file) > 0) {
        ++number
        if (line ~ /^@[0-9]@$/)
            result = result parts[name, substr(line, 2, 1)] "#line " number + 1 " \"" file "\"\n"
        else
            result = result line "\n"
    }
    close(file)
    return result
}

function partsOf(name,    file, line, count) {
    file = wrappers "/" name ".cpp"
    while ((getline line < file) > 0)
        if (line ~ /^@[0-9]@$/)
            ++count
    close(file)
    return count
}

function take(language, comment, text, start,    name) {
    if (comment == "shown only")
        return
    if (language == "text") {
        if (last == "")
            fail("nothing prints this")
        printf "%s", text > (last ".expected")
    } else if (language == "cmake") {
        printf "%s", text > (blocks "/CMakeLists.txt")
    } else if (language == "sh") {
        last = blocks "/" sprintf("%02d", ++number)
        printf "%s", text > (last ".sh")
    } else if (language == "cpp") {
        # Compilers name the line of the page.
        text = "#line " start " \"" FILENAME "\"\n" text
        name = comment
        if (sub(/^in /, "", name)) {
            parts[name, ++taken[name]] = text
            if (!partsOf(name))
                fail("there is no place for a block in " name)
            if (taken[name] < partsOf(name))
                return
            text = wrapped(name)
            taken[name] = 0
        }
        last = blocks "/" sprintf("%02d", ++number)
        printf "%s", text > (last ".cpp")
    } else {
        fail("nothing is known of " language)
    }
}

/^<!-- .* -->$/ && !inside {
    comment = substr($0, 6, length($0) - 9)
    next
}
/^```[a-z]+$/ && !inside {
    inside = 1
    language = substr($0, 4)
    text = ""
    start = FNR + 1
    next
}
/^```$/ && inside {
    inside = 0
    take(language, comment, text, start)
    comment = ""
    next
}
/^ *```/ { fail("a fence that is not understood") }
inside { text = text $0 "\n" }

END {
    for (name in taken)
        if (taken[name] && !failed)
            fail("too few blocks in " name)
    if (inside && !failed)
        fail("a block without end")
}
