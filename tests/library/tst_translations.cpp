// SPDX-License-Identifier: MIT
//
// The translations that ship with the library, loaded as a host does.
#include <support/BoundLibrary.h>
#include <support/Named.h>

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

namespace {

struct Language {
    char const* meaning;
    char const* locale;
    char16_t const* newProject;
};

class Translations : public testing::TestWithParam<Language> {
protected:
    bool load()
    {
        return m_translator.load(QLocale(QLatin1String(GetParam().locale)), QStringLiteral("editor-settings"), QStringLiteral("_"),
                                 QStringLiteral(TRANSLATIONS));
    }

    QTranslator m_translator;

private:
    int m_argumentCount = 1;
    char m_program[5] = "test";
    char* m_arguments[2] = {m_program, nullptr};
    QCoreApplication m_application{m_argumentCount, m_arguments};
};

TEST_P(Translations, NameTheNewProjectWhileTheyAreInstalled)
{
    ASSERT_TRUE(load());
    EXPECT_EQ(Settings::projectNameDefault(), QStringLiteral("New Project"));
    QCoreApplication::installTranslator(&m_translator);
    EXPECT_EQ(Settings::projectNameDefault(), QString::fromUtf16(GetParam().newProject));
    QCoreApplication::removeTranslator(&m_translator);
    EXPECT_EQ(Settings::projectNameDefault(), QStringLiteral("New Project"));
}

INSTANTIATE_TEST_SUITE_P(Languages, Translations,
                         testing::Values(Language{"German", "de_DE", u"Neues Projekt"},
                                         Language{"GermanOfAustria", "de_AT", u"Neues Projekt"},
                                         Language{"French", "fr_FR", u"Nouveau projet"}, Language{"Spanish", "es_ES", u"Proyecto nuevo"},
                                         Language{"Japanese", "ja_JP", u"\u65B0\u898F\u30D7\u30ED\u30B8\u30A7\u30AF\u30C8"},
                                         Language{"Arabic", "ar_EG", u"\u0645\u0634\u0631\u0648\u0639 \u062C\u062F\u064A\u062F"},
                                         Language{"SimplifiedChinese", "zh_CN", u"\u65B0\u5EFA\u9879\u76EE"}),
                         byMeaning);

class OtherLanguages : public Translations {};

TEST_P(OtherLanguages, KeepTheEnglishName)
{
    EXPECT_FALSE(load());
    QCoreApplication::installTranslator(&m_translator);
    EXPECT_EQ(Settings::projectNameDefault(), QString::fromUtf16(GetParam().newProject));
}

INSTANTIATE_TEST_SUITE_P(Languages, OtherLanguages,
                         testing::Values(Language{"Portuguese", "pt_PT", u"New Project"},
                                         Language{"TraditionalChinese", "zh_TW", u"New Project"}),
                         byMeaning);

} // namespace
