#include "FakeRenderer.h"
#include "ModelFixture.h"

#include <algorithm>

namespace {

/// A model that a renderer draws.
class TessellationCommands : public ModelFixture
{
protected:
    TessellationCommands() { m_session.AddRenderer(&m_renderer, true); }

    int redraws() const
    {
        return static_cast<int>(std::count(m_session.m_calls.begin(), m_session.m_calls.end(),
                                           "UpdateAfterContentModified"));
    }

    Fake3DRenderer m_renderer{&m_bolts};
};

TEST_F(TessellationCommands, SagAndAngleAreSetAndTheModelDrawnAnew)
{
    EXPECT_EQ(run("view:tessellation", {0.05, 15}), Value(List{0.05, 0.0, 15.0}));

    bool isDefault = true;
    EXPECT_EQ(m_renderer.GetTesselationSag(isDefault), 0.05);
    EXPECT_FALSE(isDefault);
    EXPECT_EQ(m_renderer.GetTesselationMaxAngle(isDefault), 15.0);
    EXPECT_FALSE(isDefault);
    EXPECT_EQ(redraws(), 1);
}

TEST_F(TessellationCommands, AnAngleThatIsLeftOutIsTheDefault)
{
    run("view:tessellation", {0.05, 15});
    run("view:tessellation", {0.1});

    bool isDefault = false;
    EXPECT_EQ(m_renderer.GetTesselationSag(isDefault), 0.1);
    EXPECT_FALSE(isDefault);
    m_renderer.GetTesselationMaxAngle(isDefault);
    EXPECT_TRUE(isDefault);
}

TEST_F(TessellationCommands, WithoutArgumentsNothingChanges)
{
    run("view:tessellation", {0.05, 15});

    EXPECT_EQ(run("view:tessellation"), Value(List{0.05, 0.0, 15.0}));

    EXPECT_EQ(redraws(), 1);
}

TEST_F(TessellationCommands, ANegativeSagIsRefused)
{
    EXPECT_EQ(errorOf("view:tessellation", {-1}),
              "view:tessellation: parameter \"sag\": expected a number of at least 0 in mm, got "
              "the integer -1.");
}

} // namespace
