# SPDX-License-Identifier: MIT
#
# Fails where the command UPDATE would change one of FILES, of which copies are made in FOLDER, and where one of them
# holds a text that is not translated or no longer asked for.
file(MAKE_DIRECTORY ${FOLDER})
foreach(file IN LISTS FILES)
    cmake_path(GET file FILENAME name)
    file(COPY_FILE ${file} ${FOLDER}/${name})
    execute_process(COMMAND ${UPDATE} ${FOLDER}/${name} COMMAND_ERROR_IS_FATAL ANY)
    file(READ ${file} kept)
    file(READ ${FOLDER}/${name} updated)
    if(NOT kept STREQUAL updated)
        message(SEND_ERROR "${name} is out of date: build the target update-…-translations, and translate what is new")
    endif()
    if(kept MATCHES "type=\"(unfinished|vanished|obsolete)\"")
        message(SEND_ERROR "${name} holds a text that is ${CMAKE_MATCH_1}")
    endif()
    if(kept MATCHES "<(translation|numerusform)(/>|[^>/]*></)")
        message(SEND_ERROR "${name} holds a text whose translation is empty")
    endif()
endforeach()
