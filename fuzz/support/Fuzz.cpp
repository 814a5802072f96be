// SPDX-License-Identifier: MIT
#include <support/Fuzz.h>

#include <QLocale>
#include <QtGlobal>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace Fuzz {

namespace {

std::string printable(std::string const& bytes)
{
    std::ostringstream text;
    for (char const byte : bytes) {
        auto const code = static_cast<unsigned char>(byte);
        if (code >= 0x20 && code < 0x7F && byte != '\\')
            text << byte;
        else
            text << "\\x" << std::hex << (code < 16 ? "0" : "") << static_cast<unsigned>(code);
    }
    return text.str();
}

std::string terminated(QStringList const& elements)
{
    QString text;
    for (QString const& element : elements)
        text += element + QLatin1Char('\n');
    return text.toStdString();
}

void onWarning(QtMsgType, QMessageLogContext const&, QString const& message)
{
    // Qt 6 adds the pattern.
    if (!message.startsWith(QLatin1String("QRegularExpressionPrivate::doMatch(): called on an invalid QRegularExpression object")))
        finding("Qt warns", {message.toStdString()});
}

} // namespace

void finding(std::string const& what, std::vector<std::string> const& about)
{
    std::fprintf(stderr, "FINDING: %s\n", what.c_str());
    for (std::string const& text : about)
        std::fprintf(stderr, "  \"%s\"\n", printable(text).c_str());
    std::abort();
}

void expect(bool holds, std::string const& what)
{
    if (!holds)
        finding(what);
}

void expectEqual(std::string const& what, std::string const& answer, std::string const& expected)
{
    if (answer != expected)
        finding(what + ": first the answer, then what was expected", {answer, expected});
}

void expectEqual(std::string const& what, QString const& answer, QString const& expected)
{
    if (answer == expected)
        return;
    expectEqual(what, answer.toStdString(), expected.toStdString());
    finding(what + ": the answer differs in half a character", {expected.toStdString()});
}

void expectEqual(std::string const& what, QStringList const& answer, QStringList const& expected)
{
    if (answer != expected)
        finding(what + ": first the answer, then what was expected, with a line break after each element",
                {terminated(answer), terminated(expected)});
}

std::vector<std::string> split(std::string const& text, char separator)
{
    std::vector<std::string> parts(1);
    for (char const byte : text) {
        if (byte == separator)
            parts.emplace_back();
        else
            parts.back() += byte;
    }
    return parts;
}

namespace {

std::string unescaped(std::string const& line)
{
    std::string const letters = "nt0\\";
    std::string const meanings("\n\t\0\\", 4);
    std::string result;
    for (std::size_t at = 0; at < line.size(); ++at) {
        std::size_t const escape = line[at] == '\\' && at + 1 < line.size() ? letters.find(line[at + 1]) : std::string::npos;
        result += escape == std::string::npos ? line[at] : meanings[escape];
        at += escape == std::string::npos ? 0 : 1;
    }
    return result;
}

} // namespace

std::vector<std::string> lines(std::uint8_t const* data, std::size_t size, std::size_t count)
{
    std::vector<std::string> result;
    for (std::string const& line : split(std::string(data, data + size), '\n'))
        result.push_back(unescaped(line));
    if (result.size() > count && result.back().empty())
        result.pop_back(); // a text file ends with a line break
    if (result.size() < count)
        result.resize(count);
    return result;
}

QString utf8(std::string const& text) { return QString::fromUtf8(text.data(), static_cast<int>(text.size())); }

long long number(std::string const& text) { return std::strtoll(text.c_str(), nullptr, 10); }

std::string fileContent(std::filesystem::path const& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(std::filesystem::path const& file, void const* data, std::size_t size)
{
    int const descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (descriptor < 0 || ::write(descriptor, data, size) != static_cast<ssize_t>(size) || ::close(descriptor) != 0)
        throw std::system_error(errno, std::generic_category(), file.string());
}

BoundLibrary::BoundLibrary()
{
    qInstallMessageHandler(&onWarning);
    // Placeholders such as "%L1" write numbers as the locale does.
    QLocale::setDefault(QLocale::c());
}

} // namespace Fuzz
