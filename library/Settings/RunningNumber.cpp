// SPDX-License-Identifier: MIT
#include <Settings/RunningNumber.h>

#include <QFile>
#include <QTextCodec>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

// Other C libraries have no getdents64, or have it under other names.
#if defined(Q_OS_LINUX) && defined(__GLIBC__)
#include <climits>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// --- Texts -------------------------------------------------------------------------------------------------------------

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

std::optional<std::string> ascii(QString const& text)
{
    bool const isPlain = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() != 0 && c.unicode() < 0x80; });
    return isPlain ? std::optional(text.toStdString()) : std::nullopt;
}

// Not std::tolower, which follows the locale.
char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool startsWith(std::string_view text, std::string_view start) { return text.substr(0, start.size()) == start; }

// --- Filters and patterns ----------------------------------------------------------------------------------------------

std::optional<std::string> plainFilter(QString const& filter)
{
    // Where there are many, Qt gives up before it has tried all their meanings.
    constexpr int mostStars = 4;
    std::optional<std::string> text = ascii(filter);
    bool const isPlain =
        text && text->find_first_of("?[]\\") == std::string::npos && std::count(text->begin(), text->end(), '*') <= mostStars;
    return isPlain ? text : std::nullopt;
}

bool passes(std::string_view name, std::string_view filter)
{
    std::size_t atName = 0;
    std::size_t atFilter = 0;
    std::size_t star = std::string_view::npos; // the last one met,
    std::size_t afterStar = 0;                 // and up to where in the name it reaches
    while (atName < name.size()) {
        if (atFilter < filter.size() && filter[atFilter] == '*') {
            star = atFilter++;
            afterStar = atName;
        } else if (atFilter < filter.size() && lower(filter[atFilter]) == lower(name[atName])) {
            ++atFilter;
            ++atName;
        } else if (star != std::string_view::npos) {
            atFilter = star + 1;
            atName = ++afterStar;
        } else {
            return false;
        }
    }
    return filter.find_first_not_of('*', atFilter) == std::string_view::npos;
}

// The one text that a part of a pattern matches; nothing where it may match others.
std::optional<std::string> literal(std::string_view pattern)
{
    std::string text;
    for (std::size_t at = 0; at < pattern.size(); ++at) {
        bool const isEscaped = pattern[at] == '\\';
        if (isEscaped && ++at == pattern.size())
            return std::nullopt;
        if (isEscaped != (std::strchr("$()*+.?[\\]^{|}", pattern[at]) != nullptr))
            return std::nullopt;
        text += pattern[at];
    }
    return text;
}

// A number between two texts.
struct Numbered {
    std::string before;
    std::string after; // begins with no digit: the number is all digits that stand together

    // In the first place, from `found` on, where the name has one; 0 for one that does not fit.
    int numberIn(std::string_view name, std::size_t found) const
    {
        int number = 0;
        for (; found != std::string_view::npos; found = name.find(before, found + 1)) {
            char const* const first = name.data() + found + before.size();
            char const* const end = std::find_if_not(first, name.data() + name.size(), isDigit);
            if (end == first || !startsWith(name.substr(static_cast<std::size_t>(end - name.data())), after))
                continue;
            std::from_chars(first, end, number);
            break;
        }
        return number;
    }
};

std::optional<Numbered> plainPattern(QString const& pattern)
{
    std::string_view const group = "(\\d+)";
    std::string const text = ascii(pattern).value_or(std::string());
    std::size_t const at = text.find(group);
    if (at == std::string::npos)
        return std::nullopt;
    std::string after = text.substr(at + group.size());
    if (after.size() >= 2 && after.compare(after.size() - 2, 2, ".*") == 0)
        after.resize(after.size() - 2);
    std::optional<std::string> const plainBefore = literal(text.substr(0, at));
    std::optional<std::string> const plainAfter = literal(after);
    if (!plainBefore || !plainAfter || (!plainAfter->empty() && isDigit(plainAfter->front())))
        return std::nullopt;
    return Numbered{*plainBefore, *plainAfter};
}

// --- Folders -----------------------------------------------------------------------------------------------------------

// With the NUL at its end. Qt, which takes whole paths, fails with longer ones, and not everywhere alike.
constexpr std::size_t longestPath = PATH_MAX;
constexpr std::size_t longestName = NAME_MAX + 2; // with the separator before and the NUL behind it

