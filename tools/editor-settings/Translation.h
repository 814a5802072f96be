// SPDX-License-Identifier: MIT
#pragma once

#include <QCoreApplication>

#include <string>
#include <vector>

class QTranslator;

/// Texts for people, in UTF-8: in English as they stand in the source, until there is a translation.
class Text {
    Q_DECLARE_TR_FUNCTIONS(Text) // tells lupdate the context; texts that hold bytes of any kind do not go through QString
public:
    /// `english` with `words`, whose bytes stay as they are, in the places of %1 to %9.
    template <typename... Words>
    static std::string of(char const* english, Words const&... words)
    {
        return filled(translated(english, nullptr, -1), {std::string(words)...});
    }

    /// Likewise, with `count` in the place of %n. `one` is the English text where that is 1.
    template <typename... Words>
    static std::string ofCount(char const* several, char const* one, std::size_t count, Words const&... words)
    {
        return filled(counted(several, one, count), {std::string(words)...});
    }

    /// Marks a text that is given to `of` later, for those who translate.
    static constexpr char const* mark(char const* english) { return english; }

    /// Takes texts from `translator`, which must stay; null for none.
    static void useTranslator(QTranslator const* translator);

private:
    static std::string translated(char const* english, char const* remark, int count);
    static std::string counted(char const* several, char const* one, std::size_t count);
    static std::string filled(std::string const& text, std::vector<std::string> const& words);
};
