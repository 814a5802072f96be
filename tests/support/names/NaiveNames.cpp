// SPDX-License-Identifier: MIT
#include <support/names/NaiveNames.h>

#include <QFile>
#include <QRegExp>
#include <QRegularExpression>
#include <QVector>

#include <algorithm>
#include <cstring>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace oracle {

bool isUtf8(std::string const& bytes)
{
    for (std::size_t at = 0; at < bytes.size();) {
        auto const byte = [&](std::size_t offset) {
            return at + offset < bytes.size() ? static_cast<unsigned char>(bytes[at + offset]) : 0U;
        };
        std::size_t const length = byte(0) < 0x80   ? 1
                                   : byte(0) < 0xC2 ? 0
                                   : byte(0) < 0xE0 ? 2
                                   : byte(0) < 0xF0 ? 3
                                   : byte(0) < 0xF5 ? 4
                                                    : 0;
        if (length == 0)
            return false;
        for (std::size_t next = 1; next < length; ++next)
            if (byte(next) < 0x80 || byte(next) > 0xBF)
                return false;
        bool const isOverlong = (byte(0) == 0xE0 && byte(1) < 0xA0) || (byte(0) == 0xF0 && byte(1) < 0x90);
        bool const isSurrogate = byte(0) == 0xED && byte(1) > 0x9F;
        bool const isBeyondUnicode = byte(0) == 0xF4 && byte(1) > 0x8F;
        if (isOverlong || isSurrogate || isBeyondUnicode)
            return false;
        at += length;
    }
    return true;
}

bool isKnown(uint character)
{
    static QVector<uint> const beyondLatin = {0x130,  0x17F,  0x301,   0x307,   0x5D0,   0x212A,
                                              0xFEFF, 0xFFFD, 0x10400, 0x10428, 0x1D7CF, 0x1F3AC};
    return character < 0x100 || beyondLatin.contains(character) || (character >= 0x660 && character <= 0x669) ||
           (character >= 0xFF10 && character <= 0xFF19);
}

namespace {

bool isText(std::string const& bytes, std::string const& codec)
{
    if (codec == "ISO-8859-1")
        return true;
    if (codec == "US-ASCII")
        return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    return isUtf8(bytes);
}

// Files, and links to whatever exists and is no folder.
bool isListed(std::string const& path)
{
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0)
        return false;
    if (S_ISREG(status.st_mode))
        return true;
    return S_ISLNK(status.st_mode) && ::stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

} // namespace

QStringList listing(std::string const& folder, std::string const& codec)
{
    QStringList names;
    DIR* const directory = ::opendir(folder.c_str());
    if (!directory)
        return names;
    while (dirent const* const entry = ::readdir(directory)) {
        std::string const name = entry->d_name;
        if (name[0] != '.' && isText(name, codec) && isListed(folder + '/' + name))
            names.append(QFile::decodeName(name.c_str()));
    }
    ::closedir(directory);
    return names;
}

namespace {

// One for all characters that are the same letter in another case; for those that are known.
uint folded(uint character)
{
    bool const isUpperAscii = character >= 'A' && character <= 'Z';
    bool const isUpperLatin = character >= 0xC0 && character <= 0xDE && character != 0xD7;
    switch (character) {
    case 0x17F:
        return 's';
    case 0x212A:
        return 'k';
    case 0x10400:
        return 0x10428;
    default:
        return isUpperAscii || isUpperLatin ? character + 0x20 : character;
    }
}

// Whether all of `name` is what `filter` says, where '*' stands for any text.
bool matches(QVector<uint> const& filter, QVector<uint> const& name, int atFilter = 0, int atName = 0)
{
    if (atFilter == filter.size())
        return atName == name.size();
    if (filter[atFilter] != '*')
        return atName < name.size() && folded(filter[atFilter]) == folded(name[atName]) && matches(filter, name, atFilter + 1, atName + 1);
    for (int rest = atName; rest <= name.size(); ++rest)
        if (matches(filter, name, atFilter + 1, rest))
            return true;
    return false;
}

bool holdsOneOf(QString const& text, char const* characters)
{
    return std::any_of(text.begin(), text.end(), [&](QChar character) {
        return character.unicode() < 0x80 && character.unicode() != 0 && std::strchr(characters, character.unicode());
    });
}

// The names that pass the filter. Where `ofTheCaller`, its part that is not fixed, is at work in it, Qt tells what it means.
QStringList filtered(QStringList const& names, QString const& filter, QString const& ofTheCaller)
{
    QRegularExpression const expression(QRegularExpression::wildcardToRegularExpression(filter), QRegularExpression::CaseInsensitiveOption);
    bool const isLiteral = !holdsOneOf(ofTheCaller, "*?[]");
    QStringList result;
    for (QString const& name : names)
        if (isLiteral ? matches(filter.toUcs4(), name.toUcs4()) : expression.isValid() && expression.match(name).hasMatch())
            result.append(name);
    return result;
}

// The decimal digits that are known.
bool isDigit(QChar character)
{
    ushort const code = character.unicode();
    return (code >= '0' && code <= '9') || (code >= 0x660 && code <= 0x669) || (code >= 0xFF10 && code <= 0xFF19);
}

int valueOf(QString const& digits)
{
    long long value = 0;
    for (QChar const digit : digits) {
        if (digit.unicode() < '0' || digit.unicode() > '9')
            return 0;
        value = value * 10 + (digit.unicode() - '0');
        if (value > 2147483647)
            return 0;
    }
    return static_cast<int>(value);
}

// The number in the first place in `name` where it stands between `before` and `after`.
int numberBetween(QString const& before, QString const& after, QString const& name)
{
    for (int start = 0; start <= name.size(); ++start) {
        if (name.mid(start, before.size()) != before)
            continue;
        int const first = start + static_cast<int>(before.size());
        int end = first;
        while (end < name.size() && isDigit(name[end]))
            ++end;
        if (end > first && name.mid(end, after.size()) == after)
            return valueOf(name.mid(first, end - first));
    }
    return 0;
}

int numberByPattern(QString const& pattern, QString const& name)
{
    QRegExp expression(pattern);
    return expression.indexIn(name) < 0 ? 0 : valueOf(expression.cap(1));
}

QString next(int highest) { return highest == 2147483647 ? QStringLiteral("-2147483648") : QString::number(highest + 1); }

template <typename NumberOf>
QString nextAfter(QStringList const& names, NumberOf numberOf)
{
    int highest = 0;
    for (QString const& name : names)
        if (int const number = numberOf(name); number > highest)
            highest = number;
    return next(highest);
}

// A "%1" or "%L12" in a text: where it begins, how long it is, what number it bears.
struct Placeholder {
    int begin;
    int length;
    int number;
};

std::vector<Placeholder> placeholders(QString const& text)
{
    auto const digitAt = [&](int at) { return at < text.size() && isDigit(text[at]) ? text[at].unicode() % 16 : -1; };
    // '0' is 0x30, and the other zeros are 0x660 and 0xFF10.
    std::vector<Placeholder> result;
    for (int at = 0; at < text.size(); ++at) {
        if (text[at] != QLatin1Char('%'))
            continue;
        int end = at + 1;
        if (end < text.size() && text[end] == QLatin1Char('L'))
            ++end;
        if (digitAt(end) < 0)
            continue;
        int number = digitAt(end++);
        if (digitAt(end) >= 0)
            number = number * 10 + digitAt(end++);
        result.push_back({at, end - at, number});
        at = end - 1;
    }
    return result;
}

} // namespace

