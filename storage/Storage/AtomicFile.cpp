// SPDX-License-Identifier: MIT
#include "AtomicFile.h"

#include "sqlite/SqliteErrors.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace Storage {

namespace {

// Syncs the names in a folder, as a new file is durable only with its name. Errors are ignored: a folder that may not be
// listed, or a file system without this call, takes stores all the same.
void syncFolder(fs::path const& folder)
{
    int const descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

// A new file before it gets its name. It is nameless, so that a killed process leaves nothing behind, or has a temporary
// name where the file system or a missing /proc does not support nameless files.
class Draft {
public:
    enum class Name { none, temporary };

    Draft(fs::path const& file, Name name) : m_file(file)
    {
        fs::path const folder = file.parent_path();
        if (name == Name::none) {
            m_descriptor = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0600);
        } else {
            m_name = (folder / ".settings-XXXXXX").string();
            m_descriptor = ::mkostemp(m_name.data(), O_CLOEXEC);
        }
    }
    ~Draft()
    {
        close(m_descriptor);
        close(m_handle);
        if (!m_name.empty())
            ::unlink(m_name.c_str());
    }
    Draft(Draft const&) = delete;
    Draft& operator=(Draft const&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }

    bool write(std::string const& content)
    {
        for (std::size_t written = 0; written < content.size();) {
            ssize_t const count = ::write(m_descriptor, content.data() + written, content.size() - written);
            if (count < 0)
                return false;
            written += static_cast<std::size_t>(count);
        }
        return ::fchmod(m_descriptor, 0600) == 0 && ::fsync(m_descriptor) == 0;
    }

    // Links the file to its name, unless the name is taken. Closing it afterwards would drop the locks that a store object
    // of this process may hold on it by then, so it is closed before; a handle without access keeps a nameless file alive.
    bool publish()
    {
        std::string const link = "/proc/self/fd/";
        if (m_name.empty() && (m_handle = ::open((link + std::to_string(m_descriptor)).c_str(), O_PATH | O_CLOEXEC)) < 0)
            return false;
        close(m_descriptor);
        std::string const made = m_name.empty() ? link + std::to_string(m_handle) : m_name;
        return ::linkat(AT_FDCWD, made.c_str(), AT_FDCWD, m_file.c_str(), AT_SYMLINK_FOLLOW) == 0;
    }

    // Renames a file with a temporary name over the existing file.
    bool replace()
    {
        close(m_descriptor);
        if (::rename(m_name.c_str(), m_file.c_str()) != 0)
            return false;
        m_name.clear();
        return true;
    }

private:
    static void close(int& descriptor)
    {
        if (descriptor >= 0)
            ::close(std::exchange(descriptor, -1));
    }

    fs::path const& m_file;
    std::string m_name;
    int m_descriptor = -1;
    int m_handle = -1;
};

// Returns a number of `errno`, or 0.
int errorOfWriting(fs::path const& file, std::string const& content, Draft::Name name)
{
    Draft draft(file, name);
    return draft.isOpen() && draft.write(content) && draft.publish() ? 0 : errno;
}

} // namespace

void createFolders(fs::path const& folder)
{
    std::error_code error;
    if (fs::exists(folder, error))
        return;
    if (error)
        throwSystemError(folder, "create the folder", error.value());
    createFolders(folder.parent_path());
    if (::mkdir(folder.c_str(), 0700) == 0)
        ::chmod(folder.c_str(), 0700); // a umask may remove the owner's rights too
    else if (errno != EEXIST)
        throwSystemError(folder, "create the folder", errno);
    syncFolder(folder.parent_path());
}

bool writeNewFile(fs::path const& file, std::string const& content, char const* attempt)
{
    createFolders(file.parent_path());
    int error = errorOfWriting(file, content, Draft::Name::none);
    if (error != 0 && error != EEXIST)
        error = errorOfWriting(file, content, Draft::Name::temporary);
    if (error != 0 && error != EEXIST)
        throwSystemError(file, attempt, error);
    syncFolder(file.parent_path());
    return error == 0;
}

void replaceFile(fs::path const& file, std::string const& content, char const* attempt, std::function<bool()> const& keep)
{
    {
        Draft draft(file, Draft::Name::temporary);
        if (!draft.isOpen() || !draft.write(content))
            throwSystemError(file, attempt, errno);
        bool const isFree = keep();
        if (!(isFree ? draft.publish() : draft.replace()))
            throwSystemError(file, attempt, errno);
    }
    syncFolder(file.parent_path());
}

} // namespace Storage
