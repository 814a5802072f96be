// SPDX-License-Identifier: MIT
//
// What a kept answer costs.
#include <Lumora/Util/StandardPaths.h>

#include <storage/Traced.h>
#include <support/Allocations.h>
#include <support/BoundLibrary.h>

#include <thread>

#include <sys/syscall.h>

namespace {

constexpr auto movies = QStandardPaths::MoviesLocation;

class KeptAnswer : public testing::Test {
protected:
    void SetUp() override
    {
        m_home.write(".config/user-dirs.dirs", "XDG_VIDEOS_DIR=\"/films\"\n");
        std::this_thread::sleep_for(std::chrono::milliseconds(4100)); // an answer from younger files is not kept
        Lumora::Util::GetStandardPath(movies);
    }

    TestKit::TemporaryHome m_home;
};

TEST_F(KeptAnswer, TakesOneSystemCall)
{
    if (!Traced::isPossible())
        GTEST_SKIP() << "this process may not trace others";
    auto const ask = [] { Lumora::Util::GetStandardPath(movies); };
    EXPECT_EQ(Traced::systemCalls({ask, ask}), std::vector<long>{SYS_statx});
    auto const askQt = [] { QStandardPaths::writableLocation(movies); };
    EXPECT_GT(Traced::systemCalls({askQt, askQt}).size(), 3u) << "the calls of a literal answer are seen";
}

TEST_F(KeptAnswer, TakesNothingFromTheHeap)
{
    int const before = Allocations::soFar();
    QString const kept = Lumora::Util::GetStandardPath(movies);
    int const afterKept = Allocations::soFar();
    QString const literal = QStandardPaths::writableLocation(movies);
    int const afterLiteral = Allocations::soFar();
    EXPECT_EQ(afterKept - before, 0);
    EXPECT_GT(afterLiteral - afterKept, 20) << "the allocations of a literal answer are seen";
    EXPECT_EQ(kept, QStringLiteral("/films"));
    EXPECT_EQ(literal, QStringLiteral("/films"));
}

} // namespace
