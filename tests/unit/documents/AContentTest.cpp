#include "OrvikCore/AContent.h"

#include "FakeContent.h"
#include "VirtualSlot.h"

#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/Document.h"

#include <TambVizCore/RenderId.h>

#include <gtest/gtest.h>

#include <type_traits>

using OrvikCore::AContent;
using OrvikCore::AContentFactory;
using OrvikCore::Document;

TEST(AContent, KnowsItsDocument)
{
    CallLog log;
    Document document(nullptr);
    FakeContent content(document, "content", log);

    EXPECT_EQ(&content.GetDocument(), &document);
}

TEST(AContent, ACopyBelongsToTheSameDocument)
{
    CallLog log;
    Document document(nullptr);
    FakeContent content(document, "content", log);
    FakeContent copy(content);

    EXPECT_EQ(&copy.GetDocument(), &document);
}

TEST(AContent, TryHighlightDeclinesByDefault)
{
    CallLog log;
    Document document(nullptr);
    FakeContent content(document, "content", log);

    EXPECT_FALSE(content.TryHighlight(TambVizCore::RenderId()));
}

TEST(AContent, VirtualOperationsKeepTheirOrder)
{
    EXPECT_EQ(VirtualSlot(&AContent::GetShortId), 2);
    EXPECT_EQ(VirtualSlot(&AContent::GetLongId), 3);
    EXPECT_EQ(VirtualSlot(&AContent::NoteState), 4);
    EXPECT_EQ(VirtualSlot(&AContent::Undo), 5);
    EXPECT_EQ(VirtualSlot(&AContent::Redo), 6);
    EXPECT_EQ(VirtualSlot(&AContent::GetTypeName), 7);
    EXPECT_EQ(VirtualSlot(&AContent::GetBoundingBox), 8);
    EXPECT_EQ(VirtualSlot(&AContent::ClearSelection), 9);
    EXPECT_EQ(VirtualSlot(&AContent::TryHighlight), 10);
    EXPECT_EQ(VirtualSlot(&AContent::RayPick), 11);
    EXPECT_EQ(VirtualSlot(&AContent::GetDocument), -1);
}

TEST(AContentFactory, HasOneOperationAndNoVirtualDestructor)
{
    EXPECT_EQ(VirtualSlot(&AContentFactory::CreateContent), 0);
    EXPECT_FALSE(std::has_virtual_destructor_v<AContentFactory>);
    EXPECT_TRUE(std::is_trivially_destructible_v<AContentFactory>);
    EXPECT_EQ(sizeof(AContentFactory), sizeof(void*));
}
