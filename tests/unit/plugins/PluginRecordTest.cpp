#include "OrvikCore/PluginRecord.h"

#include "PluginsFixture.h"

#include "OrvikCore/APluginFactory.h"

#include <cstddef>
#include <cstring>
#include <new>
#include <stdexcept>

namespace {

using OrvikCore::PluginRecord;
using PluginRecordTest = PluginsTest;
using Calls = std::vector<std::string>;

TEST(PluginRecord, StartsWithEveryFieldNull)
{
    PluginRecord record;

    EXPECT_EQ(record.GetFileName(), nullptr);
    EXPECT_EQ(record.GetType(), nullptr);
    EXPECT_EQ(record.GetName(), nullptr);
    EXPECT_EQ(record.GetInstance(), nullptr);
}

TEST(PluginRecord, KeepsCopiesOfItsTexts)
{
    PluginRecord record;
    std::wstring file = L"/plugins/A.dll";

    record.SetFileName(file.c_str());
    file[1] = L'X';

    EXPECT_STREQ(record.GetFileName(), L"/plugins/A.dll");
}

TEST(PluginRecord, SettersReplaceTheTexts)
{
    PluginRecord record;
    record.SetFileName(L"one");
    record.SetType("Content");
    record.SetName(L"first");

    record.SetFileName(L"two");
    record.SetType("Loader");
    record.SetName(L"second");

    EXPECT_STREQ(record.GetFileName(), L"two");
    EXPECT_STREQ(record.GetType(), "Loader");
    EXPECT_STREQ(record.GetName(), L"second");
}

TEST(PluginRecord, SettingATextToItselfKeepsIt)
{
    PluginRecord record;
    record.SetName(L"name");

    record.SetName(record.GetName());

    EXPECT_STREQ(record.GetName(), L"name");
}

TEST(PluginRecord, GettersGiveTheStoredTextsAndNoCopies)
{
    PluginRecord record;
    record.SetName(L"name");

    EXPECT_EQ(record.GetName(), record.GetName());
}

TEST(PluginRecord, AssignmentSharesThePointers)
{
    auto* const original = new PluginRecord;
    original->SetFileName(L"file");
    original->SetType("type");
    original->SetName(L"name");
    // Only one of the two may be destroyed, so the copy never is.
    auto* const copy = static_cast<PluginRecord*>(operator new(sizeof(PluginRecord)));
    new (copy) PluginRecord;

    *copy = *original;

    EXPECT_EQ(copy->GetFileName(), original->GetFileName());
    EXPECT_EQ(copy->GetType(), original->GetType());
    EXPECT_EQ(copy->GetName(), original->GetName());
    delete original;
    operator delete(copy);
}

TEST(PluginRecord, CopySharesThePointers)
{
    PluginRecord original;
    original.SetFileName(L"file");
    original.SetType("type");
    original.SetName(L"name");
    // Only one of the two may be destroyed, so the copy never is.
    alignas(PluginRecord) std::byte room[sizeof(PluginRecord)];

    const auto* const copy = new (room) PluginRecord(original);

    EXPECT_EQ(copy->GetFileName(), original.GetFileName());
    EXPECT_EQ(copy->GetType(), original.GetType());
    EXPECT_EQ(copy->GetName(), original.GetName());
}

TEST_F(PluginRecordTest, MakesTheFactoryOnceAndOnlyWhenAsked)
{
    PluginRecord record;
    record.SetFileName(m_folder.Add("Good.Plugin.dll").c_str());
    EXPECT_TRUE(log("Good").empty());

    OrvikCore::APluginFactory* const factory = record.GetInstance();

    EXPECT_NE(factory, nullptr);
    EXPECT_EQ(record.GetInstance(), factory);
    EXPECT_EQ(log("Good"), (Calls{"created"}));
}

TEST_F(PluginRecordTest, TriesAgainFromTheStepThatFailed)
{
    PluginRecord record;
    record.SetFileName(m_folder.FileName("Good.Plugin.dll").c_str());
    EXPECT_EQ(record.GetInstance(), nullptr);

    m_folder.Add("Good.Plugin.dll");

    EXPECT_NE(record.GetInstance(), nullptr);
}

TEST_F(PluginRecordTest, LibraryWithoutCreatePluginGivesNoFactory)
{
    PluginRecord record;
    record.SetFileName(m_folder.Add("NoCreate.Plugin.dll").c_str());

    EXPECT_EQ(record.GetInstance(), nullptr);
    EXPECT_EQ(record.GetInstance(), nullptr);
}

TEST_F(PluginRecordTest, ExceptionOfCreatePluginPassesEachTime)
{
    PluginRecord record;
    record.SetFileName(m_folder.Add("ThrowsOnCreate.Plugin.dll").c_str());

    EXPECT_THROW(record.GetInstance(), std::runtime_error);
    EXPECT_THROW(record.GetInstance(), std::runtime_error);
}

TEST_F(PluginRecordTest, DestructionTerminatesAndDeletesTheFactory)
{
    {
        PluginRecord record;
        record.SetFileName(m_folder.Add("Good.Plugin.dll").c_str());
        record.GetInstance();
    }

    EXPECT_EQ(log("Good"), (Calls{"created", "Terminate", "deleted"}));
}

TEST_F(PluginRecordTest, DestroyingTheInstanceKeepsTheLibrary)
{
    PluginRecord record;
    record.SetFileName(m_folder.Add("Good.Plugin.dll").c_str());
    OrvikCore::APluginFactory* const factory = record.GetInstance();
    const void* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(factory), sizeof(table));

    record.DestroyInstance();

    // The table of the factory's class still lies in the library's memory.
    const void* firstOperation = nullptr;
    std::memcpy(&firstOperation, table, sizeof(firstOperation));
    EXPECT_NE(firstOperation, nullptr);
    EXPECT_EQ(log("Good"), (Calls{"created", "Terminate", "deleted"}));
}

TEST_F(PluginRecordTest, MakesANewFactoryAfterTheInstanceWasDestroyed)
{
    PluginRecord record;
    record.SetFileName(m_folder.Add("Good.Plugin.dll").c_str());
    record.GetInstance();
    record.DestroyInstance();

    EXPECT_NE(record.GetInstance(), nullptr);
    EXPECT_EQ(log("Good"), (Calls{"created", "Terminate", "deleted", "created"}));
}

} // namespace