QString filled(QString const& text, QString const& value)
{
    int lowest = 100;
    for (Placeholder const& placeholder : placeholders(text))
        lowest = std::min(lowest, placeholder.number);
    QString result;
    int done = 0;
    for (Placeholder const& placeholder : placeholders(text))
        if (placeholder.number == lowest) {
            result += text.mid(done, placeholder.begin - done) + value;
            done = placeholder.begin + placeholder.length;
        }
    return result + text.mid(done);
}

namespace {

char const* const patternCharacters = "$()*+.?[\\]^{|}";

QString escaped(QString const& text)
{
    QString result;
    for (QChar const character : text)
        result += (holdsOneOf(character, patternCharacters) ? QStringLiteral("\\") : QString()) + character;
    return result;
}

QString fileName(QString const& path) { return path.mid(path.lastIndexOf(QLatin1Char('/')) + 1); }

QString upToLastDot(QString const& name)
{
    auto const dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}

QString upToFirstDot(QString const& name)
{
    auto const dot = name.indexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}

QString lowerCase(QString const& text)
{
    std::u32string result;
    for (uint const character : text.toUcs4()) {
        if (character == 0x130)
            result += U"i\u0307";
        else
            result += character == 0x17F ? character : folded(character); // a small letter with another one's fold
    }
    return QString::fromStdU32String(result);
}

} // namespace

QString recording(QStringList const& names, QString const& format)
{
    QString const number = nextAfter(filtered(names, QStringLiteral("Rec-*-*-*.*"), QString()),
                                     [](QString const& name) { return numberBetween(QStringLiteral("Rec-"), QStringLiteral("-"), name); });
    return QStringLiteral("Rec-") + number + QStringLiteral("-TIME.") + lowerCase(format);
}

QString freeze(QStringList const& names, QString const& source, QString const& format)
{
    QString const stem = upToLastDot(fileName(source));
    QStringList own;
    for (QString const& name : filtered(names, QStringLiteral("*.") + format, format))
        if (upToLastDot(name).left(stem.size()) == stem)
            own.append(name);
    // A placeholder of the stem takes the format, so the parts of the pattern are found once all is filled in.
    QString const number = [&] {
        if (holdsOneOf(format, patternCharacters)) {
            QString const pattern = filled(filled(QStringLiteral("%1 \\((\\d+)\\)\\.%2"), escaped(stem)), format);
            return nextAfter(own, [&](QString const& name) { return numberByPattern(pattern, name); });
        }
        QString const digits = QChar(0xE000);
        QStringList const around = filled(filled(QStringLiteral("%1 (") + digits + QStringLiteral(").%2"), stem), format).split(digits);
        return nextAfter(own, [&](QString const& name) { return numberBetween(around[0], around[1], name); });
    }();
    return filled(filled(filled(QStringLiteral("%1 (%2).%3"), stem), number), format);
}

QString stabilized(QStringList const& names, QString const& source, QString const& format)
{
    QString const stem = upToFirstDot(fileName(source));
    bool const isLiteral = !holdsOneOf(stem, patternCharacters);
    QString const pattern = stem + QStringLiteral("-(\\d+).*");
    QString const number = nextAfter(filtered(names, stem + QStringLiteral("-*.*"), stem), [&](QString const& name) {
        return isLiteral ? numberBetween(stem + QLatin1Char('-'), QString(), name) : numberByPattern(pattern, name);
    });
    return stem + QLatin1Char('-') + number + QLatin1Char('.') + format;
}

} // namespace oracle
