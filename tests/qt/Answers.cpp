// SPDX-License-Identifier: MIT
#include <Answers.h>

#include <QtGlobal>

namespace {

std::string homeFolder;
std::set<std::string> messages; // of Qt, cut where what follows differs between versions

std::string escaped(char kind, unsigned code, int digits)
{
    std::string result = {'\\', kind};
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        result += "0123456789abcdef"[(code >> shift) & 0xF];
    return result;
}

bool isPlain(unsigned code) { return code >= ' ' && code <= '~' && code != '\\'; }

void keepMessage(QtMsgType, QMessageLogContext const&, QString const& message)
{
    // Qt 6 alone warns of a placeholder with digits beyond ASCII, and fills it as Qt 5 does.
    if (!message.startsWith(QLatin1String("QString::arg(): the replacement")))
        messages.insert(message.left(40).toStdString());
}

} // namespace

void Answers::start(std::string const& home)
{
    homeFolder = home;
    qInstallMessageHandler(&keepMessage);
}

std::string Answers::shown(std::string const& bytes)
{
    std::string result = "\"";
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        auto const byte = static_cast<unsigned char>(bytes[at]);
        if (byte == '/' && bytes.compare(at, homeFolder.size(), homeFolder) == 0) {
            result += "HOME";
            at += homeFolder.size() - 1;
        } else if (isPlain(byte))
            result += bytes[at];
        else
            result += escaped('x', byte, 2);
    }
    return result + '"';
}

std::string Answers::shown(QString const& text)
{
    if (text.isNull())
        return "null";
    QString rest = text;
    std::string result = "u\"";
    for (QChar const character : rest.replace(QString::fromStdString(homeFolder), QLatin1String("HOME")))
        result += isPlain(character.unicode()) ? std::string(1, character.toLatin1()) : escaped('u', character.unicode(), 4);
    return result + '"';
}

std::string Answers::shown(QByteArray const& bytes) { return (bytes.isNull() ? "null bytes" : "bytes ") + shown(bytes.toStdString()); }
std::string Answers::shown(int number) { return std::to_string(number); }
std::string Answers::shown(bool flag) { return flag ? "true" : "false"; }
std::string Answers::shown(boost::rational<long long> const& fraction)
{
    return std::to_string(fraction.numerator()) + '/' + std::to_string(fraction.denominator());
}

std::string Answers::shown(QStringList const& list)
{
    std::string result = "list";
    for (QString const& element : list)
        result += ' ' + shown(element);
    return result;
}

QString Answers::withoutTime(QString path)
{
    auto const number = path.lastIndexOf(QLatin1String("/Rec-")) + 5;
    auto const time = path.indexOf(QLatin1Char('-'), number + 1) + 1;
    for (auto at = time; at < time + 19 && at < path.size(); ++at)
        if (path.at(at).isDigit())
            path[at] = QChar(static_cast<ushort>(path.at(at).unicode() - path.at(at).digitValue()));
    return path;
}

std::string Answers::lines(std::string const& question, std::string const& shownAnswer)
{
    std::string result = question + " = " + shownAnswer + '\n';
    for (std::string const& message : messages)
        result += "  Qt: " + message + '\n';
    messages.clear();
    return result;
}
