#include <gtest/gtest.h>
#include <view/EventTranslation.h>

#include <QKeyEvent>

using OrvikCore::ModifierKey;

namespace {

TEST(EventTranslation, NumbersButtonsAsTheCoreDoes)
{
    EXPECT_EQ(static_cast<int>(Pellux::ToButtons(Qt::LeftButton)), 1);
    EXPECT_EQ(static_cast<int>(Pellux::ToButtons(Qt::RightButton)), 2);
    EXPECT_EQ(static_cast<int>(Pellux::ToButtons(Qt::MiddleButton)), 4);
    EXPECT_EQ(static_cast<int>(Pellux::ToButtons(Qt::LeftButton | Qt::MiddleButton)), 5);
    EXPECT_EQ(static_cast<int>(Pellux::ToButtons(Qt::BackButton)), 0);
}

TEST(EventTranslation, ModifiersLeaveTheKeyItselfOut)
{
    const QKeyEvent press(QEvent::KeyPress, Qt::Key_Control,
                          Qt::ControlModifier | Qt::ShiftModifier);
    const auto key = Pellux::ToKey(press, /*isUp=*/false);
    ASSERT_TRUE(key.has_value());
    EXPECT_EQ(key->ModifierKeys(), ModifierKey::Shift);
}

TEST(EventTranslation, OnlyKeysWithoutCharacterAreReleased)
{
    const QKeyEvent letter(QEvent::KeyRelease, Qt::Key_A, Qt::NoModifier);
    EXPECT_FALSE(Pellux::ToKey(letter, /*isUp=*/true).has_value());
    const QKeyEvent shift(QEvent::KeyRelease, Qt::Key_Shift, Qt::NoModifier);
    const auto key = Pellux::ToKey(shift, /*isUp=*/true);
    ASSERT_TRUE(key.has_value());
    EXPECT_TRUE(key->IsKeyUp());
    EXPECT_EQ(key->Key(), OrvikCore::KeyEventArgs::kShift);
}

TEST(WheelNotches, CollectsFineStepsUntilTheyMakeANotch)
{
    Pellux::WheelNotches notches;
    EXPECT_EQ(notches.Add(60), 0);
    EXPECT_EQ(notches.Add(60), -1);
    EXPECT_EQ(notches.Add(-240), 2);
}

TEST(WheelNotches, TurningBackBeginsAnew)
{
    Pellux::WheelNotches notches;
    EXPECT_EQ(notches.Add(100), 0);
    EXPECT_EQ(notches.Add(-100), 0);
    EXPECT_EQ(notches.Add(-20), 1);
}

} // namespace
