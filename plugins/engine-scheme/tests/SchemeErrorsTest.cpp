#include "EngineFixture.h"

#include <OrvikOs/FpControl.h>

namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Value;

/// The processor is to find it, no sanitizer.
__attribute__((noinline, no_sanitize("address", "undefined", "thread"))) void writeNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

class SchemeErrors : public EngineFixture
{
};

TEST_F(SchemeErrors, AnErrorThrows)
{
    m_engine->LoadScriptText(L"(car 1)", L"");

    EXPECT_THROW(m_engine->Execute(), std::runtime_error);
}

TEST_F(SchemeErrors, TheReportNamesSourceLineAndColumn)
{
    m_engine->SetNextSource(L"part.scm", 10, 3);

    EXPECT_EQ(run(L"(begin\n  (+ 1 (car 5)))"),
              "ERROR part.scm:11:8: In procedure car: Wrong type (expecting pair): 5\n");
}

TEST_F(SchemeErrors, ThePlaceHoldsForOneTextOnly)
{
    m_engine->SetNextSource(L"part.scm", 10, 3);
    run(L"1");

    EXPECT_EQ(run(L"(error \"no:\" 1)"), "ERROR console:1:1: no: 1\n");
}

TEST_F(SchemeErrors, ASourceGivenWithTheTextWins)
{
    m_engine->LoadScriptText(L"(error \"no\")", L"given.scm");
    EXPECT_ANY_THROW(m_engine->Execute());

    EXPECT_EQ(m_engine->GetOutput(), L"given.scm:1:1: no\n");
}

TEST_F(SchemeErrors, UnboundVariablesNameTheNearestCommand)
{
    EXPECT_EQ(run(L"(test:ehco 1)"),
              "ERROR console:1:2: Unbound variable: test:ehco; did you mean test:echo?\n");
}

TEST_F(SchemeErrors, WhatACommandCannotTakeIsRefused)
{
    EXPECT_EQ(run(L"(test:echo car)"),
              "ERROR console:1:1: test:echo: argument 1: Commands do not take procedures.\n");
}

TEST_F(SchemeErrors, ACircularListIsRefused)
{
    run(L"(define ring (list 1 2))");
    run(L"(set-cdr! ring ring)");

    EXPECT_EQ(run(L"(test:echo ring)"), "ERROR console:1:1: test:echo: argument 1: Commands do not "
                                        "take values of this kind.\n");
}

TEST_F(SchemeErrors, AMessageMayHoldAnyByte)
{
    add("test:odd", [](const Arguments&) -> Value { throw std::runtime_error("odd \x80 name"); });
    bind();

    EXPECT_EQ(run(L"(test:odd)"), "ERROR console:1:1: odd \x80 name\n");
}

TEST_F(SchemeErrors, AnExceptionThatIsNoneIsAnError)
{
    add("test:throw-oddly", [](const Arguments&) -> Value { throw 42; });
    bind();

    EXPECT_EQ(run(L"(test:throw-oddly)"),
              "ERROR console:1:1: Unrecognized exception in a command.\n");
}

TEST_F(SchemeErrors, AThousandFaultsLeaveTheEngineWell)
{
    add("test:fault", [](const Arguments&) -> Value {
        writeNull();
        return Value();
    });
    bind();

    EXPECT_EQ(run(L"(do ((i 0 (+ i 1)) (n 0 (+ n (catch #t test:fault (lambda args 1)))))"
                  L" ((= i 1000) n))"),
              "1000\n");
}

TEST_F(SchemeErrors, TrapsAreOffInTheInterpreterAndOnInCommands)
{
    add("test:divide", [](const Arguments&) -> Value {
        volatile double zero = 0.0;
        return Value(1.0 / zero);
    });
    bind();

    EXPECT_EQ(run(L"(list (/ 1. 0.) (catch #t test:divide (lambda args 'trapped)) (/ 1. 0.))"),
              "(+inf.0 trapped +inf.0)\n");
}

TEST_F(SchemeErrors, TheTrapsOfTheCallerArePutBack)
{
    const unsigned before = OrvikOs::FpControl::ControlWord();

    run(L"(begin (/ 1. 0.) (car 1))");

    EXPECT_EQ(OrvikOs::FpControl::ControlWord(), before);
}

TEST_F(SchemeErrors, DeepRecursionIsAnError)
{
    EXPECT_EQ(run(L"(let deeper ((n 1)) (+ 1 (deeper n)))"),
              "ERROR console:1:1: The recursion is too deep (more than 128 MB of stack).\n");
    EXPECT_EQ(run(L"1"), "1\n");
}

TEST_F(SchemeErrors, ExitDoesNotEndTheProcess)
{
    EXPECT_EQ(run(L"(exit 3)"),
              "ERROR console:1:1: exit was called; a script ends by running to its end.\n");
}

TEST_F(SchemeErrors, AnyThrownObjectIsReported)
{
    EXPECT_EQ(run(L"(throw 'my-key 1 2)"),
              "ERROR console:1:1: Throw to key `my-key' with args `(1 2)'.\n");
}

} // namespace
