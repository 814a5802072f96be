// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Inspector {

struct Item;

/// What is typed into a search field: words, all of which a line must hold, in any order and case. A word such as "@set", or the
/// beginning of one, stands for a mark of the line.
class Search {
public:
    explicit Search(QString const& typed = {});

    /// Whether the line with that `searchText` is found.
    bool accepts(QString const& searchText) const;
    /// Whether the line is found.
    bool accepts(Item const& line) const;

    /// The search text of a line with those texts and marks. The texts hold no control characters.
    static QString textOf(QStringList const& texts, QStringList const& marks);
    /// All marks: "@set", "@unset", "@default", "@other-kind", "@unreadable", "@undeclared", "@product", "@common", "@memory",
    /// "@roaming", "@local", "@personal", "@transient", "@changed", "@trouble" and "@locked". "@set" stands for all that is stored.
    static QStringList const& marks();
    /// A bit for each of `marks`, by its place in `marks()`.
    static unsigned bitsOf(QStringList const& marks);

private:
    QStringList m_words;
    QStringList m_texts;           // the words that begin no mark
    std::vector<unsigned> m_marks; // of each other word, the marks that it begins
};

} // namespace Inspector
