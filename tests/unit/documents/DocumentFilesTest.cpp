#include "FakeContent.h"
#include "FakeLoader.h"

#include "OrvikCore/Document.h"
#include "OrvikCore/SessionMgr.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using OrvikCore::Document;
using OrvikCore::SessionMgr;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr wchar_t kNoLoaderForFile[] =
    L"Cannot find a loader for a.xyz with the requested settings! If the required loader is "
    L"already registered with this Pellux session,  check the 'Force Graphical Mode' and 'Force "
    L"ProductStructure Mode' settings under the Preferences dialog, or using the "
    L"WEND.getForceGraphicalMode() and WEND.getForceProductStructureMode() commands.";

// The contents write to one log of the process: the session manager keeps loaders to its end.
struct DocumentFiles : testing::Test
{
    static CallLog& log()
    {
        static CallLog calls;
        return calls;
    }
    FakeContent& add(const std::string& name)
    {
        auto* const content = new FakeContent(m_document, name, log());
        m_document.AddContent(*content);
        return *content;
    }
    FakeLoader& registerLoader(bool isImporter = false)
    {
        auto* const loader = new FakeLoader(L"STL", log(), isImporter);
        SessionMgr::Instance().RegisterContentLoader(loader);
        return *loader;
    }
    FakeSaver& registerSaver()
    {
        auto* const saver = new FakeSaver(L"STL");
        SessionMgr::Instance().RegisterContentSaver(saver);
        return *saver;
    }

    Document m_document{nullptr};
    std::wstring m_error = L"stale";
    std::vector<std::wstring> m_warnings = {L"stale"};
};

} // namespace

TEST_F(DocumentFiles, ReplacingUsesALoaderAndDropsTheOldContents)
{
    registerLoader(/*isImporter=*/true);
    FakeLoader& loader = registerLoader();
    add("old");

    EXPECT_TRUE(m_document.LoadContent(L"a.stl", &m_error, /*replace=*/true, &m_warnings));
    EXPECT_EQ(loader.m_fileName, L"a.stl");
    EXPECT_THAT(log(), ElementsAre("old.deleted"));
    EXPECT_EQ(m_document.GetContentList().size(), 1u);
}

TEST_F(DocumentFiles, AddingUsesAnImporterAndKeepsTheOldContents)
{
    registerLoader();
    FakeLoader& importer = registerLoader(/*isImporter=*/true);
    add("old");

    EXPECT_TRUE(m_document.LoadContent(L"a.stl", &m_error, /*replace=*/false, &m_warnings));
    EXPECT_EQ(importer.m_fileName, L"a.stl");
    EXPECT_EQ(m_document.GetContentList().size(), 2u);
}

TEST_F(DocumentFiles, ReplacingWithoutLoaderEmptiesTheDocument)
{
    add("old");

    EXPECT_FALSE(m_document.LoadContent(L"a.xyz", &m_error, /*replace=*/true, &m_warnings));
    EXPECT_EQ(m_error, kNoLoaderForFile);
    EXPECT_THAT(m_document.GetContentList(), IsEmpty());
    EXPECT_THAT(m_warnings, ElementsAre(L"stale"));
}

TEST_F(DocumentFiles, AddingWithoutImporterKeepsTheDocument)
{
    registerLoader();
    add("old");

    EXPECT_FALSE(m_document.LoadContent(L"a.xyz", &m_error, /*replace=*/false, nullptr));
    EXPECT_EQ(m_error, kNoLoaderForFile);
    EXPECT_EQ(m_document.GetContentList().size(), 1u);
}

TEST_F(DocumentFiles, NoLoaderIsReportedAlsoWithoutATextToFill)
{
    EXPECT_FALSE(m_document.LoadContent(L"a.xyz", nullptr, /*replace=*/true, nullptr));
}

TEST_F(DocumentFiles, LoadErrorIsHandedBackAndFails)
{
    FakeLoader loader(L"STL", log());
    loader.m_errors = {L"bad", L"worse"};

    EXPECT_FALSE(m_document.LoadContent(loader, L"a.stl", &m_error, &m_warnings));
    EXPECT_EQ(m_error, L"bad\nworse");
}

