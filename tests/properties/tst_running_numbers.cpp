// SPDX-License-Identifier: MIT
//
// Running numbers never fall: whatever files are added to a folder, the next name has no smaller number, and once it is
// made a greater one follows.
#include "Property.h"

#include <support/BoundLibrary.h>

#include <QRegularExpression>

namespace {

// One of the three generators, in the way in which its names are built.
struct Generator {
    char const* meaning;
    QString (*next)();
    char const* number;                        // the pattern that finds the number in a name
    QString (*name)(int number, QString stem); // such a name
};

QString recording(int number, QString) { return QStringLiteral("Rec-%1-2024.03.09-17.05.31.wav").arg(number); }
QString freeze(int number, QString stem) { return stem + QStringLiteral(" (%1).png").arg(number); }
QString stabilized(int number, QString stem) { return stem + QStringLiteral("-%1.mp4").arg(number); }

class RunningNumber : public BoundLibrary, public testing::WithParamInterface<Generator> {
protected:
    RunningNumber()
    {
        std::filesystem::create_directory(m_folder);
        for (char const* const key : {"audioRecordPath", "exportPath", "stabilizedFilePath"})
            m_productValues->setString(key, m_folder.string());
    }

    void make(QString const& name) const { m_home.write("folder/" + name.toStdString(), ""); }

    // Names of this generator, with numbers that leave room for a next one, and others that only look alike.
    rc::Gen<QString> names() const
    {
        auto const stem = rc::gen::element(QStringLiteral("Holiday"), QStringLiteral("Holi"), QStringLiteral("Trip"), QString());
        auto const number = rc::gen::oneOf(rc::gen::inRange(0, 12), rc::gen::inRange(0, 2147483640));
        return rc::gen::apply(GetParam().name, number, stem);
    }

    int nextNumber() const
    {
        QString const path = GetParam().next();
        auto const found = QRegularExpression(QString::fromLatin1(GetParam().number)).match(path);
        RC_ASSERT(found.hasMatch());
        return found.captured(1).toInt();
    }

    void fill() const
    {
        for (QString const& name : *rc::gen::container<std::vector<QString>>(names()))
            make(name);
    }

    std::filesystem::path const m_folder = m_home.path() / "folder";
};

TEST_P(RunningNumber, NeverFallsAndGrowsWithEachNameThatIsMade)
{
    expectForAll(60, [&] {
        for (auto const& entry : std::filesystem::directory_iterator(m_folder))
            std::filesystem::remove(entry.path());
        int const inEmptyFolder = nextNumber();
        fill();
        int const before = nextNumber();
        fill();
        int const after = nextNumber();
        RC_ASSERT(inEmptyFolder == 1);
        RC_ASSERT(before >= inEmptyFolder);
        RC_ASSERT(after >= before);
        make(GetParam().next().mid(static_cast<int>(m_folder.string().size()) + 1));
        RC_ASSERT(nextNumber() == after + 1);
        RC_CLASSIFY(after > before, "grown");
    });
}

INSTANTIATE_TEST_SUITE_P(
    Table, RunningNumber,
    testing::Values(Generator{"OfRecordings", [] { return Settings::generateAudioRecordFilePath(); }, "/Rec-(-?[0-9]+)-[^/]*$", recording},
                    Generator{"OfFreezeFrames", [] { return Settings::generateFreezedFilePath(QStringLiteral("/films/Holiday.mov")); },
                              " \\((-?[0-9]+)\\)\\.png$", freeze},
                    Generator{
                        "OfStabilizedClips",
                        [] { return Settings::generateStabilizedFilePath(QStringLiteral("/films/Holiday.mov"), QStringLiteral("mp4")); },
                        "/Holiday-(-?[0-9]+)\\.mp4$", stabilized}),
    [](auto const& test) { return std::string(test.param.meaning); });

} // namespace
