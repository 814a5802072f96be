// SPDX-License-Identifier: MIT
#include <Inspector/Search.h>

#include <algorithm>

namespace Inspector {

namespace {

// Between texts, and before each mark: no text holds one, so that no value passes for a mark.
constexpr QLatin1Char betweenTexts('\n');
constexpr QLatin1Char beforeMark('\t');

bool beginsAMark(QString const& word)
{
    auto const begins = [&](QString const& mark) { return mark.startsWith(word); };
    return word.startsWith(QLatin1Char('@')) && std::any_of(Search::marks().begin(), Search::marks().end(), begins);
}

} // namespace

QStringList const& Search::marks()
{
    static QStringList const all =
        QStringLiteral("@set @unset @default @other-kind @unreadable @undeclared @product @common @memory @roaming @local @personal "
                       "@transient @changed @trouble @locked")
            .split(QLatin1Char(' '));
    return all;
}

Search::Search(QString const& typed) : m_words(typed.toLower().simplified().split(QLatin1Char(' ')))
{
    for (QString& word : m_words)
        if (beginsAMark(word))
            word.prepend(beforeMark);
}

bool Search::accepts(QString const& searchText) const
{
    return std::all_of(m_words.begin(), m_words.end(), [&](QString const& word) { return searchText.contains(word); });
}

QString Search::textOf(QStringList const& texts, QStringList const& marks)
{
    QString text = texts.join(betweenTexts).toLower();
    for (QString const& mark : marks)
        text += beforeMark + mark;
    return text;
}

} // namespace Inspector
