#include "OrvikCore/AViewObject.h"

#include "MemoryOrder.h"
#include "RecordingViewObject.h"
#include "VirtualSlot.h"

#include "OrvikCore/AMarkupViewObject.h"
#include "OrvikCore/TextItem3D.h"

#include <TambVizCore/RenderingOptions.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <type_traits>

using OrvikCore::AMarkupViewObject;
using OrvikCore::AViewObject;
using OrvikCore::TextDirection;
using OrvikCore::TextItem3D;
using TambVizCore::RGBAColor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct ExposedObject : AViewObject
{
    using AViewObject::doClear;
    using AViewObject::doDisplay;
    using AViewObject::doRender;
    using AViewObject::doUpdateRenderOptions;
};

// A view object without a name that takes no options.
class PlainViewObject : public AViewObject
{
protected:
    void doRender() override {}
    void doClear() override {}
    void doDisplay() override {}
};

} // namespace

TEST(AViewObject, StartsVisibleNotRenderedAndWithoutName)
{
    CallLog log;
    const RecordingViewObject object("object", log);

    EXPECT_TRUE(object.IsVisible());
    EXPECT_FALSE(object.IsRendered());
    EXPECT_EQ(PlainViewObject().Name(), "");
}

TEST(AViewObject, NameIsTheOneOfTheDerivedClass)
{
    CallLog log;

    EXPECT_EQ(RecordingViewObject("axes", log).Name(), "axes");
}

TEST(AViewObject, IdsStartAboveSixtyThousand)
{
    EXPECT_EQ(PlainViewObject().Id(), 60001u);
    EXPECT_EQ(PlainViewObject().Id(), 60002u);
}

TEST(AViewObject, RendersOnce)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.Render();
    object.Render();

    EXPECT_THAT(log, ElementsAre("object.render"));
}

TEST(AViewObject, RendersAgainWhenNothingWasBuilt)
{
    CallLog log;
    RecordingViewObject object("object", log);
    object.m_renders = false;

    object.Render();
    object.Render();

    EXPECT_THAT(log, ElementsAre("object.render", "object.render"));
}

TEST(AViewObject, ClearsOnlyWhatIsRendered)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.Clear();
    EXPECT_THAT(log, IsEmpty());
    object.Render();
    object.Clear();
    EXPECT_FALSE(object.IsRendered());
    object.Clear();

    EXPECT_THAT(log, ElementsAre("object.render", "object.clear"));
}

TEST(AViewObject, RendersAgainAfterClear)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.Render();
    object.Clear();
    object.Render();

    EXPECT_THAT(log, ElementsAre("object.render", "object.clear", "object.render"));
}

TEST(AViewObject, DisplaysOnlyWhatIsVisibleAndRendered)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.Display();
    EXPECT_THAT(log, IsEmpty());
    object.Render();
    object.Display();
    object.Display();
    object.SetIsVisible(false);
    object.Display();

    EXPECT_THAT(log, ElementsAre("object.render", "object.display", "object.display"));
}

TEST(AViewObject, ShowingWhatWasNeverRenderedRendersIt)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.SetIsVisible(true);

    EXPECT_TRUE(object.IsRendered());
    EXPECT_THAT(log, ElementsAre("object.render"));
}

TEST(AViewObject, HidingWhatWasNeverRenderedRendersItToo)
{
    CallLog log;
    RecordingViewObject object("object", log);

    object.SetIsVisible(false);

    EXPECT_FALSE(object.IsVisible());
    EXPECT_THAT(log, ElementsAre("object.render"));
}

TEST(AViewObject, HidingKeepsTheGeometry)
{
    CallLog log;
    RecordingViewObject object("object", log);
    object.Render();

    object.SetIsVisible(false);
    object.SetIsVisible(true);
    object.Display();

    EXPECT_THAT(log, ElementsAre("object.render", "object.display"));
}

TEST(AViewObject, OptionsReachTheObjectUnlessNull)
{
    CallLog log;
    RecordingViewObject object("object", log);
    const TambVizCore::RenderingOptions options;

    object.RenderOptionsUpdated(nullptr);
    EXPECT_EQ(object.m_options, nullptr);
    object.RenderOptionsUpdated(&options);
    EXPECT_EQ(object.m_options, &options);
}

TEST(AViewObject, TakesOptionsWithoutEffectByDefault)
{
    PlainViewObject object;
    const TambVizCore::RenderingOptions options;

    EXPECT_NO_THROW(object.RenderOptionsUpdated(&options));
    EXPECT_TRUE(object.IsVisible());
}

