#include "ModelFixture.h"

#include <OrvikCore/IBoxPicker.h>

namespace {

using Ids = std::vector<TambVizCore::EntityId>;

/// A view that answers every rectangle with the same bodies and remembers it.
class BoxView : public FakeView3D, public OrvikCore::IBoxPicker
{
public:
    std::vector<TambVizCore::EntityId> FindInBox(const OrvikCore::PickBox& box) override
    {
        m_asked = box;
        return m_found;
    }

    OrvikCore::PickBox m_asked;
    Ids m_found;
};

class BoxCommand : public ModelFixture
{
protected:
    BoxCommand() { m_session.m_fakeView = &m_boxView; }

    /// What the view was asked: corners and whether it touches.
    std::string asked() const
    {
        const OrvikCore::PickBox& box = m_boxView.m_asked;
        return std::to_string(box.x1) + " " + std::to_string(box.y1) + " " +
               std::to_string(box.x2) + " " + std::to_string(box.y2) +
               (box.touching ? " touching" : " enclosed");
    }

    BoxView m_boxView;
};

TEST_F(BoxCommand, SelectsWhatTheViewFinds)
{
    run("sel:set", {entity(m_plate)});
    m_boxView.m_found = {m_firstBody, m_secondBody};

    EXPECT_EQ(idsIn(run("sel:box", {10, 20, 30, 40})), (Ids{m_firstBody, m_secondBody}));
    EXPECT_EQ(idsIn(run("sel:get")), (Ids{m_firstBody, m_secondBody}));
}

TEST_F(BoxCommand, FindingNothingSelectsNothing)
{
    run("sel:set", {entity(m_plate)});

    EXPECT_EQ(run("sel:box", {10, 20, 30, 40}), Value(List{}));
    EXPECT_EQ(run("sel:get"), Value(List{}));
}

TEST_F(BoxCommand, AddingKeepsWhatWasSelectedBefore)
{
    run("sel:set", {entity(m_plate)});
    m_boxView.m_found = {m_firstBody, m_plate};

    EXPECT_EQ(idsIn(run("sel:box", {10, 20, 30, 40, L"touching", true})),
              (Ids{m_firstBody, m_plate}));
    EXPECT_EQ(idsIn(run("sel:get")), (Ids{m_plate, m_firstBody}));
}

TEST_F(BoxCommand, TouchesFromRightToLeftUnlessToldOtherwise)
{
    run("sel:box", {10, 20, 30, 40});
    EXPECT_EQ(asked(), "10 20 30 40 enclosed");
    run("sel:box", {30, 20, -10, 40});
    EXPECT_EQ(asked(), "30 20 -10 40 touching");
    run("sel:box", {10, 20, 30, 40, L"touching"});
    EXPECT_EQ(asked(), "10 20 30 40 touching");
    run("sel:box", {30, 20, 10, 40, L"enclosed"});
    EXPECT_EQ(asked(), "30 20 10 40 enclosed");
}

TEST_F(BoxCommand, WrongArgumentsAreRefusedAndChangeNothing)
{
    run("sel:set", {entity(m_plate)});

    EXPECT_EQ(errorOf("sel:box", {1, 2, 3, 4, L"near"}),
              "sel:box: parameter \"how\": expected touching, enclosed or direction, got the "
              "string \"near\".");
    EXPECT_EQ(errorOf("sel:box", {1, 2, 3, 1000001}),
              "sel:box: parameter \"y-to\": expected an integer from -1000000 to 1000000 in "
              "pixels, got the integer 1000001.");
    EXPECT_EQ(errorOf("sel:box", {1, 2, 3.5, 4}),
              "sel:box: parameter \"x-to\": expected an integer from -1000000 to 1000000 in "
              "pixels, got the number 3.5.");
    EXPECT_EQ(errorOf("sel:box", {1, 2, 3}).find("sel:box: "), 0u);
    EXPECT_EQ(idsIn(run("sel:get")), Ids{m_plate});
}

TEST_F(BoxCommand, WithoutAViewThatLooksItFails)
{
    m_session.m_fakeView = &m_view;
    EXPECT_EQ(errorOf("sel:box", {1, 2, 3, 4}), "The view cannot tell what lies in a rectangle.");
    m_session.m_fakeView = nullptr;
    EXPECT_EQ(errorOf("sel:box", {1, 2, 3, 4}), "There is no view.");
}

TEST_F(CommandFixture, PickInTheViewTakesPixelsWithinReason)
{
    EXPECT_EQ(errorOf("view:pick", {99999999999, 3}),
              "view:pick: parameter \"x\": expected an integer from -1000000 to 1000000 in "
              "pixels, got the integer 99999999999.");
}

} // namespace
