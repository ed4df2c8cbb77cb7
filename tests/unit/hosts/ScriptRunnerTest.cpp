#include "../scripting/ShellFixture.h"

#include <OrvikCore/IInputProvider.h>
#include <OrvikCore/KeyEventArgs.h>

#include <HotkeyTable.h>
#include <InputQueue.h>
#include <ScriptRunner.h>

#include <new>

namespace {

using OrvikCore::ModifierKey;
using Pellux::ScriptRunner;

/// A host that takes input.
class InputHost : public FakeSessionHost, public OrvikCore::IInputProvider
{
public:
    OrvikCore::IInputQueue* GetInputQueue() const override { return &m_input; }
    OrvikCore::INavigation* GetNavigationChoice() const override { return nullptr; }

    Pellux::HotkeyTable m_hotkeys;
    mutable Pellux::InputQueue m_input{m_hotkeys, {}};
};

/// An engine that splits every text into the forms of the test.
class ScriptRunnerTest : public ShellTest
{
protected:
    using Forms = std::vector<OrvikCore::ScriptForm>;

    bool run(const Forms& forms, const ScriptRunner::BeforeForm& before = {},
             const ScriptRunner::AfterForm& after = {})
    {
        if (!m_shell)
            makeShell();
        engine().m_forms = forms;
        return ScriptRunner(*m_shell, before, after).RunText(L"text", L"source.fake");
    }
};

TEST_F(ScriptRunnerTest, RunsEachFormAsAJobAndNamesItsPlace)
{
    std::wstring log;

    EXPECT_TRUE(run(
        {{L"(a)", 1, 1}, {L"(b)", 2, 5}},
        [&](const std::wstring& form) {
            log += L"before" + form + L" ";
            return true;
        },
        [&] {
            log += L"after ";
            return true;
        }));

    EXPECT_EQ(log, L"before(a) after before(b) after ");
    EXPECT_EQ(engine().Texts(), (Texts{L"(a)", L"(b)"}));
    EXPECT_EQ(engine().m_nextSources, (Texts{L"source.fake:1:1", L"source.fake:2:5"}));
}

TEST_F(ScriptRunnerTest, AFormThatFailsEndsTheScript)
{
    int afters = 0;

    EXPECT_FALSE(run({{L"(a)", 1, 1}, {L"(fail)", 2, 1}, {L"(c)", 3, 1}}, {}, [&] {
        ++afters;
        return true;
    }));

    EXPECT_EQ(engine().Texts(), (Texts{L"(a)", L"(fail)"}));
    EXPECT_EQ(afters, 1);
}

TEST_F(ScriptRunnerTest, StopsBeforeAFormThatIsNotWanted)
{
    EXPECT_FALSE(run({{L"(a)", 1, 1}, {L"(b)", 2, 1}},
                     [](const std::wstring& form) { return form != L"(b)"; }));

    EXPECT_EQ(engine().Texts(), Texts{L"(a)"});
}

TEST_F(ScriptRunnerTest, StopsWhereWhatFollowsAFormFails)
{
    EXPECT_FALSE(run({{L"(a)", 1, 1}, {L"(b)", 2, 1}}, {}, [] { return false; }));

    EXPECT_EQ(engine().Texts(), Texts{L"(a)"});
}

TEST_F(ScriptRunnerTest, RunsWhatIsCutShortSoThatTheEngineNamesThePlace)
{
    makeShell();
    engine().m_isWhole = false;

    EXPECT_TRUE(run({{L"(a)", 1, 1}, {L"(b", 2, 1}}));

    EXPECT_EQ(engine().Texts(), (Texts{L"(a)", L"(b"}));
}

TEST_F(ScriptRunnerTest, ATextWithoutFormsIsGood)
{
    EXPECT_TRUE(run({}));

    EXPECT_TRUE(engine().Texts().empty());
}

TEST_F(ScriptRunnerTest, WithoutAnEngineNothingRuns)
{
    makeShell("");

    EXPECT_FALSE(ScriptRunner(*m_shell, {}).RunText(L"(a)", L"source.fake"));
}

TEST_F(ScriptRunnerTest, AFileThatCannotBeReadIsNamed)
{
    makeShell();
    std::wstring reason;

    EXPECT_FALSE(ScriptRunner(*m_shell, {}).RunFile(L"/no/such/file.scm", reason));

    EXPECT_EQ(reason, L"Failed to read script file : /no/such/file.scm");
    EXPECT_TRUE(engine().Texts().empty());
}

TEST_F(ScriptRunnerTest, EventsOfAFormThatFailsAreForgotten)
{
    alignas(InputHost) static unsigned char storage[sizeof(InputHost)];
    auto& host = *new (storage) InputHost;
    OrvikCore::SessionMgr::Instance().SetApplication(&host);
    const auto post = [&host](const std::wstring&) {
        host.m_input.PostKey(OrvikCore::KeyEventArgs('A', false, ModifierKey::Ctrl));
        return true;
    };
    int asked = 0;
    const Pellux::InputQueue::Player player = {[&asked] { return ++asked < 100; }, {}};

    EXPECT_FALSE(run({{L"(fail)", 1, 1}}, post));
    EXPECT_TRUE(host.m_input.Play(player));
    EXPECT_EQ(asked, 0);

    EXPECT_TRUE(run({{L"(a)", 1, 1}}, post));
    EXPECT_TRUE(host.m_input.Play(player));
    EXPECT_EQ(asked, 1);
}

} // namespace
