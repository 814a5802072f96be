// SPDX-License-Identifier: MIT
#include <Inspector/Search.h>

#include <Inspector/Snapshot.h>

#include <algorithm>

namespace Inspector {

namespace {

// Between texts, and before each mark: no text holds one, so that no value passes for a mark.
constexpr QLatin1Char betweenTexts('\n');
constexpr QLatin1Char beforeMark('\t');

QStringList marksThatBeginWith(QString const& word)
{
    QStringList result;
    for (QString const& mark : Search::marks())
        if (word.startsWith(QLatin1Char('@')) && mark.startsWith(word))
            result << mark;
    return result;
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
    for (QString& word : m_words) {
        QStringList const marks = marksThatBeginWith(word);
        if (!marks.isEmpty()) {
            m_marks.push_back(bitsOf(marks));
            word.prepend(beforeMark);
        } else if (!word.isEmpty()) {
            m_texts.push_back(word);
        }
    }
}

bool Search::accepts(QString const& searchText) const
{
    return std::all_of(m_words.begin(), m_words.end(), [&](QString const& word) { return searchText.contains(word); });
}

// As `accepts` of its text, which is made only if a word is searched for in it.
bool Search::accepts(Item const& line) const
{
    auto const isMarked = [&](unsigned any) { return (line.marks & any) != 0; };
    if (!std::all_of(m_marks.begin(), m_marks.end(), isMarked))
        return false;
    if (m_texts.isEmpty())
        return true;
    QString const text = line.searchedText();
    return std::all_of(m_texts.begin(), m_texts.end(), [&](QString const& word) { return text.contains(word); });
}

unsigned Search::bitsOf(QStringList const& marks)
{
    unsigned bits = 0;
    for (QString const& mark : marks)
        if (int const place = static_cast<int>(Search::marks().indexOf(mark)); place >= 0)
            bits |= 1U << place;
    return bits;
}

QString Search::textOf(QStringList const& texts, QStringList const& marks)
{
    QString text = texts.join(betweenTexts).toLower();
    for (QString const& mark : marks)
        text += beforeMark + mark;
    return text;
}

} // namespace Inspector
