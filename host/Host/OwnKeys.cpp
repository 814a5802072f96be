// SPDX-License-Identifier: MIT
#include <Host/OwnKeys.h>

#include <QString>

#include <algorithm>
#include <charconv>
#include <limits>
#include <set>

namespace Host {

namespace {

constexpr std::size_t mostDeclarations = 1000;

// In quotes, on one line, of modest length.
std::string shown(std::string const& text)
{
    QString const beginning = QString::fromStdString(text).left(100);
    QString line;
    for (QChar const character : beginning)
        line += character.unicode() < 0x20 ? QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0')) : QString(character);
    return '"' + line.toStdString() + '"';
}

std::string name(OwnKey const& declared) { return (declared.isPrefix ? "the prefix " : "the key ") + shown(declared.key); }

[[noreturn]] void refuse(OwnKey const& declared, std::string const& what) { throw OwnKeyError(declared, what); }

bool isRational(OwnKey const& declared) { return std::holds_alternative<OwnKey::Rational>(declared.defaultValue); }

bool beginsWith(std::string const& text, std::string const& begin) { return text.compare(0, begin.size(), begin) == 0; }

// The half that a key with such an end is; the whole for any other end.
OwnKeys::Part partOf(std::string const& key)
{
    std::string const end = key.size() < 2 ? key : key.substr(key.size() - 2);
    return end == "_N" ? OwnKeys::Part::numerator : end == "_D" ? OwnKeys::Part::denominator : OwnKeys::Part::whole;
}

std::string withoutHalf(std::string const& key) { return partOf(key) == OwnKeys::Part::whole ? key : key.substr(0, key.size() - 2); }

bool isOnOneLine(std::string const& text)
{
    return !text.empty() && std::none_of(text.begin(), text.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x20; });
}

// --- Defaults ---

bool isAccepted(OwnKey const& declared, std::string const& word)
{
    return declared.accepts.empty() || std::find(declared.accepts.begin(), declared.accepts.end(), word) != declared.accepts.end();
}

// What is wrong with the default; empty for a good one.
struct TroubleWithDefault {
    OwnKey const& declared;

    std::string operator()(bool) const { return {}; }
    std::string operator()(int value) const
    {
        bool const isInside = !declared.range || (value >= declared.range->first && value <= declared.range->second);
        return isInside ? "" : "with the default " + std::to_string(value) + ", which is outside its range; give one inside";
    }
    std::string operator()(std::string const& value) const
    {
        if (declared.isFolder && !value.empty() && value.front() != '/')
            return "with the default " + shown(value) + ", which is no absolute path; give one, or none";
        return isAccepted(declared, value) ? ""
                                           : "with the default " + shown(value) + ", which it does not accept; give one that it accepts";
    }
    std::string operator()(QByteArray const& value) const
    {
        return value.isEmpty() ? "" : "with a default, which a read of bytes ignores; leave it out";
    }
    std::string operator()(QStringList const& value) const
    {
        for (QString const& element : value) {
            if (element.isEmpty())
                return "with an empty element in its default, which a list loses; leave it out";
            if (!isAccepted(declared, element.toStdString()))
                return "with " + shown(element.toStdString()) + " in its default, which it does not accept; give what it accepts";
        }
        return {};
    }
    std::string operator()(OwnKey::Rational const& value) const
    {
        return isStorable(value) ? "" : "with a default beyond 32 bits, which a store cannot hold; give a smaller fraction";
    }
};

bool takesWords(OwnKey const& declared)
{
    return std::holds_alternative<QStringList>(declared.defaultValue) ||
           (std::holds_alternative<std::string>(declared.defaultValue) && !declared.isFolder);
}

void check(OwnKey const& declared)
{
    if (declared.key.empty())
        refuse(declared, "that is empty; give it a name");
    if (declared.key.find('\0') != std::string::npos)
        refuse(declared, "that holds a NUL; leave it out");
    if (!isOnOneLine(declared.purpose))
        refuse(declared, "without a purpose on one line; say what it is for");
    if (!declared.accepts.empty() && !takesWords(declared))
        refuse(declared, "with accepted words, which are for a string or a list; leave them out");
    if (declared.range && !std::holds_alternative<int>(declared.defaultValue))
        refuse(declared, "with a range, which is for an int; leave it out");
    if (declared.range && declared.range->first > declared.range->second)
        refuse(declared, "with a range that begins above its end; give the least number first");
    if (std::string const trouble = std::visit(TroubleWithDefault{declared}, declared.defaultValue); !trouble.empty())
        refuse(declared, trouble);
}

} // namespace

OwnKeyError::OwnKeyError(OwnKey const& declaration, std::string const& fault)
    : std::invalid_argument((declaration.where.empty() ? "the host" : declaration.where) + " declares " + name(declaration) + ' ' + fault)
{}

OwnKeys::OwnKeys(std::vector<OwnKey> declarations) : m_all(std::move(declarations))
{
    if (m_all.size() > mostDeclarations)
        refuse(m_all[mostDeclarations], "after 1000 others, which are all that it may; declare a prefix in place of many keys");
    for (OwnKey const& declared : m_all)
        check(declared);
    checkNames();
}

void OwnKeys::checkNames() const
{
    std::set<std::pair<bool, std::string>> names;
    for (OwnKey const& declared : m_all)
        if (!names.emplace(declared.isPrefix, declared.key).second)
            refuse(declared, "twice; keep one of the two");
    for (OwnKey const& declared : m_all) {
        if (declared.isPrefix || partOf(declared.key) == Part::whole)
            continue;
        std::optional<Match> const whole = find(withoutHalf(declared.key));
        if (whole && isRational(*whole->declaration))
            refuse(declared, "that is half of the rational with " + name(*whole->declaration) + "; choose another name");
    }
}

std::optional<OwnKeys::Match> OwnKeys::find(std::string const& key) const
{
    OwnKey const* longest = nullptr;
    for (OwnKey const& declared : m_all) {
        if (declared.isPrefix) {
            if (beginsWith(key, declared.key) && (!longest || longest->key.size() < declared.key.size()))
                longest = &declared;
        } else if (key == declared.key) {
            return Match{&declared, key, Part::whole};
        } else if (isRational(declared) && partOf(key) != Part::whole && withoutHalf(key) == declared.key) {
            return Match{&declared, declared.key, partOf(key)};
        }
    }
    if (!longest)
        return std::nullopt;
    bool const isHalf = isRational(*longest) && withoutHalf(key).size() >= longest->key.size();
    return isHalf ? Match{longest, withoutHalf(key), partOf(key)} : Match{longest, key, Part::whole};
}

std::optional<OwnKey::Rational> rationalIn(std::string const& text)
{
    // The least number has no opposite, which lowest terms may need, so it stands for no number.
    constexpr long long none = std::numeric_limits<long long>::min();
    auto const number = [](std::string const& digits) {
        long long value = none;
        auto const [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
        return error == std::errc() && end == digits.data() + digits.size() ? value : none;
    };
    std::size_t const bar = text.find('/');
    long long const numerator = number(text.substr(0, bar));
    long long const denominator = bar == std::string::npos ? 1 : number(text.substr(bar + 1));
    if (numerator == none || denominator == none || denominator == 0)
        return std::nullopt;
    return OwnKey::Rational(numerator, denominator);
}

bool isStorable(OwnKey::Rational const& value)
{
    auto const fits = [](long long half) { return half >= std::numeric_limits<int>::min() && half <= std::numeric_limits<int>::max(); };
    return fits(value.numerator()) && fits(value.denominator());
}

} // namespace Host
