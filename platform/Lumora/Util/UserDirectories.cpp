// SPDX-License-Identifier: MIT
#include <Lumora/Util/UserDirectories.h>

#include <QDir>
#include <QFile>
#include <QGlobalStatic>
#include <QTextCodec>

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <mutex>
#include <optional>
#include <string>
#include <tuple>

#include <fcntl.h>
#include <sys/stat.h>

namespace Lumora {
namespace Util {

namespace {

constexpr int utf8Mib = 106;

std::string variable(char const* name)
{
    char const* const value = std::getenv(name);
    return value ? value : "";
}

// Without a copy. For Qt an empty variable is as good as none.
bool hasValue(char const* name, std::string const& expected)
{
    char const* const value = std::getenv(name);
    return expected == (value ? value : "");
}

// What there is at a path. The identity is that of an earlier look where the same file with the same content is there, or
// still nothing.
class Look {
public:
    explicit Look(std::string const& path)
    {
        // Like open, and unlike stat, this asks a network file system's server.
        if (::statx(AT_FDCWD, path.c_str(), AT_STATX_FORCE_SYNC, STATX_BASIC_STATS, &m_found) != 0)
            m_error = errno;
    }

    bool findsNothing() const { return m_error == ENOENT || m_error == ENOTDIR; }
    bool findsFile() const { return m_error == 0 && S_ISREG(m_found.stx_mode); }

    // A stamp is as coarse as the kernel's tick, or as FAT's two seconds: only what was changed before may be told from
    // what is changed from now on.
    bool isOlderThan(std::time_t now) const
    {
        constexpr std::time_t settling = 3;
        return m_found.stx_mtime.tv_sec < now - settling && m_found.stx_ctime.tv_sec < now - settling;
    }

    auto identity() const
    {
        return std::tie(m_error, m_found.stx_dev_major, m_found.stx_dev_minor, m_found.stx_ino, m_found.stx_size, m_found.stx_mtime.tv_sec,
                        m_found.stx_mtime.tv_nsec, m_found.stx_ctime.tv_sec, m_found.stx_ctime.tv_nsec);
    }

private:
    int m_error = 0;
    struct statx m_found = {};
};

bool operator==(Look const& left, Look const& right) { return left.identity() == right.identity(); }

// The nearest folder above that is there. A file that came and went unseen changed it.
Look lookAbove(std::filesystem::path const& path)
{
    std::filesystem::path const above = path.parent_path();
    Look const look(above.string());
    return look.findsNothing() && above != path ? lookAbove(above) : look;
}

// Whether what is missing is missing behind a link, so that it may come and go in a folder that nobody looks at.
bool isMissingBehindLink(std::filesystem::path const& path)
{
    if (!Look(path.string()).findsNothing())
        return false;
    std::error_code none;
    return std::filesystem::is_symlink(std::filesystem::symlink_status(path, none)) || isMissingBehindLink(path.parent_path());
}

// All that Qt's answer depends on, as it is before Qt is asked.
class Question {
public:
    Question() : m_file(userDirsFile()), m_now(std::time(nullptr)), m_look(m_file), m_above(lookAbove(m_file)) {}

    bool isAskedAgain() const { return hasValue("HOME", m_home) && hasValue("XDG_CONFIG_HOME", m_configHome) && Look(m_file) == m_look; }

    // Whether what Qt answered is the answer for as long as the question is the same, which is the one before Qt read: what
    // changed meanwhile shows in the next look. `error` is the errno that Qt left.
    bool isAnsweredForGood(int error) const
    {
        // Other paths depend on more, such as the current folder, or on Qt's own resources.
        if (m_file.front() != '/' || !m_look.isOlderThan(m_now) || !m_above.isOlderThan(m_now))
            return false;
        // Qt does not tell that a file could not be opened or read just then; errno does.
        bool const wasRead = m_look.findsFile() && error == 0;
        bool const wasMissing = m_look.findsNothing() && !isMissingBehindLink(m_file);
        return (wasRead || wasMissing) && lookAbove(m_file) == m_above;
    }

private:
    // As Qt opens it, which turns what is not UTF-8 into replacement characters and cleans the home folder alone.
    static std::string userDirsFile()
    {
        QString folder = QFile::decodeName(qgetenv("XDG_CONFIG_HOME"));
        if (folder.isEmpty())
            folder = QDir::homePath() + QLatin1String("/.config");
        return QFile::encodeName(folder + QLatin1String("/user-dirs.dirs")).toStdString();
    }

    std::string m_home = variable("HOME");
    std::string m_configHome = variable("XDG_CONFIG_HOME");
    std::string m_file;
    std::time_t m_now;
    Look m_look;
    Look m_above;
};

class KeptAnswer {
public:
    QString answer(QStandardPaths::StandardLocation location)
    {
        if (!m_question || !m_question->isAskedAgain())
            ask(location);
        return m_answer;
    }

private:
    void ask(QStandardPaths::StandardLocation location)
    {
        m_question.reset();
        Question const question;
        errno = 0;
        m_answer = QStandardPaths::writableLocation(location);
        if (question.isAnsweredForGood(errno))
            m_question = question;
    }

    std::optional<Question> m_question; // none where the answer is not to be given again
    QString m_answer;
};

struct KeptAnswers {
    std::mutex mutex;
    KeptAnswer movies;
    KeptAnswer music;
};

Q_GLOBAL_STATIC(KeptAnswers, keptAnswers)

// In Qt's test mode the file is not read, and other codecs read it otherwise. There is none at the end of the process.
bool isPlainlyRead()
{
    QTextCodec const* const codec = QTextCodec::codecForLocale();
    return codec && codec->mibEnum() == utf8Mib && !QStandardPaths::isTestModeEnabled();
}

} // namespace

QString userDirectory(QStandardPaths::StandardLocation location)
{
    KeptAnswers* const kept = isPlainlyRead() ? keptAnswers() : nullptr;
    if (!kept) // or there is none any more, for a static destructor
        return QStandardPaths::writableLocation(location);
    std::lock_guard<std::mutex> const lock(kept->mutex);
    return (location == QStandardPaths::MusicLocation ? kept->music : kept->movies).answer(location);
}

} // namespace Util
} // namespace Lumora
