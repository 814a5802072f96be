# SPDX-License-Identifier: MIT
#
# Finds the Qt that QT_MAJOR_VERSION names. Included before the other modules, which go by
#
#   EDITOR_SETTINGS_QT_MINIMUM   the lowest version of that Qt that will do
#   EDITOR_SETTINGS_QT_COMPAT    the target with QRegExp and QTextCodec, for private use
#   EDITOR_SETTINGS_QT_SUFFIX    what ends the names of libraries, headers and package: empty for Qt 5, and Qt6
#
# A program of one Qt must not find the library of the other: most of its symbols have the same names in both.
include_guard(GLOBAL)

set(QT_MAJOR_VERSION 5 CACHE STRING "Major version of the Qt to build with: 5 or 6")
if(QT_MAJOR_VERSION STREQUAL "5")
    set(EDITOR_SETTINGS_QT_MINIMUM 5.15)
    set(EDITOR_SETTINGS_QT_COMPAT Qt5::Core)
    set(EDITOR_SETTINGS_QT_SUFFIX "")
    find_package(Qt5 ${EDITOR_SETTINGS_QT_MINIMUM} REQUIRED COMPONENTS Core Gui)
elseif(QT_MAJOR_VERSION STREQUAL "6")
    set(EDITOR_SETTINGS_QT_MINIMUM 6.4)
    set(EDITOR_SETTINGS_QT_COMPAT Qt6::Core5Compat)
    set(EDITOR_SETTINGS_QT_SUFFIX Qt6)
    find_package(Qt6 ${EDITOR_SETTINGS_QT_MINIMUM} REQUIRED COMPONENTS Core Core5Compat Gui)
else()
    message(FATAL_ERROR
        "QT_MAJOR_VERSION is \"${QT_MAJOR_VERSION}\", and this builds with Qt 5 or Qt 6: "
        "configure with -DQT_MAJOR_VERSION=5 or -DQT_MAJOR_VERSION=6")
endif()
