#include "OrvikCore/AContentLoader.h"

#include "FakeLoader.h"
#include "MemoryOrder.h"

#include "OrvikCore/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikCore::Document;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(AContentLoader, TypeNameIsTheBaseNameUntilReplaced)
{
    CallLog log;
    FakeLoader loader(L"STL", log);

    EXPECT_EQ(loader.TypeName(), "OrvikCore::AContentLoader");
    loader.typeName = "Fake";
    EXPECT_EQ(loader.TypeName(), "Fake");
}

TEST(AContentLoader, IsNoImporterUnlessItSaysSo)
{
    CallLog log;

    EXPECT_FALSE(FakeLoader(L"STL", log).IsImporter());
    EXPECT_TRUE(FakeLoader(L"STL", log, /*isAnImporter=*/true).IsImporter());
}

TEST(AContentLoader, CanLoadComparesExtensionsExactly)
{
    CallLog log;
    FakeLoader loader(L"STL", log);

    EXPECT_TRUE(loader.CanLoad(L"STL"));
    EXPECT_FALSE(loader.CanLoad(L"stl"));
    EXPECT_FALSE(loader.CanLoad(L"ST"));
    EXPECT_FALSE(loader.CanLoad(L""));
}

TEST(AContentLoader, CanLoadAsksTheLoaderOnlyForAnExtensionThatMatched)
{
    CallLog log;
    FakeLoader loader(L"STL", log);

    loader.CanLoad(L"OBJ");
    EXPECT_THAT(loader.m_extensionsAsked, IsEmpty());
    loader.CanLoad(L"STL");
    EXPECT_THAT(loader.m_extensionsAsked, ElementsAre(L"STL"));
}

TEST(AContentLoader, CanLoadAsksOnceThoughTheExtensionIsListedTwice)
{
    CallLog log;
    FakeLoader loader(L"STL", log);
    loader.validExtensions.insert({L"STL", L"Another description"});
    loader.m_accepts = false;

    EXPECT_FALSE(loader.CanLoad(L"STL"));
    EXPECT_THAT(loader.m_extensionsAsked, ElementsAre(L"STL"));
}

TEST(AContentLoader, CanLoadIsFalseWhenTheLoaderRefuses)
{
    CallLog log;
    FakeLoader loader(L"STL", log);
    loader.m_accepts = false;

    EXPECT_FALSE(loader.CanLoad(L"STL"));
}

TEST(AContentLoader, ErrorsGatherOnePerLine)
{
    CallLog log;
    FakeLoader loader(L"STL", log);

    loader.setErrorMessage(L"first");
    EXPECT_EQ(loader.GetErrorMessage(), L"first");
    loader.setErrorMessage(L"second");
    EXPECT_EQ(loader.GetErrorMessage(), L"first\nsecond");
}

TEST(AContentLoader, WarningsKeepTheirOrder)
{
    CallLog log;
    FakeLoader loader(L"STL", log);

    loader.addWarningMessage(L"one");
    loader.addWarningMessage(L"two");

    EXPECT_THAT(loader.GetWarningMessages(), ElementsAre(L"one", L"two"));
}

TEST(AContentLoader, LoadForgetsTheMessagesOfTheRunBefore)
{
    CallLog log;
    Document document(nullptr);
    FakeLoader loader(L"STL", log);
    loader.m_errors = {L"error"};
    loader.m_warnings = {L"warning"};
    loader.Load(L"a.stl", document);

    loader.Load(L"b.stl", document);

    EXPECT_EQ(loader.GetErrorMessage(), L"error");
    EXPECT_THAT(loader.GetWarningMessages(), ElementsAre(L"warning"));
}

TEST(AContentLoader, LoadHandsFileNameAndDocumentOn)
{
    CallLog log;
    Document document(nullptr);
    FakeLoader loader(L"STL", log);

    loader.Load(L"folder/a.stl", document);

    EXPECT_EQ(loader.m_fileName, L"folder/a.stl");
    EXPECT_EQ(document.GetContentList().size(), 1u);
}

TEST(AContentLoader, ValidExtensionsAreOrdered)
{
    CallLog log;
    FakeLoader loader(L"STL", log);
    loader.validExtensions.insert({L"OBJ", L""});

    EXPECT_EQ(loader.ValidExtensions().begin()->first, L"OBJ");
    EXPECT_EQ(loader.ValidExtensions().size(), 2u);
}

TEST(AContentLoader, FieldsKeepTheirOrder)
{
    CallLog log;
    const FakeLoader loader(L"STL", log);

    EXPECT_TRUE(LieInThisOrder(&loader.typeName, &loader.validExtensions, &loader.isImporter,
                               &loader.errorMessage, &loader.warningMessages));
}
