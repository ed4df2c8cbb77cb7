// Finding loaders, importers and savers by the name of a file.
#include "OrvikCore/AContentLoader.h"
#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/SessionMgr.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Texts = std::vector<std::wstring>;

/// A loader of one extension.
class ExtensionLoader : public OrvikCore::AContentLoader
{
public:
    explicit ExtensionLoader(const std::wstring& extension, bool importer = false)
    {
        validExtensions.insert({extension, L"test"});
        isImporter = importer;
    }

protected:
    bool canLoad(const std::wstring&) const override { return true; }
    void load(const std::wstring&, OrvikCore::Document&) override {}
};

/// A saver that takes every extension of its list and any content, null included in the asking.
class ExtensionSaver : public OrvikCore::AContentSaver
{
public:
    explicit ExtensionSaver(const std::wstring& extension)
    {
        validExtensions.insert({extension, L"test"});
    }

    Texts m_asked;

protected:
    bool save(const std::wstring&, OrvikCore::AContent*) override { return false; }
    bool canSave(OrvikCore::AContent*, const std::wstring& extension) override
    {
        m_asked.push_back(extension);
        return true;
    }
};

OrvikCore::SessionMgr& manager()
{
    return OrvikCore::SessionMgr::Instance();
}

/// Only its address counts.
OrvikCore::AContent* someContent()
{
    static int place = 0;
    return reinterpret_cast<OrvikCore::AContent*>(&place);
}

/// The extension that a path is looked up with, of those given; "<none>" if of none.
std::wstring loaderExtension(const std::wstring& path, const Texts& candidates, bool importer)
{
    for (const std::wstring& candidate : candidates) {
        manager().RegisterContentLoader(new ExtensionLoader(candidate, importer));
    }
    OrvikCore::AContentLoader* const found =
        importer ? manager().GetContentImporter(path) : manager().GetContentLoader(path);
    return found == nullptr ? L"<none>" : found->ValidExtensions().begin()->first;
}

/// A path and the extension with which its loader is asked.
using Case = std::pair<std::wstring, std::wstring>;

class LoaderLookup : public ::testing::TestWithParam<Case>
{
};

TEST_P(LoaderLookup, AsksWithTheExtension)
{
    const auto& [path, extension] = GetParam();

    EXPECT_EQ(loaderExtension(path, {extension}, /*importer=*/false), extension);
}

INSTANTIATE_TEST_SUITE_P(
    SessionMgr, LoaderLookup,
    ::testing::Values(Case{L"model.STP", L"STP"}, Case{L"model.stp", L"STP"},
                      Case{L"model.stp.12", L"STP"}, Case{L"model.12", L"MODEL"},
                      Case{L".12", L"12"}, Case{L"a.b.c", L"C"}, Case{L"a..12", L""},
                      Case{L"model", L"MODEL"}, Case{L"123", L"123"}, Case{L"model.12a", L"12A"},
                      Case{L"", L""}, Case{L".", L""}, Case{L"/d.x/model", L"X/MODEL"},
                      Case{L"model.\u00E4b", L"\u00E4B"}, Case{L"model.stp.1.2", L"1"}));

class ImporterLookup : public ::testing::TestWithParam<Case>
{
};

TEST_P(ImporterLookup, AsksWithTheExtension)
{
    const auto& [path, extension] = GetParam();

    EXPECT_EQ(loaderExtension(path, {extension}, /*importer=*/true), extension);
}

INSTANTIATE_TEST_SUITE_P(SessionMgr, ImporterLookup,
                         ::testing::Values(Case{L"model.stp", L"STP"}, Case{L"model.stp.2", L"STP"},
                                           Case{L"model.stp.", L"STP"}, Case{L"model.", L"MODEL"},
                                           Case{L".", L""}, Case{L".12", L"12"}, Case{L"", L""}));

TEST(SessionMgr, LoaderIsAskedWithAnEmptyExtensionForAPathThatEndsInAPoint)
{
    EXPECT_EQ(loaderExtension(L"model.stp.", {L"STP", L""}, /*importer=*/false), L"");
}

TEST(SessionMgr, ImporterIsAskedWithTheSegmentBeforeAPointAtTheEnd)
{
    EXPECT_EQ(loaderExtension(L"model.stp.", {L"", L"STP"}, /*importer=*/true), L"STP");
}

TEST(SessionMgr, LoadersAreNotImporters)
{
    manager().RegisterContentLoader(new ExtensionLoader(L"STP", /*importer=*/true));
    auto* const loader = new ExtensionLoader(L"STP");
    manager().RegisterContentLoader(loader);

    EXPECT_EQ(manager().GetContentLoader(L"a.stp"), loader);
}

TEST(SessionMgr, ImportersAreNotLoaders)
{
    manager().RegisterContentLoader(new ExtensionLoader(L"STP"));
    auto* const importer = new ExtensionLoader(L"STP", /*importer=*/true);
    manager().RegisterContentLoader(importer);

    EXPECT_EQ(manager().GetContentImporter(L"a.stp"), importer);
}

TEST(SessionMgr, FirstLoaderOfTheRegistrationWinsAndNullIsPassedOver)
{
    auto* const first = new ExtensionLoader(L"STP");
    manager().RegisterContentLoader(nullptr);
    manager().RegisterContentLoader(first);
    manager().RegisterContentLoader(new ExtensionLoader(L"STP"));

    EXPECT_EQ(manager().GetContentLoader(L"a.stp"), first);
}

TEST(SessionMgr, NoLoaderIsFoundForAnUnknownExtension)
{
    manager().RegisterContentLoader(new ExtensionLoader(L"STP"));

    EXPECT_EQ(manager().GetContentLoader(L"a.obj"), nullptr);
    EXPECT_EQ(manager().GetContentImporter(L"a.stp"), nullptr);
}

TEST(SessionMgr, SaverIsAskedWithANumberAsItIs)
{
    auto* const saver = new ExtensionSaver(L"2");
    manager().RegisterContentSaver(nullptr);
    manager().RegisterContentSaver(saver);

    EXPECT_EQ(manager().GetContentSaver(someContent(), L"part.stp.2"), saver);
    EXPECT_EQ(saver->m_asked, (Texts{L"2"}));
}

TEST(SessionMgr, FirstSaverThatCanSaveWins)
{
    auto* const stl = new ExtensionSaver(L"STL");
    manager().RegisterContentSaver(new ExtensionSaver(L"OBJ"));
    manager().RegisterContentSaver(stl);
    manager().RegisterContentSaver(new ExtensionSaver(L"STL"));

    EXPECT_EQ(manager().GetContentSaver(someContent(), L"part.stl"), stl);
}

TEST(SessionMgr, NoSaverIsFoundForAnUnknownExtension)
{
    manager().RegisterContentSaver(new ExtensionSaver(L"OBJ"));

    EXPECT_EQ(manager().GetContentSaver(someContent(), L"part.stl"), nullptr);
}

} // namespace
