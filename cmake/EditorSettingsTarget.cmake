# SPDX-License-Identifier: MIT
#
# editor_settings_target(<target> [EXPORT_NAME <name>] [VERSIONED] [FOR_EVERY_QT]
#                        [HEADERS ROOT <folder> FILES <header>...])
#
# Gives a target this project's language level, visibility and warnings. HEADERS names its public headers, relative to
# the current folder, and the include root that they are found below; VERSIONED gives a shared library its version.
# With EXPORT_NAME the target is installed, in the export set <target>Targets, and found by that name. Its file is named
# after the Qt that it is built with, but for a library FOR_EVERY_QT, which is the same for all.
include_guard(GLOBAL)

function(editor_settings_target target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "VERSIONED;FOR_EVERY_QT" "EXPORT_NAME" "HEADERS")
    cmake_parse_arguments(headers "" "ROOT" "FILES" ${arg_HEADERS})

    set_target_properties(${target} PROPERTIES
        CXX_EXTENSIONS OFF
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        POSITION_INDEPENDENT_CODE ON)
    target_compile_features(${target} PUBLIC cxx_std_17)
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_DEPRECATED_WARNINGS)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -pedantic -Wconversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
        -Wzero-as-null-pointer-constant -Wsuggest-override)
    if(EDITOR_SETTINGS_SANITIZE)
        target_compile_options(${target} PRIVATE -fsanitize=${EDITOR_SETTINGS_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        # GCC's own headers set it off where they are instrumented.
        target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
        target_link_options(${target} PRIVATE -fsanitize=${EDITOR_SETTINGS_SANITIZE})
    endif()

    if(arg_VERSIONED)
        set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
    endif()
    if(headers_ROOT)
        target_sources(${target} PUBLIC FILE_SET HEADERS BASE_DIRS ${headers_ROOT} FILES ${headers_FILES})
    endif()
    if(arg_EXPORT_NAME)
        set_target_properties(${target} PROPERTIES EXPORT_NAME ${arg_EXPORT_NAME})
        if(NOT arg_FOR_EVERY_QT)
            set_target_properties(${target} PROPERTIES OUTPUT_NAME ${target}${EDITOR_SETTINGS_QT_SUFFIX})
        endif()
        if(EDITOR_SETTINGS_INSTALL)
            set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
            install(TARGETS ${target} EXPORT ${target}Targets
                LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
                ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
                FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/EditorSettings${EDITOR_SETTINGS_QT_SUFFIX})
        endif()
    endif()
endfunction()
