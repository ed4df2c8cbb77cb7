#include "../ConfigurationFile.h"
#include "FakeSession.h"
#include "NavigationFixture.h"
#include "RecordingOutputListener.h"
#include "ScopedTempDir.h"

#include <TambVizCore/EntityType.h>

namespace {

using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;
using Pellux::NavigationAction;
using Pellux::NavigationTable;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

constexpr MouseGesture kLeft = {ModifierKey::None, MouseButton::Selection};
constexpr MouseGesture kMiddle = {ModifierKey::None, MouseButton::Zoom};
constexpr MouseGesture kRight = {ModifierKey::None, MouseButton::Menu};
constexpr MouseGesture kCtrlLeft = {ModifierKey::Ctrl, MouseButton::Selection};
constexpr MouseGesture kAltLeft = {ModifierKey::Alt, MouseButton::Selection};
constexpr char kRotate[] =
    "ViewOpRotate: mouseX = 60 mouseY = 35 prevX = 10 prevY = 10 state = processing; ";
constexpr char kPan[] = "ViewOpPan: mouseX = 60 mouseY = 35 prevX = 10 prevY = 10; ";

TEST_F(TableStrategy, DoesWhatItsTableSays)
{
    use(0);
    EXPECT_EQ(drag(kLeft), kRotate);
    EXPECT_EQ(drag(kMiddle), kPan);
    EXPECT_EQ(drag(kRight), "ViewOpZoom; ");
    EXPECT_EQ(drag({ModifierKey::Shift, MouseButton::Selection}), "drag1 drag2 drag3 ");

    use(1);
    EXPECT_EQ(drag(kMiddle), kRotate);
    EXPECT_EQ(drag(kLeft), "drag1 drag2 drag3 ");

    use(2);
    EXPECT_EQ(drag(kRight), kRotate);
    EXPECT_EQ(drag(kMiddle), kPan);
    EXPECT_EQ(drag({ModifierKey::Alt, MouseButton::Menu}), "");
}

TEST_F(TableStrategy, ClicksPickAndAdd)
{
    for (const std::size_t preset : {0u, 1u, 2u}) {
        use(preset);
        EXPECT_EQ(click(kLeft), "pick ");
        EXPECT_EQ(click(kCtrlLeft), "add ");
        EXPECT_EQ(click(kRight), "");
    }
    use(NavigationTable({{kRight, NavigationAction::Add}}));
    EXPECT_EQ(click(kRight), "add ");
}

TEST_F(TableStrategy, HoversAsTheDefaultDoes)
{
    use(1);
    move(5, 6, {ModifierKey::Shift, MouseButton::None});

    EXPECT_EQ(m_log.Take(), "ViewOpHitTest: mouseX = 5 mouseY = 6 useEnhancedMode = false; ");
}

TEST_F(TableStrategy, WindowZoomPansThenZoomsUntilTheRectangleFillsTheWindow)
{
    use(1);

    EXPECT_EQ(drag(kAltLeft, 10, 10, 60, 35),
              "drag1 drag2 drag4 ViewOpPan: mouseX = 100 mouseY = 50 prevX = 35 prevY = 22; "
              "ViewOpZoom; ");
    EXPECT_EQ(drag(kAltLeft, 10, 10, 11, 11), "drag1 drag2 drag4 ");
}

TEST_F(TableStrategy, EscapeGivesARubberBandUp)
{
    use(1);
    button(true, 10, 10, kLeft);
    move(60, 35, kLeft);
    key(KeyEventArgs::kEscape, false);
    key(KeyEventArgs::kEscape, true);
    button(false, 60, 35, kLeft);
    EXPECT_EQ(m_log.Take(), "drag1 drag2 drag4 ");

    key(KeyEventArgs::kEscape, true);
    EXPECT_EQ(m_log.Take(), "pick "); // The reset, which clears the selection.
}

TEST_F(TableStrategy, ASecondButtonOrALostReleaseGivesARubberBandUp)
{
    use(1);
    button(true, 10, 10, kLeft);
    button(true, 10, 10, kMiddle);
    EXPECT_EQ(m_log.Take(), "drag1 drag4 ");
    button(false, 10, 10, kMiddle);
    button(false, 10, 10, kLeft);

    button(true, 10, 10, kLeft);
    move(20, 20);
    EXPECT_EQ(m_log.Take(), "drag1 drag4 ");
}

/// Navigation over a session without a view, read from a configuration file.
class NavigationChoice : public TableStrategy
{
protected:
    std::wstring read(const std::string& text)
    {
        EXPECT_TRUE(m_configuration.AddFile(m_folder.Write("n.toml", text), /*mustExist=*/true));
        std::wstring error;
        const bool good = m_navigation.Read(m_configuration, error);
        EXPECT_EQ(good, error.empty());
        const std::wstring folder = m_folder.WidePath() + L"/";
        return error.starts_with(folder) ? error.substr(folder.size()) : error;
    }

