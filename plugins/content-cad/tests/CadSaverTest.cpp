#include "OrvikCore/AContentSaver.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/PluginManager.h"
#include "OrvikCore/SessionMgr.h"

#include <OrvikOs/Utf8.h>

#include <FakeContent.h>
#include <ScopedTempDir.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace {

using OrvikCore::Document;
using OrvikCore::SessionMgr;

/// A document with the bored plate, read by the plugin as a host loads it.
class CadSaver : public testing::Test
{
protected:
    void SetUp() override
    {
        wchar_t* error = nullptr;
        auto& manager = OrvikCore::PluginManager::Instance();
        manager.LoadPlugin(OrvikOs::Utf8ToWide(ORVIK_CAD_PLUGIN).c_str(), error, L"Plugins");
        manager.Initialize(nullptr);
        ASSERT_TRUE(document.LoadContent(OrvikOs::Utf8ToWide(ORVIK_TEST_DATA "/hole_plate.step"),
                                         nullptr, true, nullptr));
    }

    std::string TextOf(const char* name) const
    {
        std::ifstream stream(folder.Path() / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    Document document{nullptr};
    ScopedTempDir folder;
};

TEST_F(CadSaver, WritesTheFormatThatTheExtensionNames)
{
    for (const wchar_t* name : {L"a.step", L"a.stp", L"a.iges", L"a.igs", L"a.brep", L"a.brp"}) {
        std::wstring error;
        EXPECT_TRUE(document.SaveContent(folder.WidePath(name), &error));
        EXPECT_EQ(error, L"");
    }
    EXPECT_EQ(TextOf("a.step").find("ISO-10303-21;"), 0u);
    EXPECT_NE(TextOf("a.igs").substr(0, 80).find("S0000001"), std::string::npos);
    EXPECT_NE(TextOf("a.brp").find("CASCADE Topology V1"), std::string::npos);
}

TEST_F(CadSaver, WritesWhatCanBeLoadedAgain)
{
    const std::wstring file = folder.WidePath(L"\u043F\u043B\u0438\u0442\u0430.step");
    ASSERT_TRUE(document.SaveContent(file, nullptr));
    Document read(nullptr);
    std::wstring error;

    EXPECT_TRUE(read.LoadContent(file, &error, true, nullptr));

    EXPECT_EQ(error, L"");
}

TEST_F(CadSaver, TellsTheFileAndTheReasonWhenItCannotWrite)
{
    const std::wstring file = folder.WidePath(L"missing/a.step");
    std::wstring error;

    EXPECT_FALSE(document.SaveContent(file, &error));

    EXPECT_EQ(
        error.find(L"Could not save " + file + L" : " + file + L": the file cannot be written: "),
        0u);
}

TEST_F(CadSaver, LeavesContentsOfOtherPluginsAlone)
{
    CallLog log;
    FakeContent other(document, "other", log);

    EXPECT_EQ(SessionMgr::Instance().GetContentSaver(&other, L"a.step"), nullptr);
    EXPECT_EQ(SessionMgr::Instance().GetContentSaver(document.GetContentList().at(0), L"a.xyz"),
              nullptr);
}

} // namespace
