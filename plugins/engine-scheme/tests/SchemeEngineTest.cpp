#include "EngineFixture.h"

#include <TambCommandsInfra/CancelToken.h>

namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Value;

class SchemeEngine : public EngineFixture
{
};

TEST_F(SchemeEngine, TellsItsNames)
{
    EXPECT_EQ(m_engine->GetName(), L"Guile");
    EXPECT_EQ(m_engine->GetLanguageName(), L"scheme");
    EXPECT_EQ(m_engine->GetScriptExtension(), L"scm");
    EXPECT_TRUE(m_engine->GetVersion().starts_with(L"3."));
}

TEST_F(SchemeEngine, WritesTheLastValueUnlessItIsUnspecified)
{
    EXPECT_EQ(run(L"1 (+ 1 2)"), "3\n");
    EXPECT_EQ(run(L"(define a 1)"), "");
    EXPECT_EQ(run(L""), "");
}

TEST_F(SchemeEngine, OutputAndErrorsComeInTheirOrder)
{
    EXPECT_EQ(run(L"(display 1) (display 2 (current-error-port)) (display 3)"), "123");
}

TEST_F(SchemeEngine, DefinitionsStayForTheNextText)
{
    run(L"(define answer 42)");

    EXPECT_EQ(run(L"answer"), "42\n");
}

TEST_F(SchemeEngine, ANewTextForgetsTheOutputOfTheLast)
{
    run(L"(display 1)");

    m_engine->LoadScriptText(L"2", L"");

    EXPECT_EQ(m_engine->GetOutput(), L"");
}

TEST_F(SchemeEngine, ATextRunsAgainWhenExecutedAgain)
{
    run(L"(display 1)");

    m_engine->Execute();

    EXPECT_EQ(m_engine->GetOutput(), L"11");
}

TEST_F(SchemeEngine, ValuesTravelThroughACommandUnchanged)
{
    for (const wchar_t* text :
         {L"#t", L"#f", L"0", L"-9223372036854775808", L"9223372036854775807", L"0.1", L"-0.0",
          L"\"text\"", L"(1 \"two\" (3.5 #t) ())", L"4.9e-324", L"+inf.0"})
        EXPECT_EQ(run(L"(equal? '" + std::wstring(text) + L" (test:echo '" + text + L"))"), "#t\n")
            << OrvikOs::WideToUtf8(text);
}

TEST_F(SchemeEngine, VectorsAndSymbolsBecomeListsAndStrings)
{
    EXPECT_EQ(run(L"(test:echo #(1 2))"), "(1 2)\n");
    EXPECT_EQ(run(L"(test:echo 'word)"), "\"word\"\n");
    EXPECT_EQ(run(L"(test:echo 1/4)"), "0.25\n");
}

TEST_F(SchemeEngine, ALargeIntegerBecomesARealNumber)
{
    EXPECT_EQ(run(L"(test:echo (expt 2 100))"), "1.2676506002282294e30\n");
    EXPECT_EQ(run(L"(test:echo (expt 10 400))"), "+inf.0\n");
}

TEST_F(SchemeEngine, TextsKeepEveryCharacterAndByte)
{
    const std::wstring odd = L"\u00E4 \U0001F600 \\\\ \\\" " + std::wstring(1, wchar_t(0xDC80));

    EXPECT_EQ(run(L"(display (test:echo \"" + odd + L"\"))"),
              "\xC3\xA4 \xF0\x9F\x98\x80 \\ \" \x80");
}

TEST_F(SchemeEngine, FormsAreSplitWithTheirPlaces)
{
    std::vector<OrvikCore::ScriptForm> forms;
    std::wstring error;

    EXPECT_TRUE(m_engine->SplitForms(L"(a)\n  (b)", forms, error));

    ASSERT_EQ(forms.size(), 2u);
    EXPECT_EQ(forms[1].text, L"(b)");
    EXPECT_EQ(forms[1].line, 2);
    EXPECT_EQ(forms[1].column, 3);
}

TEST_F(SchemeEngine, ATextThatIsCutShortIsSaidToBe)
{
    std::vector<OrvikCore::ScriptForm> forms;
    std::wstring error;

    EXPECT_FALSE(m_engine->SplitForms(L"(a)\n (b", forms, error));

    EXPECT_EQ(error, L"line 2, column 2: the parentheses do not match");
}

TEST_F(SchemeEngine, TheStartupLogIsKept)
{
    m_engine->SetStartupLog(L"loading : a");

    EXPECT_EQ(m_engine->GetStartupLog(), L"loading : a");
}

TEST_F(SchemeEngine, ASecondEngineFindsWhatTheFirstDefined)
{
    run(L"(define answer 42)");
    m_engine = load();
    m_engine->Initialize(nullptr);

    EXPECT_EQ(run(L"answer"), "42\n");
}

TEST_F(SchemeEngine, AProcedureThatWasKeptMeansTheSameCommandForASecondEngine)
{
    run(L"(define kept test:echo)");
    add("test:aaa-before-it", [](const Arguments&) { return Value(L"another"); });
    m_engine = load();
    m_engine->Initialize(nullptr);

    EXPECT_EQ(run(L"(kept 5)"), "5\n");
    EXPECT_EQ(run(L"(test:aaa-before-it)"), "\"another\"\n");
}

TEST_F(SchemeEngine, TheCallbackReceivesTheCommandTable)
{
    static void* received = nullptr;

    m_engine->Initialize([](void* context) { received = context; });

    EXPECT_EQ(received, &TambCommandsInfra::CommandTable::Instance());
}

TEST_F(SchemeEngine, HelpTellsOfACommand)
{
    EXPECT_NE(run(L"(help 'test:echo)").find("Does what a test needs."), std::string::npos);
    EXPECT_NE(run(L"(help)").find("test:echo"), std::string::npos);
    EXPECT_NE(run(L"(apropos \"echo\")").find("test:echo"), std::string::npos);
}

TEST_F(SchemeEngine, ARunThatIsCancelledBeforeItBeginsEndsAtOnce)
{
    auto& token = TambCommandsInfra::CancelToken::Instance();
    // Numbers are given in order: the next run has the one after this.
    token.Cancel(token.NextJobNumber() + 1);

    EXPECT_EQ(run(L"(let loop () (loop))"), "ERROR console:1:1: Cancelled.\n");
    EXPECT_EQ(run(L"1"), "1\n");
}

TEST_F(SchemeEngine, ACommandThatCancelsEndsTheLoopAroundIt)
{
    add("test:cancel", [](const Arguments&) {
        TambCommandsInfra::CancelToken::Instance().CancelCurrent();
        return Value();
    });
    bind();

    EXPECT_EQ(run(L"(let loop () (catch #t test:cancel (lambda args #f)) (loop))"),
              "ERROR console:1:1: Cancelled.\n");
}

TEST_F(SchemeEngine, BigListsTravelWithGarbageCollectionsInBetween)
{
    EXPECT_EQ(run(L"(let loop ((i 0) (l (iota 1000)))"
                  L" (if (< i 200) (begin (gc) (loop (+ i 1) (test:echo l))) (apply + l)))"),
              "499500\n");
}

} // namespace
