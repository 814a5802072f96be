// SPDX-License-Identifier: MIT
#include <Inspection/JsonText.h>

#include <QByteArray>

std::string jsonText(nlohmann::ordered_json const& value, int indent)
{
    std::string const text = value.dump(indent, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
    // The control characters above ASCII's stand as they are, and can only stand within texts.
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        bool const isAboveAscii = text[at] == '\xC2' && static_cast<unsigned char>(text[at + 1]) < 0xA0;
        if (isAboveAscii || text[at] == '\x7f')
            result += "\\u00" + QByteArray(1, text[isAboveAscii ? ++at : at]).toHex().toStdString();
        else
            result += text[at];
    }
    return result;
}
