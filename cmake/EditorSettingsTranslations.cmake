# SPDX-License-Identifier: MIT
#
# editor_settings_translations(<prefix> LANGUAGES <language>... SOURCES <file>...)
#
# Makes <prefix>_<language>.qm of translations/<prefix>_<language>.ts, for the texts in the sources; files and folder are
# relative to the current one. The target <prefix>-translations is
# part of every build; update-<prefix>-translations brings the .ts files up to date with the sources.
#
# editor_settings_translations_test(<prefix> LABEL <label>)
#
# Tests that this has been done, and that every text is translated.
#
# A host loads the .qm files from share/editor-settings/<major version>/translations, here and in an installation:
#
#   translator.load(QLocale(), "editor-settings", "_", folder) && QCoreApplication::installTranslator(&translator)
#
# The folder of an installation is EditorSettings_TRANSLATIONS_DIR after find_package, and translationsdir for pkg-config.
include_guard(GLOBAL)

set(EDITOR_SETTINGS_TRANSLATIONS_FOLDER ${CMAKE_INSTALL_DATADIR}/editor-settings/${PROJECT_VERSION_MAJOR}/translations)
if(EDITOR_SETTINGS_TRANSLATIONS)
    find_package(Qt${QT_MAJOR_VERSION}LinguistTools ${EDITOR_SETTINGS_QT_MINIMUM} QUIET)
    if(NOT Qt${QT_MAJOR_VERSION}LinguistTools_FOUND)
        message(STATUS "Translations are left out: they need Qt's linguist tools, qttools5-dev or qt6-tools-dev and qt6-l10n-tools")
    endif()
endif()

function(editor_settings_translations prefix)
    if(NOT EDITOR_SETTINGS_TRANSLATIONS OR NOT Qt${QT_MAJOR_VERSION}LinguistTools_FOUND)
        return()
    endif()
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LANGUAGES;SOURCES")
    list(TRANSFORM arg_LANGUAGES REPLACE "(.+)" "${CMAKE_CURRENT_SOURCE_DIR}/translations/${prefix}_\\1.ts" OUTPUT_VARIABLE files)
    list(TRANSFORM arg_SOURCES PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)

    set_source_files_properties(${files} PROPERTIES OUTPUT_LOCATION ${PROJECT_BINARY_DIR}/${EDITOR_SETTINGS_TRANSLATIONS_FOLDER})
    cmake_language(CALL qt${QT_MAJOR_VERSION}_add_translation compiled ${files} OPTIONS -silent)
    add_custom_target(${prefix}-translations ALL DEPENDS ${compiled})
    # Without lines, so that only a change of a text changes a file.
    set(update $<TARGET_FILE:Qt${QT_MAJOR_VERSION}::lupdate> -silent -no-obsolete -locations none -source-language en ${arg_SOURCES} -ts)
    add_custom_target(update-${prefix}-translations COMMAND ${update} ${files} VERBATIM)
    set_target_properties(${prefix}-translations PROPERTIES UPDATE "${update}" FILES "${files}")
    if(EDITOR_SETTINGS_INSTALL)
        install(FILES ${compiled} DESTINATION ${EDITOR_SETTINGS_TRANSLATIONS_FOLDER})
    endif()
endfunction()

function(editor_settings_translations_test prefix)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "LABEL" "")
    get_target_property(update ${prefix}-translations UPDATE)
    get_target_property(files ${prefix}-translations FILES)
    add_test(NAME ${arg_LABEL}.${prefix}_translations_are_up_to_date COMMAND ${CMAKE_COMMAND}
        "-DUPDATE=${update}" "-DFILES=${files}" -DFOLDER=${CMAKE_CURRENT_BINARY_DIR}/${prefix}-translations
        -P ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/TranslationsAreUpToDate.cmake)
    set_tests_properties(${arg_LABEL}.${prefix}_translations_are_up_to_date PROPERTIES LABELS ${arg_LABEL})
endfunction()
