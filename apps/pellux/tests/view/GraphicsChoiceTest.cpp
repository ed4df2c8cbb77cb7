#include <gtest/gtest.h>
#include <view/GraphicsChoice.h>

using Pellux::ChooseGraphics;
using Pellux::GraphicsPath;
using Pellux::GraphicsTrial;
using Pellux::GraphicsWish;

namespace {

const GraphicsTrial kNone{};
const GraphicsTrial kProcessor{true, QStringLiteral("llvmpipe (LLVM 15.0.6, 256 bits)")};
const GraphicsTrial kCard{true, QStringLiteral("NVIDIA GeForce RTX 3060/PCIe/SSE2")};

TEST(GraphicsChoice, KnowsRenderersThatComputeOnTheProcessor)
{
    for (const char* const name : {"llvmpipe (LLVM 15.0.6, 256 bits)", "softpipe",
                                   "Software Rasterizer", "Google SwiftShader", "GDI Generic"})
        EXPECT_TRUE(Pellux::IsSoftwareRenderer(QString::fromLatin1(name))) << name;
    for (const char* const name : {"Mesa Intel(R) UHD Graphics 620 (KBL GT2)",
                                   "AMD Radeon RX 6600 (navi23, LLVM 15.0.6, DRM 3.49)",
                                   "NVIDIA GeForce RTX 3060/PCIe/SSE2"})
        EXPECT_FALSE(Pellux::IsSoftwareRenderer(QString::fromLatin1(name))) << name;
}

TEST(GraphicsChoice, LendsTheContextWhereThereIsAGraphicsProcessor)
{
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Automatic, kCard), GraphicsPath::Lent);
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Automatic, kProcessor), GraphicsPath::Image);
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Automatic, kNone), GraphicsPath::Image);
}

TEST(GraphicsChoice, FollowsTheUserAsFarAsTheTrialAllows)
{
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Image, kCard), GraphicsPath::Image);
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Lent, kProcessor), GraphicsPath::Lent);
    EXPECT_EQ(ChooseGraphics(GraphicsWish::Lent, kNone), GraphicsPath::Image);
}

TEST(GraphicsChoice, ReadsTheWordsOfTheCommandLine)
{
    GraphicsWish wish = GraphicsWish::Automatic;
    EXPECT_TRUE(Pellux::ReadGraphicsWish(QStringLiteral("window"), wish));
    EXPECT_EQ(wish, GraphicsWish::Lent);
    EXPECT_TRUE(Pellux::ReadGraphicsWish(QStringLiteral("image"), wish));
    EXPECT_EQ(wish, GraphicsWish::Image);
    EXPECT_TRUE(Pellux::ReadGraphicsWish(QStringLiteral("auto"), wish));
    EXPECT_EQ(wish, GraphicsWish::Automatic);
    EXPECT_FALSE(Pellux::ReadGraphicsWish(QStringLiteral("gpu"), wish));
}

} // namespace
