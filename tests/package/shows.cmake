# SPDX-License-Identifier: MIT
#
# Fails unless README holds the code of EXAMPLE, from its first #include on.
file(READ ${README} readme)
file(READ ${EXAMPLE} example)
string(FIND "${example}" "#include" start)
string(SUBSTRING "${example}" ${start} -1 code)
string(FIND "${readme}" "```cpp\n${code}```" found)
if(found EQUAL -1)
    message(FATAL_ERROR "README.md does not show the code of ${EXAMPLE}")
endif()