    ScopedTempDir m_folder;
    Pellux::ConfigurationFile m_configuration;
    Pellux::Navigation m_navigation;
};

TEST_F(NavigationChoice, StartsWithTheDefault)
{
    m_navigation.Attach(m_controller);

    EXPECT_EQ(m_navigation.GetNavigation(), L"default");
    EXPECT_EQ(drag(kLeft), kRotate);
    EXPECT_EQ(m_navigation.ListNavigations(),
              (std::vector<std::wstring>{L"default", L"left-rotates", L"middle-rotates",
                                         L"right-rotates"}));
}

TEST_F(NavigationChoice, ChangesWithTheName)
{
    m_navigation.Attach(m_controller);

    EXPECT_TRUE(m_navigation.SetNavigation(L"right-rotates"));
    EXPECT_EQ(drag(kRight), kRotate);
    EXPECT_FALSE(m_navigation.SetNavigation(L"custom"));
    EXPECT_EQ(m_navigation.GetNavigation(), L"right-rotates");
    EXPECT_TRUE(m_navigation.SetNavigation(L"default"));
    EXPECT_EQ(drag(kRight), "");
}

TEST_F(NavigationChoice, RowsOfTheConfigurationLieOverThePreset)
{
    EXPECT_EQ(read("[navigation]\npreset = \"middle-rotates\"\nmiddle = \"pan\"\n"
                   "\"Alt-middle\" = \"rotate\"\n"),
              L"");
    MakeCurrentFakeSession();
    m_navigation.Attach(m_controller);

    EXPECT_EQ(m_navigation.GetNavigation(), L"custom");
    EXPECT_EQ(drag(kMiddle), kPan);
    EXPECT_EQ(drag({ModifierKey::Alt, MouseButton::Zoom}), kRotate);
    EXPECT_EQ(drag(kLeft), "drag1 drag2 drag3 ");
    EXPECT_EQ(m_navigation.ListNavigations().back(), L"custom");
}

TEST_F(NavigationChoice, TakesRowsWhileItRuns)
{
    m_navigation.Attach(m_controller);
    std::wstring reason;

    EXPECT_TRUE(m_navigation.SetRows({{L"right", L"pan"}}, L"left-rotates", reason));
    EXPECT_EQ(m_navigation.GetNavigation(), L"custom");
    EXPECT_EQ(drag(kRight), kPan);
    EXPECT_EQ(drag(kLeft), kRotate);

    EXPECT_TRUE(m_navigation.SetRows({}, L"right-rotates", reason));
    EXPECT_EQ(m_navigation.GetNavigation(), L"right-rotates");
    EXPECT_EQ(m_navigation.ListNavigations().back(), L"right-rotates");
}

TEST_F(NavigationChoice, LeavesEverythingForABadRow)
{
    std::wstring reason;

    EXPECT_FALSE(m_navigation.SetRows({{L"left", L"pan"}, {L"left", L"turn"}}, L"default", reason));
    EXPECT_EQ(reason, L"\"turn\" is no action; there are rotate, pan, zoom, window-zoom, "
                      L"select, add and none");
    EXPECT_FALSE(m_navigation.SetRows({}, L"custom", reason));
    EXPECT_EQ(m_navigation.GetNavigation(), L"default");
}

TEST_F(NavigationChoice, ARowThatStandsTwiceIsAnError)
{
    EXPECT_EQ(read("[navigation]\n\"left+middle\" = \"pan\"\n\"middle+left\" = \"zoom\"\n"),
              L"n.toml:3:17: \"middle+left\" is the same row as \"left+middle\"");
}

TEST_F(NavigationChoice, ARowWithSeveralActionsIsAnError)
{
    EXPECT_EQ(read("[navigation]\nright = [\"pan\", \"zoom\"]\n"),
              L"n.toml:2:9: \"right\" has more than one action");
}

TEST_F(NavigationChoice, ErrorsNameTheLine)
{
    EXPECT_EQ(read("[navigation]\nShift = \"pan\"\nleft = \"turn\"\npreset = \"other\"\n"),
              L"n.toml:4:10: \"other\" is no preset; there are default, left-rotates, "
              L"middle-rotates and right-rotates\n" +
                  m_folder.WidePath() +
                  L"/n.toml:2:9: \"Shift\" names no buttons; examples are left, Ctrl-left and "
                  L"Ctrl-Shift-left+middle\n" +
                  m_folder.WidePath() +
                  L"/n.toml:3:8: \"turn\" is no action; there are rotate, pan, zoom, window-zoom, "
                  L"select, add and none");
}

TEST_F(NavigationChoice, RowsOfACommandAreTwiceAnErrorToo)
{
    std::wstring errorText;

    EXPECT_FALSE(
        m_navigation.SetRows({{L"left", L"pan"}, {L"left", L"zoom"}}, L"default", errorText));
    EXPECT_EQ(errorText, L"\"left\" has more than one action");
    EXPECT_FALSE(m_navigation.SetRows({{L"left+right", L"pan"}, {L"right+left", L"zoom"}},
                                      L"left-rotates", errorText));
    EXPECT_EQ(errorText, L"\"right+left\" is the same row as \"left+right\"");
    EXPECT_EQ(m_navigation.GetNavigation(), L"default");
}

TEST_F(NavigationChoice, AnAddingRubberBandKeepsWhatWasSelected)
{
    FakeSession& session = MakeCurrentFakeSession();
    const EntityId first(1, 0, EntityType::Body);
    const EntityId second(2, 0, EntityType::Body);
    m_navigation.SetNavigation(L"middle-rotates");
    m_navigation.Attach(m_controller);
    session.SetPickedEntities({first});

    button(true, 10, 10, kCtrlLeft);
    session.SetPickedEntities({second}); // As a view does at the end of a drag.
    button(false, 60, 35, kCtrlLeft);

    EXPECT_EQ(session.GetPickedEntities(), (std::vector<EntityId>{first, second}));
}

/// What a band prints in the session.
class BandEchoed : public NavigationChoice
{
protected:
    BandEchoed()
    {
        m_session.RegisterOutputCb(&m_output);
        m_navigation.SetNavigation(L"middle-rotates");
        m_navigation.Attach(m_controller);
    }
    ~BandEchoed() override { m_session.UnRegisterOutputCb(&m_output); }

