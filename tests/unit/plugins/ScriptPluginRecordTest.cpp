#include "OrvikCore/ScriptPluginRecord.h"

#include "PluginsFixture.h"

#include "OrvikCore/AScriptModulePluginFactory.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <stdexcept>

namespace {

using OrvikCore::ScriptPluginRecord;
using ScriptPluginRecordTest = PluginsTest;
using Calls = std::vector<std::string>;

TEST(ScriptPluginRecord, StartsWithEveryFieldNull)
{
    ScriptPluginRecord record;

    EXPECT_EQ(record.GetFileName(), nullptr);
    EXPECT_EQ(record.GetName(), nullptr);
    EXPECT_EQ(record.GetInstance(), nullptr);
}

TEST(ScriptPluginRecord, SettersReplaceTheTexts)
{
    ScriptPluginRecord record;
    record.SetFileName(L"one");
    record.SetName(L"first");

    record.SetFileName(L"two");
    record.SetName(L"second");

    EXPECT_STREQ(record.GetFileName(), L"two");
    EXPECT_STREQ(record.GetName(), L"second");
}

TEST_F(ScriptPluginRecordTest, MakesTheFactoryOnce)
{
    ScriptPluginRecord record;
    record.SetFileName(m_folder.Add("ScriptGood.Plugin.dll").c_str());

    OrvikCore::AScriptModulePluginFactory* const factory = record.GetInstance();

    EXPECT_NE(factory, nullptr);
    EXPECT_EQ(record.GetInstance(), factory);
    EXPECT_EQ(log("ScriptGood"), (Calls{"created"}));
}

TEST_F(ScriptPluginRecordTest, TriesAgainFromTheStepThatFailed)
{
    ScriptPluginRecord record;
    record.SetFileName(m_folder.FileName("ScriptGood.Plugin.dll").c_str());
    EXPECT_EQ(record.GetInstance(), nullptr);

    m_folder.Add("ScriptGood.Plugin.dll");

    EXPECT_NE(record.GetInstance(), nullptr);
}

TEST_F(ScriptPluginRecordTest, LibraryWithoutRegisterPluginGivesNoFactory)
{
    ScriptPluginRecord record;
    record.SetFileName(m_folder.Add("Good.Plugin.dll").c_str());

    EXPECT_EQ(record.GetInstance(), nullptr);
}

TEST_F(ScriptPluginRecordTest, DestructionTerminatesAndDeletesTheFactory)
{
    {
        ScriptPluginRecord record;
        record.SetFileName(m_folder.Add("ScriptGood.Plugin.dll").c_str());
        record.GetInstance();
    }

    EXPECT_EQ(log("ScriptGood"), (Calls{"created", "Terminate", "deleted"}));
}

TEST_F(ScriptPluginRecordTest, DestroyingTheInstanceKeepsTheLibrary)
{
    ScriptPluginRecord record;
    record.SetFileName(m_folder.Add("ScriptGood.Plugin.dll").c_str());
    const void* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(record.GetInstance()), sizeof(table));

    record.DestroyInstance();

    const void* firstOperation = nullptr;
    std::memcpy(&firstOperation, table, sizeof(firstOperation));
    EXPECT_NE(firstOperation, nullptr);
}

TEST(ScriptPluginRecord, AssignmentSharesThePointers)
{
    ScriptPluginRecord original;
    original.SetFileName(L"file");
    original.SetName(L"name");
    // Only one of the two may be destroyed, so the copy never is.
    alignas(ScriptPluginRecord) std::byte room[sizeof(ScriptPluginRecord)];
    auto* const copy = new (room) ScriptPluginRecord;

    *copy = original;

    EXPECT_EQ(copy->GetFileName(), original.GetFileName());
    EXPECT_EQ(copy->GetName(), original.GetName());
}

TEST_F(ScriptPluginRecordTest, CopySharesThePointers)
{
    auto* const original = new ScriptPluginRecord;
    original->SetFileName(L"file");
    original->SetName(L"name");
    // Only one of the two may be destroyed, so the copy never is.
    void* const storage = operator new(sizeof(ScriptPluginRecord));
    auto* const copy = new (storage) ScriptPluginRecord(*original);

    EXPECT_EQ(copy->GetFileName(), original->GetFileName());
    EXPECT_EQ(copy->GetName(), original->GetName());
    delete original;
    operator delete(storage);
}

} // namespace