// The path as the kernel takes it. Qt knows more of others: resources, search paths, and other ways to read a name.
std::optional<std::string> plainFolder(QString const& folder)
{
    constexpr int utf8 = 106; // in the registry of character sets
    bool const isPlain = folder.startsWith(QLatin1Char('/')) && !folder.contains(QChar::Null);
    QTextCodec const* const codec = QTextCodec::codecForLocale(); // none at the end of the process
    if (!isPlain || !codec || codec->mibEnum() != utf8)
        return std::nullopt;
    std::string path = QFile::encodeName(folder).toStdString();
    return path.size() + longestName <= longestPath ? std::optional(std::move(path)) : std::nullopt;
}

// What the kernel lists of a folder; nothing of one that cannot be read.
class Folder {
public:
    explicit Folder(char const* path) : m_file(::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}
    ~Folder()
    {
        if (m_file >= 0)
            ::close(m_file);
    }
    Folder(Folder const&) = delete;
    Folder& operator=(Folder const&) = delete;

    // The next entry, valid until the one after it is asked for; null at the end.
    dirent64 const* next()
    {
        if (m_next == m_end) {
            m_next = m_entries.get();
            m_end = m_next + std::max<ssize_t>(::getdents64(m_file, m_next, entriesSize), 0);
        }
        auto const* const entry = reinterpret_cast<dirent64 const*>(m_next);
        if (m_next == m_end)
            return nullptr;
        m_next += entry->d_reclen;
        return entry;
    }

    // As `S_IFMT` tells it, and of a link itself; 0 for an entry that has gone. Not every file system lists it.
    mode_t kind(dirent64 const& entry) const
    {
        return entry.d_type == DT_UNKNOWN ? ask(entry, AT_SYMLINK_NOFOLLOW).value_or(0) : static_cast<mode_t>(DTTOIF(entry.d_type));
    }

    // Whether QDir::Files takes it: also a link to a pipe, although no pipe.
    bool listsAsFile(dirent64 const& entry) const
    {
        mode_t const own = kind(entry);
        if (!S_ISLNK(own))
            return S_ISREG(own);
        std::optional<mode_t> const target = ask(entry, 0);
        return target && !S_ISDIR(*target);
    }

private:
    std::optional<mode_t> ask(dirent64 const& entry, int flags) const
    {
        struct stat64 status = {};
        return ::fstatat64(m_file, entry.d_name, &status, flags) == 0 ? std::optional<mode_t>(status.st_mode & S_IFMT) : std::nullopt;
    }

    static constexpr std::size_t entriesSize = std::size_t{32} * 1024;
    std::unique_ptr<char[]> const m_entries{new char[entriesSize]};
    char* m_next = m_entries.get();
    char* m_end = m_next;
    int const m_file;
};

bool isHidden(std::string_view name) { return name.front() == '.'; }

std::string_view completeBaseName(std::string_view name) { return name.substr(0, name.rfind('.')); }

} // namespace

std::optional<int> RunningNumber::highest(QString const& folder, QString const& filter, QString const& pattern, QString const& stem)
{
    std::optional<std::string> const path = plainFolder(folder);
    std::optional<std::string> const whole = plainFilter(filter);
    std::optional<Numbered> const numbered = plainPattern(pattern);
    std::optional<std::string> const start = ascii(stem);
    if (!path || !whole || !numbered || !start)
        return std::nullopt;

    Folder files(path->c_str());
    int highest = 0;
    while (dirent64 const* const entry = files.next()) {
        std::string_view const name = entry->d_name;
        std::size_t const found = name.find(numbered->before);
        if (found == std::string_view::npos)
            continue;
        // Other scripts have digits too, and letters that are an ASCII one in another case; and what stands before a colon
        // may be the name of a search path, which Qt resolves to find the base name.
        if (!isAscii(name) || (!start->empty() && name.find(':') != std::string_view::npos))
            return std::nullopt;
        // The cheapest first: most names count for nothing after a higher one.
        int const number = numbered->numberIn(name, found);
        if (number > highest && !isHidden(name) && passes(name, *whole) && startsWith(completeBaseName(name), *start) &&
            files.listsAsFile(*entry))
            highest = number;
    }
    return highest;
}

#else

// Elsewhere only Qt knows how names are written and what differs by case.
std::optional<int> RunningNumber::highest(QString const&, QString const&, QString const&, QString const&) { return std::nullopt; }

#endif
