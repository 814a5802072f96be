// SPDX-License-Identifier: MIT
//
// The three generated names, in a folder that holds anything, against the oracle that tells them as plainly as can be.
//
// An input has the format of recordings, the path of a source, the format of its freeze frames and stabilized clips, and
// then a line for each entry of the folder: the name of a file; with "/" after it a folder; with "/" and anything more a
// link to that.
#include <support/Fuzz.h>
#include <support/names/NaiveNames.h>

#include <QFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using Fuzz::utf8;

namespace {

// Characters that the oracle does not know are none of its business, so another one stands for them.
std::string known(std::string const& text)
{
    std::u32string characters = QString::fromStdString('.' + text).toStdU32String().substr(1); // a mark at the begin is kept
    if (std::all_of(characters.begin(), characters.end(), &oracle::isKnown))
        return text;
    std::replace_if(
        characters.begin(), characters.end(), [](char32_t character) { return !oracle::isKnown(character); }, U'\U0001F3AC');
    return QString::fromStdU32String(characters).toStdString();
}

// Sources and formats are patterns to Qt. Repetitions of repetitions take it time and memory without end, and many
// asterisks a second for each name, which is known and would be all that a run is about.
bool isEndless(std::string const& text)
{
    return std::count(text.begin(), text.end(), '{') > 1 || std::count(text.begin(), text.end(), '*') > 4;
}

class Folder {
public:
    explicit Folder(std::string const& path) : m_path(path) { ::mkdir(path.c_str(), 0700); }

    std::string const& path() const { return m_path; }

    void add(std::string const& entry)
    {
        std::size_t const slash = entry.find('/');
        std::string const name = known(entry.substr(0, slash));
        if (name.empty() || name == "." || name == ".." || name.size() > 255 || name.find('\0') != std::string::npos)
            return;
        std::string const file = m_path + '/' + name;
        if (slash == std::string::npos)
            ::close(::open(file.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0600));
        else if (slash + 1 == entry.size())
            ::mkdir(file.c_str(), 0700);
        else
            static_cast<void>(::symlink(entry.substr(slash + 1).c_str(), file.c_str()));
        m_files.push_back(file);
    }

    void clear()
    {
        for (std::string const& file : m_files)
            if (::unlink(file.c_str()) != 0)
                ::rmdir(file.c_str());
        m_files.clear();
    }

private:
    std::string m_path;
    std::vector<std::string> m_files;
};

// The name with TIME in the place of the time, which must look like one; `expected` tells where it stands.
QString withoutTime(QString const& path, QString const& expected)
{
    auto const at = expected.indexOf(QLatin1String("-TIME.")) + 1;
    QString const pattern = QStringLiteral("0000.00.00-00.00.00");
    QString const time = path.mid(at, pattern.size());
    Fuzz::expect(time.size() == pattern.size(), "a recording has no time: " + path.toStdString());
    for (int index = 0; index < pattern.size(); ++index) {
        bool const isDigit = time[index] >= QLatin1Char('0') && time[index] <= QLatin1Char('9');
        Fuzz::expect(pattern[index] == QLatin1Char('0') ? isDigit : time[index] == pattern[index], "no time: " + path.toStdString());
    }
    return path.left(at) + QStringLiteral("TIME") + path.mid(at + pattern.size());
}

struct Surroundings : Fuzz::BoundLibrary {
    Folder folder{(home.path() / "folder").string()};

    Surroundings()
    {
        home.write("file", "content");
        for (char const* const key : {"audioRecordPath", "exportPath", "stabilizedFilePath"})
            productValues->setString(key, folder.path());
    }
};

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Surroundings surroundings;
    Folder& folder = surroundings.folder;
    std::vector<std::string> const lines = Fuzz::lines(data, size, 3);
    if (isEndless(lines[1]) || isEndless(lines[2]))
        return 0;
    std::string const recordingFormat = known(lines[0]);
    QString const source = utf8(known(lines[1]));
    std::string const format = known(lines[2]);
    for (std::size_t index = 3; index < lines.size() && index < 15; ++index)
        folder.add(lines[index]);
    surroundings.productValues->setString("audioRecordFormat", recordingFormat);
    surroundings.productValues->setString("freezedFileFormat", format);

    QStringList const names = oracle::listing(folder.path(), "UTF-8");
    QString const below = utf8(folder.path()) + QLatin1Char('/');
    QString const recording = below + oracle::recording(names, utf8(recordingFormat));
    Fuzz::expectEqual("name of a recording", withoutTime(Settings::generateAudioRecordFilePath(), recording), recording);
    Fuzz::expectEqual("name of a freeze frame", Settings::generateFreezedFilePath(source),
                      below + oracle::freeze(names, source, utf8(format)));
    Fuzz::expectEqual("name of a stabilized clip", Settings::generateStabilizedFilePath(source, utf8(format)),
                      below + oracle::stabilized(names, source, utf8(format)));
    folder.clear();
    return 0;
}
