// SPDX-License-Identifier: MIT
#include "Text.h"

#include <QByteArray>
#include <QString>

std::string onOneLine(std::string const& text)
{
    std::string result;
    for (char const character : text) {
        if (character == '\\')
            result += "\\\\";
        else if (character == '\t')
            result += "\\t";
        else if (character == '\n')
            result += "\\n";
        else if (character == '\r')
            result += "\\r";
        else if (static_cast<unsigned char>(character) < 0x20 || character == 0x7f)
            result += "\\x" + QByteArray(1, character).toHex().toStdString();
        else
            result += character;
    }
    return result;
}

std::string quoted(std::string const& text) { return '\'' + onOneLine(text) + '\''; }

bool isUtf8(std::string const& text) { return QString::fromStdString(text).toStdString() == text; }

std::string joined(std::vector<std::string> const& words, std::string const& separator)
{
    std::string text;
    for (std::string const& word : words)
        text += (&word == &words.front() ? "" : separator) + word;
    return text;
}