    std::wstring echoOf(MouseGesture held, int x1, int y1, int x2, int y2)
    {
        drag(held, x1, y1, x2, y2);
        return m_output.Messages().empty() ? std::wstring() : m_output.Messages().back().first;
    }

    FakeSession& m_session = MakeCurrentFakeSession();
    RecordingOutputListener m_output;
};

TEST_F(BandEchoed, IsTheCommandThatSelectsTheSame)
{
    EXPECT_EQ(echoOf(kLeft, 10, 20, 60, 35), L"(sel:box 10 20 60 35 'enclosed)");
    EXPECT_EQ(echoOf(kLeft, 60, 35, -5, 20), L"(sel:box 60 35 -5 20 'touching)");
    EXPECT_EQ(echoOf(kCtrlLeft, 10, 20, 10, 35), L"(sel:box 10 20 10 35 'enclosed #t)");
}

TEST_F(BandEchoed, IsNothingForAShakingHandOrABandThatIsGivenUp)
{
    EXPECT_EQ(echoOf(kLeft, 10, 20, 12, 18), L"");
    move(10, 10);
    button(true, 10, 10, kLeft);
    move(90, 90, kLeft);
    key(KeyEventArgs::kEscape, false);
    key(KeyEventArgs::kEscape, true);
    button(false, 90, 90, kLeft);

    EXPECT_TRUE(m_output.Messages().empty());
}

TEST_F(BandEchoed, IsNothingForAWindowZoom)
{
    EXPECT_EQ(echoOf(kAltLeft, 10, 20, 60, 35), L"");
}

} // namespace
