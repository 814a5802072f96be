// SPDX-License-Identifier: MIT
#include "Translation.h"

#include <QTranslator>

#include <algorithm>
#include <limits>

namespace {

QTranslator const* used = nullptr;

} // namespace

void Text::useTranslator(QTranslator const* translator) { used = translator; }

std::string Text::translated(char const* english, char const* remark, int count)
{
    QString const text = used ? used->translate("Text", english, remark, count) : QString();
    return text.isEmpty() ? english : text.toStdString();
}

std::string Text::counted(char const* several, char const* one, std::size_t count)
{
    int const forGrammar = static_cast<int>(std::min<std::size_t>(count, std::numeric_limits<int>::max()));
    std::string text = translated(several, one, forGrammar);
    if (count == 1 && text == several)
        text = one;
    std::size_t const place = text.find("%n");
    return place == std::string::npos ? text : text.replace(place, 2, std::to_string(count));
}

// In one pass: what is filled in may hold places of its own.
std::string Text::filled(std::string const& text, std::vector<std::string> const& words)
{
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::size_t const place = text[at] == '%' ? static_cast<unsigned char>(text[at + 1]) - std::size_t{'1'} : words.size();
        result += place < words.size() ? words[place] : std::string(1, text[at]);
        at += place < words.size() ? 1 : 0;
    }
    return result;
}
