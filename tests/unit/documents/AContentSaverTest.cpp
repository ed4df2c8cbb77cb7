#include "OrvikCore/AContentSaver.h"

#include "FakeContent.h"
#include "FakeLoader.h"
#include "MemoryOrder.h"

#include "OrvikCore/Document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikCore::Document;
using testing::ElementsAre;

namespace {

struct AContentSaver : testing::Test
{
    CallLog m_log;
    Document m_document{nullptr};
    FakeContent m_content{m_document, "content", m_log};
    FakeSaver m_saver{L"STL"};
};

} // namespace

TEST_F(AContentSaver, CanSaveIsFalseForNullWithoutAskingTheSaver)
{
    EXPECT_FALSE(m_saver.CanSave(nullptr, L"STL"));
    EXPECT_EQ(m_saver.m_timesAsked, 0);
}

TEST_F(AContentSaver, CanSaveIsFalseForAContentThatTheSaverRefuses)
{
    FakeContent other(m_document, "other", m_log);
    m_saver.m_only = &other;

    EXPECT_FALSE(m_saver.CanSave(&m_content, L"STL"));
}

TEST_F(AContentSaver, CanSaveAsksTheSaverBeforeItLooksAtExtensions)
{
    EXPECT_FALSE(m_saver.CanSave(&m_content, L"OBJ"));
    EXPECT_EQ(m_saver.m_timesAsked, 1);
}

TEST_F(AContentSaver, CanSaveComparesExtensionsExactly)
{
    EXPECT_TRUE(m_saver.CanSave(&m_content, L"STL"));
    EXPECT_FALSE(m_saver.CanSave(&m_content, L"stl"));
}

TEST_F(AContentSaver, SaveReturnsTheSaversAnswer)
{
    EXPECT_TRUE(m_saver.Save(L"a.stl", &m_content));
    m_saver.m_saves = false;
    EXPECT_FALSE(m_saver.Save(L"b.stl", &m_content));

    EXPECT_EQ(m_saver.m_fileName, L"b.stl");
    EXPECT_THAT(m_saver.m_saved, ElementsAre(&m_content, &m_content));
}

TEST_F(AContentSaver, SaveForgetsTheMessagesOfTheRunBefore)
{
    m_saver.setErrorMessage(L"old");
    m_saver.addWarningMessage(L"old");

    m_saver.Save(L"a.stl", &m_content);

    EXPECT_EQ(m_saver.GetErrorMessage(), L"");
    EXPECT_TRUE(m_saver.GetWarningMessages().empty());
}

TEST_F(AContentSaver, ErrorsGatherOnePerLine)
{
    m_saver.setErrorMessage(L"first");
    m_saver.setErrorMessage(L"second");

    EXPECT_EQ(m_saver.GetErrorMessage(), L"first\nsecond");
}

TEST_F(AContentSaver, WarningsKeepTheirOrder)
{
    m_saver.addWarningMessage(L"one");
    m_saver.addWarningMessage(L"two");

    EXPECT_THAT(m_saver.GetWarningMessages(), ElementsAre(L"one", L"two"));
}

TEST_F(AContentSaver, ValidExtensionsAreThoseOfTheConcreteSaver)
{
    ASSERT_EQ(m_saver.ValidExtensions().size(), 1u);
    EXPECT_EQ(m_saver.ValidExtensions().begin()->first, L"STL");
}

TEST_F(AContentSaver, FieldsKeepTheirOrder)
{
    EXPECT_TRUE(
        LieInThisOrder(&m_saver.validExtensions, &m_saver.errorMessage, &m_saver.warningMessages));
}
