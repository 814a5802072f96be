// SPDX-License-Identifier: MIT
//
// The extensions of project files and what is made of them, for extensions of any bytes.
//
// An input is what the product gives as its extensions.
#include <support/Fuzz.h>

#include <QFileInfo>

namespace {

QStringList nonEmptyParts(QString const& text)
{
    QStringList parts;
    QString part;
    for (QChar const character : text + QLatin1Char(',')) {
        if (character != QLatin1Char(',')) {
            part += character;
            continue;
        }
        if (!part.isEmpty())
            parts.append(part);
        part.clear();
    }
    return parts;
}

QString openFilter(QStringList const& extensions)
{
    QString filter = QStringLiteral("*.");
    for (int index = 0; index < extensions.size(); ++index)
        filter += (index == 0 ? QString() : QStringLiteral(" *.")) + extensions[index];
    return filter;
}

struct Surroundings : Fuzz::BoundLibrary {
    QString folder;

    Surroundings()
    {
        std::filesystem::path const samples = home.path() / "resources/samples/stock/projects";
        for (char const* const name : {"a.lumora", "B.LUMORA", ".hidden.lumora", "below/c.x", "d.", "e"})
            home.write(samples / name, "content");
        std::filesystem::create_symlink("a.lumora", samples / "link.linked");
        folder = Fuzz::utf8(samples.string());
        SettingsContext context = s_instance;
        context.resourcesRoot = Lumora::ioPath(home.path().string());
        Settings::init(context);
    }
};

// That a sample project is a file below the folder, and neither hidden nor a link.
void checkSample(QString const& folder, QString const& sample)
{
    if (sample.isNull())
        return;
    QString const relative = sample.mid(folder.size());
    QStringList const known = {QStringLiteral("/a.lumora"), QStringLiteral("/B.LUMORA"), QStringLiteral("/below/c.x"),
                               QStringLiteral("/d."), QStringLiteral("/e")};
    Fuzz::expect(sample.startsWith(folder) && known.contains(relative), "no sample project: " + sample.toStdString());
}

} // namespace

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static Surroundings const surroundings;
    surroundings.product->extensions.assign(data, data + size);
    QStringList const extensions = nonEmptyParts(Fuzz::utf8(surroundings.product->extensions));
    QString const first = extensions.isEmpty() ? QString() : extensions.first();

    Fuzz::expectEqual("extensions", Settings::supportedProjectFileExtensions(), extensions);
    Fuzz::expectEqual("extension for saving", Settings::projectFileExtension(), first);
    Fuzz::expect(!Settings::projectFileExtension().isNull(), "the extension for saving is null");
    Fuzz::expectEqual("save filter", Settings::projectFileSaveFilter(), QStringLiteral("*.") + first);
    Fuzz::expectEqual("open filter", Settings::projectFileOpenFilter(), openFilter(extensions));
    checkSample(surroundings.folder, Settings::sampleProjectPath());
    bool const isPlain = extensions.size() == 1 && first == QLatin1String("x");
    if (isPlain)
        Fuzz::expectEqual("sample project", Settings::sampleProjectPath(), surroundings.folder + QStringLiteral("/below/c.x"));
    return 0;
}
