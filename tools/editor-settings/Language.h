// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>
#include <QTranslator>

#include <optional>

/// While it lives, the tool's texts and the library's are in the user's language, as far as there are translations.
class Language {
public:
    /// The tool's texts stay English where the words of the command line ask for an answer that is the same in every
    /// language, or where the user's locale is not in UTF-8.
    Language(int argc, char** argv);
    ~Language();
    Language(Language const&) = delete;
    Language& operator=(Language const&) = delete;

private:
    void translateLibrary(QString const& folder);

    int m_argumentCount = 1;
    char m_noName[1] = "";
    char* m_arguments[2] = {m_noName, nullptr};
    std::optional<QCoreApplication> m_application;
    QTranslator m_ofLibrary;
    QTranslator m_ofTool;
};
