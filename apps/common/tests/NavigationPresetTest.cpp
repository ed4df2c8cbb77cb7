#include "NavigationFixture.h"

#include <map>
#include <ostream>
#include <string>
#include <vector>

// What every button does with every modifier key, preset by preset: the table of
// docs/interaction.md.
namespace {

using OrvikCore::KeyEventArgs;
using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;

constexpr const wchar_t* kButtons[] = {L"left", L"middle", L"right"};
constexpr const wchar_t* kModifiers[] = {L"", L"Ctrl-", L"Shift-", L"Alt-", L"Ctrl-Shift-"};

/// What is not named here does nothing.
const std::map<std::wstring, std::wstring> kActions[] = {{{L"left", L"rotate"},
                                                          {L"middle", L"pan"},
                                                          {L"right", L"zoom"},
                                                          {L"Shift-left", L"select"},
                                                          {L"Ctrl-Shift-left", L"add"},
                                                          {L"Alt-left", L"window zoom"}},
                                                         {{L"left", L"select"},
                                                          {L"Ctrl-left", L"add"},
                                                          {L"middle", L"rotate"},
                                                          {L"Ctrl-middle", L"pan"},
                                                          {L"Shift-middle", L"zoom"},
                                                          {L"Alt-left", L"window zoom"}},
                                                         {{L"left", L"select"},
                                                          {L"Ctrl-left", L"add"},
                                                          {L"right", L"rotate"},
                                                          {L"middle", L"pan"},
                                                          {L"Shift-right", L"pan"},
                                                          {L"Ctrl-right", L"zoom"},
                                                          {L"Alt-left", L"window zoom"}}};

/// The operations of a drag from (10, 10) to (60, 35).
const std::map<std::wstring, std::string> kOperations = {
    {L"", ""},
    {L"rotate", "ViewOpRotate: mouseX = 60 mouseY = 35 prevX = 10 prevY = 10 state = processing; "},
    {L"pan", "ViewOpPan: mouseX = 60 mouseY = 35 prevX = 10 prevY = 10; "},
    {L"zoom", "ViewOpZoom; "},
    {L"select", "drag1 drag2 drag3 "},
    {L"add", "drag1 drag2 drag3 "},
    {L"window zoom",
     "drag1 drag2 drag4 ViewOpPan: mouseX = 100 mouseY = 50 prevX = 35 prevY = 22; ViewOpZoom; "}};

struct Case
{
    std::size_t preset = 0;
    std::wstring gesture;
    std::wstring action; ///< Empty for nothing.
};

void PrintTo(const Case& tested, std::ostream* out)
{
    *out << testing::PrintToString(tested.gesture);
}

std::vector<Case> allCases()
{
    std::vector<Case> cases;
    for (std::size_t preset = 0; preset < std::size(kActions); ++preset)
        for (const wchar_t* const modifiers : kModifiers)
            for (const wchar_t* const button : kButtons) {
                const std::wstring gesture = std::wstring(modifiers) + button;
                const auto found = kActions[preset].find(gesture);
                cases.push_back(
                    {preset, gesture, found == kActions[preset].end() ? L"" : found->second});
            }
    return cases;
}

class PresetGesture : public TableStrategy, public testing::WithParamInterface<Case>
{
protected:
    PresetGesture()
    {
        EXPECT_TRUE(MouseGesture::FromText(GetParam().gesture, m_held));
        use(GetParam().preset);
    }
    bool isBand() const
    {
        const std::wstring& action = GetParam().action;
        return action == L"select" || action == L"add" || action == L"window zoom";
    }

    MouseGesture m_held;
};

TEST_P(PresetGesture, DragDoesWhatTheTableSays)
{
    EXPECT_EQ(drag(m_held), kOperations.at(GetParam().action));
    EXPECT_EQ(m_state->isAdding, GetParam().action == L"add");
}

TEST_P(PresetGesture, NothingIsLeftOverForTheNextMotion)
{
    drag(m_held);
    move(70, 40);

    EXPECT_EQ(m_log.Take(), "");
}

TEST_P(PresetGesture, EscapeInTheMiddleEndsABandAndNothingElse)
{
    move(10, 10, {m_held.modifiers, MouseButton::None});
    button(true, 10, 10, m_held);
    move(60, 35, m_held);
    m_log.Take();
    key(KeyEventArgs::kEscape, false);
    // Elsewhere it ends a rubber band that is not there.
    EXPECT_EQ(m_log.Take(), isBand() ? "drag4 " : "drag3 ");

    key(KeyEventArgs::kEscape, true);
    button(false, 60, 35, m_held);
    // Outside a band Escape clears the selection as ever.
    EXPECT_EQ(m_log.Take(), isBand() ? "" : "pick ");
}

TEST_P(PresetGesture, AMotionBackwardsUndoesADrag)
{
    move(10, 10, {m_held.modifiers, MouseButton::None});
    button(true, 10, 10, m_held);
    move(60, 35, m_held);
    m_log.Take();
    move(10, 10, m_held);
    const std::string back = m_log.Take();
    button(false, 10, 10, m_held);

    const std::wstring& action = GetParam().action;
    if (action == L"rotate" || action == L"pan")
        EXPECT_NE(back.find("mouseX = 10 mouseY = 10 prevX = 60 prevY = 35"), std::string::npos)
            << back;
    else if (action == L"zoom")
        EXPECT_EQ(back, "ViewOpZoom; ");
    else
        EXPECT_EQ(back, isBand() ? "drag2 " : "");
}

std::string nameOf(const testing::TestParamInfo<Case>& tested)
{
    constexpr const char* kNames[] = {"LeftRotates_", "MiddleRotates_", "RightRotates_"};
    const std::wstring& gesture = tested.param.gesture;
    std::string name(gesture.begin(), gesture.end());
    std::erase(name, '-');
    return kNames[tested.param.preset] + name;
}

INSTANTIATE_TEST_SUITE_P(All, PresetGesture, testing::ValuesIn(allCases()), nameOf);

} // namespace