TEST(AViewObject, ACopyHasTheSameId)
{
    CallLog log;
    const RecordingViewObject object("object", log);
    const RecordingViewObject copy(object);

    EXPECT_EQ(copy.Id(), object.Id());
    EXPECT_EQ(copy.Name(), "object");
}

TEST(AViewObject, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&AViewObject::SetIsVisible), 2);
    EXPECT_EQ(VirtualSlot(&ExposedObject::doRender), 3);
    EXPECT_EQ(VirtualSlot(&ExposedObject::doClear), 4);
    EXPECT_EQ(VirtualSlot(&ExposedObject::doDisplay), 5);
    EXPECT_EQ(VirtualSlot(&ExposedObject::doUpdateRenderOptions), 6);
    EXPECT_EQ(VirtualSlot(&AViewObject::Render), -1);
    EXPECT_EQ(VirtualSlot(&AViewObject::Clear), -1);
    EXPECT_EQ(VirtualSlot(&AViewObject::Display), -1);
    EXPECT_EQ(VirtualSlot(&AViewObject::RenderOptionsUpdated), -1);
}

TEST(AMarkupViewObject, TakesClosedBeforeFilled)
{
    const FakeMarkup closed(true, false, RGBAColor(1, 2, 3, 4));
    const FakeMarkup filled(false, true, RGBAColor(1, 2, 3, 4));

    EXPECT_TRUE(closed.GetClosed());
    EXPECT_FALSE(closed.GetFilled());
    EXPECT_FALSE(filled.GetClosed());
    EXPECT_TRUE(filled.GetFilled());
    EXPECT_EQ(closed.GetColor(), RGBAColor(1, 2, 3, 4));
}

TEST(AMarkupViewObject, SettersStore)
{
    FakeMarkup markup(false, false, RGBAColor(1, 2, 3, 4));

    markup.SetClosed(true);
    markup.SetFilled(true);
    markup.SetColor(RGBAColor(5, 6, 7, 8));

    EXPECT_TRUE(markup.GetClosed());
    EXPECT_TRUE(markup.GetFilled());
    EXPECT_EQ(markup.GetColor(), RGBAColor(5, 6, 7, 8));
}

TEST(AMarkupViewObject, AddsThreeOperationsAfterTheInheritedOnes)
{
    EXPECT_EQ(VirtualSlot(&AMarkupViewObject::AddPolyline), 7);
    EXPECT_EQ(VirtualSlot(&AMarkupViewObject::RemovePolylines), 8);
    EXPECT_EQ(VirtualSlot(&AMarkupViewObject::CountPolylines), 9);
}

TEST(TextItem3D, StoresItsArgumentsFieldByField)
{
    const TextItem3D item(L"text", true, L"Sans", 1.0f, 2.0f, 3.0f, TextDirection::PositiveY,
                          TextDirection::NegativeZ, true, false, 4.0f, 5.0f, 6.0f, L"tip",
                          RGBAColor(1, 2, 3), RGBAColor(4, 5, 6, 7));

    EXPECT_EQ(item.m_text, L"text");
    EXPECT_TRUE(item.m_facesCamera);
    EXPECT_EQ(item.m_fontName, L"Sans");
    EXPECT_EQ(item.m_x, 1.0f);
    EXPECT_EQ(item.m_y, 2.0f);
    EXPECT_EQ(item.m_z, 3.0f);
    EXPECT_EQ(item.m_readingDirection, TextDirection::PositiveY);
    EXPECT_EQ(item.m_upDirection, TextDirection::NegativeZ);
    EXPECT_TRUE(item.m_bold);
    EXPECT_FALSE(item.m_italic);
    EXPECT_EQ(item.m_height, 4.0f);
    EXPECT_EQ(item.m_offsetX, 5.0f);
    EXPECT_EQ(item.m_offsetY, 6.0f);
    EXPECT_EQ(item.m_toolTip, L"tip");
    EXPECT_EQ(item.m_textColor, RGBAColor(1, 2, 3));
    EXPECT_EQ(item.m_backgroundColor, RGBAColor(4, 5, 6, 7));
}

TEST(TextItem3D, IsCopyableAndMovable)
{
    EXPECT_TRUE(std::is_copy_assignable_v<TextItem3D>);
    EXPECT_TRUE(std::is_move_constructible_v<TextItem3D>);
}

TEST(AViewObject, FieldsKeepTheirOrder)
{
    CallLog log;
    const RecordingViewObject object("object", log);

    EXPECT_TRUE(LieInThisOrder(&object.id, &object.name, &object.visible, &object.rendered));
}
