// SPDX-License-Identifier: MIT
#include <Settings/RunningNumber.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRegExp>
#include <QRegularExpression>

#include <algorithm>
#include <charconv>
#include <climits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <dirent.h>
#include <fnmatch.h>

namespace {

using RunningNumber::Layout;

// Matches names as Qt does; the filter is compared as in QDirIterator.
class QtMatcher {
public:
    explicit QtMatcher(Layout const& layout)
        : m_filter(QRegularExpression::wildcardToRegularExpression(layout.filter), QRegularExpression::CaseInsensitiveOption),
          m_stem(layout.stem),
          m_number(layout.pattern.isEmpty() ? QRegExp::escape(layout.before) + QLatin1String("(\\d+)") + QRegExp::escape(layout.after)
                                            : layout.pattern)
    {}

    // 0 for a name that does not count.
    int numberIn(QString const& name)
    {
        bool const counts =
            m_filter.match(name).hasMatch() && QFileInfo(name).completeBaseName().startsWith(m_stem) && m_number.indexIn(name) >= 0;
        return counts ? m_number.cap(1).toInt() : 0;
    }

private:
    QRegularExpression m_filter;
    QString m_stem;
    QRegExp m_number;
};

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }
char lower(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; } // in every locale
bool startsWith(std::string_view bytes, std::string_view start) { return bytes.substr(0, start.size()) == start; }
bool endsWith(std::string_view all, std::string_view end) { return all.size() >= end.size() && all.substr(all.size() - end.size()) == end; }
std::string bytesOf(QString const& text) { return QFile::encodeName(text).toStdString(); }

// Decides plain names on their bytes, and lets Qt decide the others that could count for more.
class Pass {
public:
    Pass(QByteArray const& folder, Layout const& layout) : m_folder(folder), m_layout(layout)
    {
        std::transform(m_filter.begin(), m_filter.end(), m_filter.begin(), &lower);
    }

    int highest()
    {
        std::unique_ptr<DIR, int (*)(DIR*)> const folder(::opendir(m_folder.constData()), &::closedir);
        int highest = 0;
        while (dirent const* const entry = folder ? ::readdir(folder.get()) : nullptr) {
            std::string_view const name = entry->d_name;
            int const most = boundOf(name);
            if (most <= highest || name.front() == '.')
                continue;
            int const number = !isPlain(name) ? numberByQt(name) : passes(name) ? most : 0;
            if (number > highest && isFile(*entry))
                highest = number;
        }
        return highest;
    }

private:
    // The most that Qt finds. It finds 0 where digits of another script stand before the number or belong to it, and a
    // pattern may find a part of a number that does not fit.
    int boundOf(std::string_view name) const
    {
        int highest = 0;
        for (char const* at = name.begin(); (at = std::find_if(at, name.end(), &isDigit)) != name.end();) {
            int number = m_isText ? 0 : INT_MAX;
            std::string_view const before = name.substr(0, static_cast<std::size_t>(at - name.begin()));
            at = std::from_chars(at, name.end(), number).ptr;
            std::string_view const after = name.substr(static_cast<std::size_t>(at - name.begin()));
            if (!m_isText)
                highest = std::max(highest, number);
            else if (endsWith(before, m_before) && startsWith(after, m_after))
                return number;
        }
        return highest;
    }

    // ASCII but for the text before the number. What stands before a colon is a search path to QFileInfo.
    bool isPlain(std::string_view name) const
    {
        auto const isAscii = [](char byte) { return static_cast<unsigned char>(byte) < 0x80; };
        std::size_t const start = startsWith(name, m_before) ? m_before.size() : 0;
        return m_isText && std::all_of(name.begin() + start, name.end(), isAscii) && name.find(':') == std::string_view::npos;
    }

    // As QDir::Files: a regular file, or a link to anything that exists and is no folder.
    bool isFile(dirent const& entry) const
    {
        if (entry.d_type == DT_REG)
            return true;
        QFileInfo const file(QFile::decodeName(m_folder + '/' + entry.d_name));
        return file.isFile() || (file.isSymLink() && file.exists() && !file.isDir());
    }

    bool passes(std::string_view name)
    {
        m_lowered.assign(name);
        std::transform(m_lowered.begin(), m_lowered.end(), m_lowered.begin(), &lower);
        return startsWith(name.substr(0, name.rfind('.')), m_stem) && ::fnmatch(m_filter.c_str(), m_lowered.c_str(), FNM_NOESCAPE) == 0;
    }

    // 0 for bytes that are no text, which QDir leaves out. A byte order mark is kept behind a separator only.
    int numberByQt(std::string_view name)
    {
        QByteArray const path = QByteArray("/").append(name.data(), static_cast<int>(name.size()));
        QString const text = QFile::decodeName(path);
        if (QFile::encodeName(text) != path)
            return 0;
        if (!m_matcher)
            m_matcher.emplace(m_layout);
        return m_matcher->numberIn(text.mid(1));
    }

    QByteArray const m_folder;
    Layout const& m_layout;
    QString const m_texts = m_layout.filter + m_layout.before + m_layout.after + m_layout.stem;
    bool const m_isText = m_layout.pattern.isEmpty() && QFile::decodeName(QFile::encodeName(m_texts)) == m_texts;
    std::string m_filter = bytesOf(m_layout.filter);
    std::string const m_before = bytesOf(m_layout.before);
    std::string const m_after = bytesOf(m_layout.after);
    std::string const m_stem = bytesOf(m_layout.stem);
    std::string m_lowered;
    std::optional<QtMatcher> m_matcher;
};

// The path as the kernel takes it. Empty where Qt sees more in it than a path, and where names are not read as UTF-8.
QByteArray kernelPath(QString const& folder)
{
    bool const readsUtf8 = QFile::encodeName(QStringLiteral("\u00E9\u20AC")) == "\xC3\xA9\xE2\x82\xAC";
    bool const isPath = !folder.section(QLatin1Char('/'), 0, 0).contains(QLatin1Char(':'));
    return readsUtf8 && isPath ? QFile::encodeName(folder) : QByteArray();
}

} // namespace

int RunningNumber::highest(QString const& folder, Layout const& layout)
{
    // No name has a NUL, and a path that is cut there is another folder's.
    if (folder.contains(QChar::Null) || layout.filter.contains(QChar::Null))
        return 0;
    if (QByteArray const path = kernelPath(folder); !path.isEmpty())
        return Pass(path, layout).highest();
    int highest = 0;
    QtMatcher matcher(layout);
    for (QDirIterator files(QDir(folder).path(), {layout.filter}, QDir::Files); files.hasNext();)
        highest = std::max(highest, matcher.numberIn(QFileInfo(files.next()).fileName()));
    return highest;
}

QString RunningNumber::escaped(QString const& text) { return QRegExp::escape(text); }