TEST_F(DocumentFiles, LoadErrorIsSeenOnlyAsAnEmptyDocumentWithoutATextToFill)
{
    FakeLoader loader(L"STL", log());
    loader.m_errors = {L"bad"};

    EXPECT_TRUE(m_document.LoadContent(loader, L"a.stl", nullptr, nullptr));
    m_document.ClearContents();
    loader.m_addsContent = false;
    EXPECT_FALSE(m_document.LoadContent(loader, L"a.stl", nullptr, nullptr));
}

TEST_F(DocumentFiles, WarningsReplaceTheCallersAndDoNotFail)
{
    FakeLoader loader(L"STL", log());
    loader.m_warnings = {L"one", L"two"};

    EXPECT_TRUE(m_document.LoadContent(loader, L"a.stl", &m_error, &m_warnings));
    EXPECT_EQ(m_error, L"");
    EXPECT_THAT(m_warnings, ElementsAre(L"one", L"two"));
}

TEST_F(DocumentFiles, WarningsAreHandedBackBesideAnError)
{
    FakeLoader loader(L"STL", log());
    loader.m_errors = {L"bad"};
    loader.m_warnings = {L"one"};

    EXPECT_FALSE(m_document.LoadContent(loader, L"a.stl", &m_error, &m_warnings));
    EXPECT_THAT(m_warnings, ElementsAre(L"one"));
}

TEST_F(DocumentFiles, LoadWithoutErrorAndWithoutContentFails)
{
    FakeLoader loader(L"STL", log());
    loader.m_addsContent = false;

    EXPECT_FALSE(m_document.LoadContent(loader, L"a.stl", &m_error, nullptr));
    EXPECT_EQ(m_error, L"");
}

TEST_F(DocumentFiles, SavingAnEmptyDocumentReportsNoSaver)
{
    registerSaver();

    EXPECT_FALSE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"Could not save a.stl. Saver for a.stl not registered.");
}

TEST_F(DocumentFiles, SavingWithoutSaverReportsNoSaver)
{
    add("content");

    EXPECT_FALSE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"Could not save a.stl. Saver for a.stl not registered.");
}

TEST_F(DocumentFiles, OnlyTheFirstContentThatIsSavedIsWritten)
{
    FakeSaver& saver = registerSaver();
    FakeContent& first = add("first");
    add("second");

    EXPECT_TRUE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_THAT(saver.m_saved, ElementsAre(&first));
    EXPECT_EQ(saver.m_fileName, L"a.stl");
}

TEST_F(DocumentFiles, ContentsWithoutSaverArePassedOver)
{
    FakeSaver& saver = registerSaver();
    add("first");
    FakeContent& second = add("second");
    saver.m_only = &second;

    EXPECT_TRUE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_THAT(saver.m_saved, ElementsAre(&second));
    EXPECT_EQ(m_error, L"");
}

TEST_F(DocumentFiles, ContentsWhoseSaverFailedArePassedOver)
{
    FakeSaver& failing = registerSaver();
    FakeSaver& working = registerSaver();
    FakeContent& first = add("first");
    FakeContent& second = add("second");
    failing.m_only = &first;
    failing.m_saves = false;
    failing.m_errors = {L"disk full"};
    working.m_only = &second;

    EXPECT_TRUE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"");
}

TEST_F(DocumentFiles, SaverErrorIsWrappedWhenNothingWasSaved)
{
    FakeSaver& saver = registerSaver();
    add("content");
    saver.m_saves = false;
    saver.m_errors = {L"disk full"};

    EXPECT_FALSE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"Could not save a.stl : disk full");
}

TEST_F(DocumentFiles, ASaverThatFailsWithoutWordsCountsAsNotRegistered)
{
    FakeSaver& saver = registerSaver();
    add("content");
    saver.m_saves = false;

    EXPECT_FALSE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"Could not save a.stl. Saver for a.stl not registered.");
}

TEST_F(DocumentFiles, AMessageOfASaverThatSavedIsHandedBackAsItIs)
{
    FakeSaver& saver = registerSaver();
    add("content");
    saver.m_errors = {L"some detail was lost"};

    EXPECT_TRUE(m_document.SaveContent(L"a.stl", &m_error));
    EXPECT_EQ(m_error, L"some detail was lost");
}

TEST_F(DocumentFiles, SavingWorksWithoutATextToFill)
{
    registerSaver();
    add("content");

    EXPECT_TRUE(m_document.SaveContent(L"a.stl", nullptr));
    EXPECT_FALSE(m_document.SaveContent(L"a.xyz", nullptr));
}
