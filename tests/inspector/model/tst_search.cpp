// SPDX-License-Identifier: MIT
//
// Which lines a search finds, and how a view keeps its place.
#include "Lines.h"

#include <Inspector/SearchProxy.h>

#include <support/Named.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

using Inspector::ItemsModel;
using Inspector::Search;
using Inspector::SearchProxy;

struct Searched {
    char const* meaning;
    char const* typed;
    bool isFound; // in a line with the text "exportPath", "/mnt/Ümlaut out @set", and the marks @default, @set, @product, @roaming
};

class SearchedLine : public testing::TestWithParam<Searched> {};

TEST_P(SearchedLine, IsFoundByItsWordsAndMarks)
{
    QStringList const texts = {QStringLiteral("exportPath"), QString::fromUtf8("/mnt/Ümlaut out x@example")};
    QStringList const marks = {QStringLiteral("@default"), QStringLiteral("@set"), QStringLiteral("@product")};
    Search const search(QString::fromUtf8(GetParam().typed));
    EXPECT_EQ(search.accepts(Search::textOf(texts, marks)), GetParam().isFound);
    Inspector::Item line;
    line.searchText = Search::textOf(texts, marks);
    line.marks = Search::bitsOf(marks);
    EXPECT_EQ(search.accepts(line), GetParam().isFound) << "as a line";
}

TEST(Search, LineWithoutTextsOfItsOwnIsSearchedAndSpokenByItsCells)
{
    Inspector::Item line;
    line.cells = QStringList{QStringLiteral("Note"), QString(), QStringLiteral("two words")};
    EXPECT_TRUE(Search(QStringLiteral("WORDS note")).accepts(line));
    EXPECT_FALSE(Search(QStringLiteral("@set")).accepts(line));
    EXPECT_FALSE(Search(QStringLiteral("three")).accepts(line));
    EXPECT_EQ(line.spokenLine(), QStringLiteral("Note, two words"));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(
    Table, SearchedLine,
    testing::Values(
        Searched{"Nothing", "", true},
        Searched{"Blanks", "  ", true},
        Searched{"Part", "portp", true},
        Searched{"OtherCase", "EXPORT ümLAUT", true},
        Searched{"WordsInAnyOrder", "out export", true},
        Searched{"OneWordMissing", "export elsewhere", false},
        Searched{"Mark", "@set", true},
        Searched{"MarkInOtherCase", "@Set", true},
        Searched{"BeginningOfAMark", "@def", true},
        Searched{"MarkAndWord", "@product out", true},
        Searched{"OtherMark", "@unset", false},
        Searched{"OtherStore", "@common", false},
        Searched{"NoMark", "@example", true},
        Searched{"NoMarkAndNoText", "@exampled", false},
        Searched{"AcrossTexts", "exportpath/mnt", false}),
    byMeaning);
// clang-format on

TEST(Search, ValueThatLooksLikeAMarkIsNone)
{
    QString const text = Search::textOf({QStringLiteral("key"), QStringLiteral("@trouble")}, {QStringLiteral("@set")});
    EXPECT_FALSE(Search(QStringLiteral("@trouble")).accepts(text));
    EXPECT_FALSE(Search(QStringLiteral("@t")).accepts(text));
}

class Proxy : public testing::Test {
protected:
    std::vector<std::string> shown() const
    {
        std::vector<std::string> ids;
        for (int row = 0; row < m_proxy.rowCount(); ++row)
            ids.push_back(m_proxy.index(row, 0).data(ItemsModel::idRole).toByteArray().toStdString());
        return ids;
    }

    ItemsModel m_model{{QStringLiteral("Name"), QStringLiteral("Value")}};
    SearchProxy m_proxy{m_model};
    QAbstractItemModelTester m_modelTester{&m_model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QAbstractItemModelTester m_proxyTester{&m_proxy, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(Proxy, ShowsWhatIsFound)
{
    m_model.show(Lines{line("a", "red"), line("b", "blue"), line("c", "dark red")});
    m_proxy.setSearch(Search(QStringLiteral("red")));
    EXPECT_EQ(shown(), (std::vector<std::string>{"a", "c"}));
    m_model.show(Lines{line("a", "green"), line("b", "red"), line("c", "dark red")});
    EXPECT_EQ(shown(), (std::vector<std::string>{"b", "c"}));
    m_proxy.setSearch(Search());
    EXPECT_EQ(shown(), (std::vector<std::string>{"a", "b", "c"}));
}

TEST_F(Proxy, LineInHandStaysUntilTheNextOne)
{
    m_model.show(Lines{line("a", "red"), line("b", "red")});
    m_proxy.setSearch(Search(QStringLiteral("red")));
    m_proxy.keep("a");
    m_model.show(Lines{line("a", "green"), line("b", "red")});
    EXPECT_EQ(shown(), (std::vector<std::string>{"a", "b"})) << "although the search does not find it any more";
    m_proxy.keep("b");
    EXPECT_EQ(shown(), std::vector<std::string>{"b"});
}

TEST_F(Proxy, NextSearchDropsTheLineInHandThatItDoesNotFind)
{
    m_model.show(Lines{line("a", "red"), line("b", "green")});
    m_proxy.keep("a");
    m_proxy.setSearch(Search(QStringLiteral("green")));
    EXPECT_EQ(shown(), std::vector<std::string>{"b"});
}

TEST_F(Proxy, LargeChangeResetsAndSmallOneDoesNot)
{
    m_model.show(numbered(1000));
    QSignalSpy const resets(&m_proxy, &QAbstractItemModel::modelReset);
    m_proxy.setSearch(Search(QStringLiteral("00000")));
    auto const first = resets.count();
    EXPECT_GT(first, 0);
    EXPECT_EQ(m_proxy.rowCount(), 1);
    m_proxy.setSearch(Search(QStringLiteral("0000")));
    EXPECT_EQ(resets.count(), first);
    EXPECT_EQ(m_proxy.rowCount(), 10);
    m_proxy.setSearch(Search(QStringLiteral("000")));
    EXPECT_EQ(resets.count(), first);
    EXPECT_EQ(m_proxy.rowCount(), 100);
}

TEST_F(Proxy, LineIsFoundByItsIdAfterALargeChange)
{
    m_model.show(numbered(1000));
    m_proxy.setSearch(Search(QStringLiteral("5")));
    QModelIndex const index = m_proxy.indexOf("00057");
    ASSERT_TRUE(index.isValid());
    EXPECT_EQ(index.data().toString(), QStringLiteral("00057"));
    EXPECT_FALSE(m_proxy.indexOf("00046").isValid());
}

} // namespace
