// SPDX-License-Identifier: MIT
//
// The sample project, looked for below a hundred folders of a hundred files. The floor is a walk that asks the kernel
// only and ends at the same file; the peer is QDirIterator, which must find that file too.
#include <support/Bench.h>
#include <support/BoundLibrary.h>
#include <support/Folders.h>

#include <QDirIterator>

#include <filesystem>

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr char const* samples = "resources/samples/stock/projects";
constexpr std::string_view extension = ".lumora";

bool isSample(Bench::Entry const& entry)
{
    return entry.type == DT_REG && entry.name.size() > extension.size() &&
           entry.name.substr(entry.name.size() - extension.size()) == extension;
}

std::string walked(std::string const& folder)
{
    std::string path;
    int const descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    bool const isFound = Bench::walk(descriptor, isSample, path);
    ::close(descriptor);
    return isFound ? folder + '/' + path : std::string();
}

QString iterated(QString const& folder)
{
    QDirIterator files(folder, {QStringLiteral("*.lumora")}, QDir::Files | QDir::NoSymLinks, QDirIterator::Subdirectories);
    return files.hasNext() ? files.next() : QString();
}

// A resources root with a hundred folders of samples. The walk meets them in the order in which the file system gives
// them, which is known only once they are there.
struct Tree {
    Bench::Folder root{fs::temp_directory_path().string()};
    std::string const folder = root.path() + '/' + samples;

    Tree()
    {
        for (int number = 1; number <= 100; ++number) {
            fs::path const sample = fs::path(folder) / ("Sample " + std::to_string(number));
            fs::create_directories(sample);
            for (int file = 1; file <= (Bench::isShort() ? 5 : 100); ++file)
                ::close(::open((sample / ("clip " + std::to_string(file) + ".mp4")).c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
        }
    }

    // Its folders in the order of the walk.
    std::vector<fs::path> folders() const { return {fs::directory_iterator(folder), fs::directory_iterator()}; }

    void putSample(fs::path const& where) const
    {
        ::close(::open((where / "Lisbon.lumora").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    }
};

struct Surroundings {
    Bench::BoundLibrary library;

    Surroundings() { library.product->extensions = "lumora"; }
};

using Shared = std::shared_ptr<Surroundings>;

void addRow(Shared const& all, std::string const& row, std::shared_ptr<Tree> const& tree, std::string const& expected)
{
    QString const folder = Bench::qString(tree->folder);
    auto const bound = [all, tree] {
        return TestKit::ScopedBinding(
            {all->library.product, all->library.commonValues, all->library.productValues, Lumora::ioPath(tree->root.path())});
    };
    {
        auto const binding = bound();
        Bench::require(walked(tree->folder) == expected, row + ": the walk ends at " + walked(tree->folder));
        Bench::require(iterated(folder) == Bench::qString(expected), row + ": QDirIterator finds " + iterated(folder).toStdString());
        Bench::require(Settings::sampleProjectPath() == iterated(folder), row + ": the library finds another file");
    }
    Bench::addRun(row, "library", [bound](benchmark::State& state) {
        auto const binding = bound();
        state.counters["allocations"] = static_cast<double>(Bench::allocationsOf(&Settings::sampleProjectPath).count);
        Bench::repeat(state, &Settings::sampleProjectPath);
    });
    Bench::add(row, "floor", [tree] { return walked(tree->folder); });
    Bench::add(row, "QDirIterator", [folder] { return iterated(folder); });
}

Bench::Registration const registration([] {
    auto const all = std::make_shared<Surroundings>();
    auto const none = std::make_shared<Tree>();
    addRow(all, "no sample", none, "");
    auto const first = std::make_shared<Tree>();
    first->putSample(first->folders().front());
    addRow(all, "sample in the first folder", first, (first->folders().front() / "Lisbon.lumora").string());
    auto const last = std::make_shared<Tree>();
    last->putSample(last->folders().back());
    addRow(all, "sample in the last folder", last, (last->folders().back() / "Lisbon.lumora").string());
});

} // namespace
