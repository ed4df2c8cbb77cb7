#include "CadTest.h"
#include "DamagedFile.h"

#include <gtest/gtest.h>

#include <string>

// Files with which the kernel would compute without end; each was found by flipping bits.

namespace OrvikCad {
namespace {

using OrvikModel::NodeKind;

/// Little patience, so that the tests are short.
constexpr KernelLimits kShort{.silentMs = 100, .silentMsPerMegabyte = 0};

constexpr char kArc[] = "100,0.,0.,0.,6.,0.,6.,0.;";
constexpr char kArcWithoutStart[] = "100,0.,0.,0.,x.,0.,6.,0.;";

/// The start of the arc at that place of the file cannot be read, so it has no radius.
std::string withoutStartOfArc(int which)
{
    std::string text = TestModelText("colors.iges");
    std::size_t at = text.find(kArc);
    for (; which > 0; --which)
        at = text.find(kArc, at + 1);
    EXPECT_NE(at, std::string::npos);
    return text.replace(at, sizeof kArc - 1, kArcWithoutStart);
}

std::size_t triangleCount(const ReadResult& read)
{
    std::size_t count = 0;
    for (const auto* body : NodesOf(read.model, NodeKind::Body))
        count += body->shape->Present()->TriangleCount();
    return count;
}

/// What has no end is ended by a watch over the thread.
void skipWithoutWatch()
{
#if defined(__SANITIZE_THREAD__) || !defined(__x86_64__)
    GTEST_SKIP() << "no thread can be watched here";
#endif
}

class EndlessArcs : public testing::TestWithParam<int>
{
protected:
    void SetUp() override { skipWithoutWatch(); }
};

/// 0, 2 and 4 stop the healing of shapes, the others the mesher.
TEST_P(EndlessArcs, LoseTheirFacesOnly)
{
    const ReadResult read = ReadCadText(withoutStartOfArc(GetParam()), "arc.iges", kShort);

    ASSERT_TRUE(read.isRead);
    EXPECT_TRUE(read.WarnsOf(L"faces that could not be cut into triangles, left out: "));
    EXPECT_GE(NodesOf(read.model, NodeKind::Body).size(), 3u);
    EXPECT_GT(triangleCount(read), 100u);
}

INSTANTIATE_TEST_SUITE_P(OfColors, EndlessArcs, testing::Range(0, 6));

class EndlessIges : public testing::TestWithParam<std::uint32_t>
{
protected:
    void SetUp() override { skipWithoutWatch(); }
};

TEST_P(EndlessIges, IsReadWithWarnings)
{
    const ReadResult read =
        ReadCadText(DamagedFile(TestModelText("colors.iges"), GetParam()), "a.iges", kShort);

    EXPECT_TRUE(read.isRead);
    EXPECT_FALSE(read.warnings.empty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, EndlessIges, testing::Values(78, 236, 403, 476, 653, 930));

class EndlessFile : public testing::Test
{
protected:
    void SetUp() override { skipWithoutWatch(); }
};

/// With the limits that files of users get: five seconds of silence for the first face without end,
/// less for each further one. The bound is the 120 s that a test may take; some 10 s are needed.
TEST_F(EndlessFile, EndsWithOrdinaryLimitsToo)
{
    const ReadResult read = ReadCadText(withoutStartOfArc(0), "arc.iges");

    EXPECT_TRUE(read.isRead);
    EXPECT_TRUE(read.WarnsOf(L"faces that could not be cut into triangles, left out: "));
}

class EndlessBrep : public EndlessFile
{
};

TEST_F(EndlessBrep, WhoseEdgesCrossOnAFaceIsReadWithWarnings)
{
    const ReadResult read =
        ReadCadText(DamagedFile(TestModelText("solids.brep"), 620), "a.brep", kShort);

    EXPECT_TRUE(read.isRead);
    EXPECT_TRUE(read.WarnsOf(L"faces that could not be cut into triangles, left out: "));
}

} // namespace
} // namespace OrvikCad
