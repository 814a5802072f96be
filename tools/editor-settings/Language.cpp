// SPDX-License-Identifier: MIT
#include "Language.h"

#include "Translation.h"

#include <Host/ProductFile.h>

#include <QLocale>
#include <QTextCodec>

#include <algorithm>
#include <clocale>
#include <string>

namespace {

// By its name, as the locale itself need not be installed.
bool isLocaleInUtf8()
{
    QString locale;
    for (char const* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (locale.isEmpty())
            locale = QString::fromUtf8(qgetenv(variable));
    QString const encoding = locale.section(QLatin1Char('.'), 1).section(QLatin1Char('@'), 0, 0).remove(QLatin1Char('-'));
    return encoding.compare(QLatin1String("utf8"), Qt::CaseInsensitive) == 0;
}

// What scripts read, and what is made once for all users.
bool isTheSameForAll(std::string const& word)
{
    std::string const name = word.substr(0, word.find('='));
    return name == "--plain" || name == "--json" || name == "--format" || name == "manual" || name == "completion";
}

// Empty where the program cannot tell where it lies.
QString folderOfTranslations()
try {
    return QString::fromStdString((Host::installedProductFile().parent_path() / "translations").u8string());
} catch (Host::ProductFileError const&) {
    return {};
}

// Whoever reads English is not to get the next language of the list.
bool load(QTranslator& translator, QString const& folder)
{
    QStringList const languages = QLocale().uiLanguages();
    for (QString language : languages) {
        if (QLocale(language).language() == QLocale::English)
            return false;
        if (translator.load(QLatin1String("editor-settings-tool_") + language.replace(QLatin1Char('-'), QLatin1Char('_')), folder))
            return true;
    }
    return false;
}

} // namespace

Language::Language(int argc, char** argv)
{
    QString const folder = folderOfTranslations();
    if (folder.isEmpty())
        return;
    translateLibrary(folder);
    char** const end = std::find(argv, argv + argc, std::string("--"));
    if (isLocaleInUtf8() && std::none_of(argv, end, isTheSameForAll) && load(m_ofTool, folder))
        Text::useTranslator(&m_ofTool);
}

Language::~Language() { Text::useTranslator(nullptr); }

void Language::translateLibrary(QString const& folder)
{
    if (!m_ofLibrary.load(QLocale(), QStringLiteral("editor-settings"), QStringLiteral("_"), folder))
        return;
    // An application takes over the user's locale, which would change how names of files and reasons of the system are
    // read; and it has no name, as its name would become a part of the folder for the cache.
    QTextCodec::codecForLocale();
    m_application.emplace(m_argumentCount, m_arguments);
    std::setlocale(LC_ALL, "C");
    QCoreApplication::installTranslator(&m_ofLibrary);
}
