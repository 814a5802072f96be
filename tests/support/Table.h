// SPDX-License-Identifier: MIT
//
// The independent table of the preferences, tests/data/preferences.tsv, against which everything else is held.
#pragma once

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

struct PreferenceRow {
    std::string key;
    std::string type;         // the C++ type
    std::string defaultValue; // as a literal, or the function of namespace Settings that computes it, with "()"
    std::string store;        // product or common
    std::string getter;       // qualified; "-" for none
    std::string setter;
    std::string dataClass;

    // The updater's key is not the library's own: it has no constants, and its setter takes the value by value.
    bool isOfUpdater() const { return key == "SUAutomaticallyUpdate"; }
    bool hasAccessors() const { return getter != "-"; }
    bool hasComputedDefault() const { return defaultValue.size() > 2 && defaultValue.substr(defaultValue.size() - 2) == "()"; }
};

inline std::vector<PreferenceRow> preferenceTable()
{
    std::ifstream file(TESTS_DATA "/preferences.tsv");
    std::vector<PreferenceRow> rows;
    std::string line;
    std::getline(file, line);
    if (line != "key\ttype\tdefault\tstore\tgetter\tsetter\tclass")
        throw std::runtime_error("preferences.tsv has other columns: " + line);
    while (std::getline(file, line)) {
        PreferenceRow row;
        std::istringstream fields(line);
        for (std::string* field : {&row.key, &row.type, &row.defaultValue, &row.store, &row.getter, &row.setter, &row.dataClass})
            std::getline(fields, *field, '\t');
        rows.push_back(row);
    }
    return rows;
}
