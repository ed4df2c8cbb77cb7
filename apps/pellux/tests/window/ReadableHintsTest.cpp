#include <WindowFixture.h>
#include <window/ReadableHints.h>

#include <QApplication>
#include <QLineEdit>
#include <algorithm>
#include <cmath>

namespace {

const QColor kBlack(0, 0, 0);
const QColor kWhite(255, 255, 255);
const QColor kDarkBase(0x1b, 0x1e, 0x20);
const QColor kDarkText(0xfc, 0xfc, 0xfc);

/// A palette as a desktop gives it that knows nothing of hints.
QPalette paletteOf(const QColor& text, const QColor& base)
{
    QPalette palette;
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        palette.setColor(group, QPalette::Text, text);
        palette.setColor(group, QPalette::WindowText, text);
        palette.setColor(group, QPalette::Base, base);
        palette.setColor(group, QPalette::Window, base);
    }
    return palette;
}

/// What lets half of black or white through, in front of the other one of them or of a grey.
double grey(const QColor& front, const QColor& behind)
{
    const double share = static_cast<double>(front.alphaF());
    const double value = static_cast<double>(front.redF()) * share +
                         static_cast<double>(behind.redF()) * (1.0 - share);
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

double contrastOfGreys(const QColor& front, const QColor& behind)
{
    const double one = grey(front, behind);
    const double other = grey(behind, behind);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

double contrastOfHint(QWidget& field)
{
    // What is not shown follows no palette.
    field.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(field.palette().color(QPalette::Base), QApplication::palette().color(QPalette::Base));
    return contrastOfGreys(field.palette().color(QPalette::PlaceholderText),
                           field.palette().color(QPalette::Base));
}

class ReadableHintsTest : public ::testing::Test
{
protected:
    ~ReadableHintsTest() override { QApplication::setPalette(QPalette()); }
};

TEST_F(ReadableHintsTest, ContrastIsThatOfTheWebsGuidelines)
{
    EXPECT_NEAR(Pellux::ReadableHints::Contrast(kBlack, kWhite), 21.0, 1e-6);
    EXPECT_NEAR(Pellux::ReadableHints::Contrast(QColor(0x77, 0x77, 0x77), kWhite), 4.48, 0.005);
    EXPECT_NEAR(Pellux::ReadableHints::Contrast(QColor(255, 0, 0), kWhite), 4.0, 0.005);
    EXPECT_NEAR(Pellux::ReadableHints::Contrast(QColor(0, 0, 0, 0), kWhite), 1.0, 1e-6);
}

TEST_F(ReadableHintsTest, HintsCanBeReadOnDarkAndLightPalettesInTurn)
{
    const Pellux::ReadableHints hints;
    QLineEdit field;
    QPalette dark = paletteOf(kDarkText, kDarkBase);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));

    for (int turn = 0; turn < 2; ++turn) {
        QApplication::setPalette(dark);
        EXPECT_GE(contrastOfHint(field), 3.0);
        QApplication::setPalette(paletteOf(kBlack, kWhite));
        EXPECT_GE(contrastOfHint(field), 3.0);
        EXPECT_EQ(field.palette().color(QPalette::Text), kBlack);
    }
}

TEST_F(ReadableHintsTest, HintsFollowADesktopThatChangesEverythingElse)
{
    const Pellux::ReadableHints hints;
    QPalette dark = paletteOf(kDarkText, kDarkBase);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    QApplication::setPalette(dark);
    QPalette light = QApplication::palette();
    const QColor onDark = light.color(QPalette::PlaceholderText);
    light.setColor(QPalette::Text, kBlack);
    light.setColor(QPalette::Base, kWhite);
    QApplication::setPalette(light);

    QLineEdit field;
    EXPECT_NE(field.palette().color(QPalette::PlaceholderText), onDark);
    EXPECT_GE(contrastOfHint(field), 3.0);
}

TEST_F(ReadableHintsTest, OtherColoursStayThoseOfTheDesktop)
{
    const Pellux::ReadableHints hints;
    const QColor base = QApplication::palette().color(QPalette::Base);
    QPalette dark;
    dark.setColor(QPalette::Text, kDarkText);
    dark.setColor(QPalette::PlaceholderText, base);
    QApplication::setPalette(dark);
    EXPECT_FALSE(QApplication::palette().isBrushSet(QPalette::Active, QPalette::Base));
    QApplication::setPalette(QPalette());

    EXPECT_FALSE(QApplication::palette().isBrushSet(QPalette::Active, QPalette::Text));
    QLineEdit field;
    EXPECT_GE(contrastOfHint(field), 3.0);
}

TEST_F(ReadableHintsTest, AHintIsPalerThanTextUnlessTextIsPaleItself)
{
    const Pellux::ReadableHints hints;
    QPalette dark = paletteOf(kDarkText, kDarkBase);
    dark.setColor(QPalette::PlaceholderText, kDarkBase);
    QApplication::setPalette(dark);
    EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText).alpha(), 128);

    QPalette pale = paletteOf(QColor(0x70, 0x70, 0x70), kDarkBase);
    pale.setColor(QPalette::PlaceholderText, kDarkBase);
    QApplication::setPalette(pale);
    EXPECT_GT(QApplication::palette().color(QPalette::PlaceholderText).alpha(), 200);
    EXPECT_LE(QApplication::palette().color(QPalette::PlaceholderText).alpha(), 255);
}

TEST_F(ReadableHintsTest, AColourThatCanBeReadStays)
{
    const Pellux::ReadableHints hints;
    const QColor own(0x88, 0xaa, 0xcc);
    QPalette dark = paletteOf(kDarkText, kDarkBase);
    dark.setColor(QPalette::PlaceholderText, own);
    QApplication::setPalette(dark);

    EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText), own);
}

TEST_F(ReadableHintsTest, TheDesktopsColourIsBackAfterwards)
{
    const QColor before = QApplication::palette().color(QPalette::PlaceholderText);
    {
        const Pellux::ReadableHints hints;
        QPalette dark = paletteOf(kDarkText, kDarkBase);
        QApplication::setPalette(dark);
    }

    EXPECT_EQ(QApplication::palette().color(QPalette::PlaceholderText), before);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), kDarkBase);
}

class HintsOfTheWindow : public WindowFixture
{
};

TEST_F(HintsOfTheWindow, EveryFieldWithAHintShowsItOnADarkDesktop)
{
    Open();
    ASSERT_TRUE(Do("(app:show-panel \"commands\" #t)"));
    QPalette dark = paletteOf(kDarkText, kDarkBase);
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128));
    QApplication::setPalette(dark);

    int fields = 0;
    for (QWidget* const widget : Window().findChildren<QWidget*>()) {
        if (widget->property("placeholderText").toString().isEmpty())
            continue;
        ++fields;
        EXPECT_GE(contrastOfHint(*widget), 3.0) << qPrintable(widget->accessibleName());
    }
    EXPECT_GE(fields, 4);
}

} // namespace
