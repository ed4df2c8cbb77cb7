#include "SchemeEngine.h"

#include "FormSplitter.h"
#include "OutputPort.h"
#include "SchemePrimitives.h"
#include "SchemeRuntime.h"
#include "SchemeText.h"
#include "ValueConversion.h"

#include <OrvikCore/AScriptEngineFactory.h>
#include <OrvikCore/StructuredException.h>
#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/InterpreterSignal.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <libguile.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace OrvikScheme {
namespace {

using TambCommandsInfra::CancelToken;
using TambCommandsInfra::CommandTable;
using TambVizCore::Utils;

OutputBuffer& sharedOutput()
{
    static OutputBuffer& buffer = *new OutputBuffer;
    return buffer;
}

/// Copies what a fault is called into @p text, so that no C++ object is alive afterwards.
void describeFault(const OrvikOs::FaultInfo& fault, char* text, std::size_t size)
{
    OrvikOs::EXCEPTION_RECORD record = fault.record;
    const char* description = "Pure virtual call";
    const OrvikCore::StructuredException exception(&record);
    if (fault.kind == OrvikOs::FaultKind::Machine)
        description = exception.what();
    else if (fault.kind == OrvikOs::FaultKind::Abort)
        description = "Abnormal abort.";
    else if (fault.kind == OrvikOs::FaultKind::InvalidParameter)
        description = "Invalid parameter detected, but the details are not available";
    std::strncpy(text, description, size - 1);
}

/// Raises a Scheme error for a fault inside the interpreter.
void raiseSchemeError(void*, const OrvikOs::FaultInfo& fault)
{
    char text[1024] = {};
    describeFault(fault, text, sizeof text);
    scm_throw(scm_from_utf8_symbol("pellux-error"), scm_list_1(scm_from_utf8_string(text)));
}

/// Work in Guile mode with every Scheme error caught.
struct GuileWork
{
    void (*function)(void* data) = nullptr;
    void* data = nullptr; ///< Not owned.
    bool failed = false;
    char* error = nullptr; ///< Of malloc; what escaped, as text.
};

SCM guileBody(void* data)
{
    auto* const work = static_cast<GuileWork*>(data);
    work->function(work->data);
    return SCM_UNSPECIFIED;
}

SCM guileEscape(void* data, SCM key, SCM arguments)
{
    auto* const work = static_cast<GuileWork*>(data);
    work->failed = true;
    SCM text =
        scm_simple_format(SCM_BOOL_F, scm_from_utf8_string("~A: ~A"), scm_list_2(key, arguments));
    work->error = scm_to_utf8_string(text);
    return SCM_UNSPECIFIED;
}

void* enterGuile(void* data)
{
    scm_internal_catch(SCM_BOOL_T, guileBody, data, guileEscape, data);
    return nullptr;
}

/// Runs @p function in Guile mode; faults inside the interpreter become Scheme errors.
///
/// @throws std::runtime_error with what escaped.
void inGuile(void (*function)(void* data), void* data)
{
    GuileWork work;
    work.function = function;
    work.data = data;
    {
        const OrvikOs::FpMasked interpreterComputesWithoutTraps;
        const OrvikOs::FaultHookScope faultsAreSchemeErrors(&raiseSchemeError, nullptr);
        scm_with_guile(&enterGuile, &work);
    }
    if (!work.failed)
        return;
    const std::string text = work.error == nullptr ? "unknown error" : work.error;
    std::free(work.error);
    throw std::runtime_error(text);
}

/// Defines the module (pellux engine), once in the life of the process.
void startRuntime(void*)
{
    DefineObjectType();
    SCM module = scm_c_define_module("pellux engine", nullptr, nullptr);
    scm_set_current_module(module);
    scm_c_use_module("guile");
    scm_c_use_module("system vm vm");
    scm_c_use_module("system syntax internal");
    DefinePrimitives();
    scm_c_eval_string(kSchemeRuntime);
    scm_c_eval_string("(set! %load-should-auto-compile #f)");
}

SCM runtimeProcedure(const char* name)
{
    return scm_variable_ref(scm_c_private_lookup("pellux engine", name));
}

/// What every engine does on its thread: ports and the interrupt belong to a thread.
void attachThread(void* buffer)
{
    RedirectOutput(*static_cast<OutputBuffer*>(buffer));
    scm_call_2(runtimeProcedure("install-interrupt"),
               scm_from_int(OrvikOs::InterpreterSignalNumber()), scm_current_thread());
}

/// Gives every registered command a number.
void addNewCommands()
{
    std::vector<std::string>& commands = Primitives().commands;
    for (const std::string& name : CommandTable::Instance().Names())
        if (std::find(commands.begin(), commands.end(), name) == commands.end())
            commands.push_back(name);
}

/// Binds every registered command to a Scheme procedure.
void bindCommands(void*)
{
    SCM bind = runtimeProcedure("bind-command");
    const std::vector<std::string>& commands = Primitives().commands;
    for (std::size_t i = 0; i < commands.size(); ++i)
        scm_call_2(bind, scm_from_utf8_string(commands[i].c_str()), scm_from_size_t(i));
}

struct Run
{
    const char* text;
    const char* source;
    int line;
    int column;
    bool succeeded;
};

void runText(void* data)
{
    auto* const run = static_cast<Run*>(data);
    SCM arguments = scm_list_n(scm_from_utf8_string(run->text), scm_from_utf8_string(run->source),
                               scm_from_int(run->line), scm_from_int(run->column),
                               scm_from_int(SchemeEngine::kStackMegabytes), SCM_UNDEFINED);
    run->succeeded = scm_is_true(scm_apply_0(runtimeProcedure("run-text"), arguments));
}

} // namespace

SchemeEngine::SchemeEngine() : m_output(sharedOutput()) {}

SchemeEngine::~SchemeEngine()
{
    if (m_interrupter != 0)
        CancelToken::Instance().RemoveInterrupter(m_interrupter);
}

bool SchemeEngine::LoadScriptText(const std::wstring& text, const std::wstring& source)
{
    m_output.Clear();
    m_text = text;
    {
        const OrvikOs::CriticalSection::Guard guard(m_lock);
        m_place = std::exchange(m_nextPlace, Place{});
    }
    if (!source.empty())
        m_place = Place{source, 1, 1};
    return true;
}

std::wstring SchemeEngine::GetLanguageName() const
{
    return L"scheme";
}

void SchemeEngine::Initialize(InitializeCallback callback)
{
    static bool runtimeDefined = false;
    try {
        if (!runtimeDefined)
            inGuile(&startRuntime, nullptr);
        runtimeDefined = true;
        inGuile(&attachThread, &m_output);
        if (callback != nullptr)
            callback(&CommandTable::Instance());
        addNewCommands();
        inGuile(&bindCommands, nullptr);
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("The Scheme engine cannot start: ") + error.what());
    }
    if (m_interrupter == 0)
        m_interrupter =
            CancelToken::Instance().AddInterrupter([this](std::uint64_t) { Interrupt(); });
    m_started = true;
}

std::wstring SchemeEngine::GetName() const
{
    return L"Guile";
}

std::wstring SchemeEngine::GetVersion() const
{
    return std::to_wstring(SCM_MAJOR_VERSION) + L"." + std::to_wstring(SCM_MINOR_VERSION) + L"." +
           std::to_wstring(SCM_MICRO_VERSION);
}

std::wstring SchemeEngine::GetScriptExtension() const
{
    return L"scm";
}

bool SchemeEngine::SplitForms(const std::wstring& text, std::vector<OrvikCore::ScriptForm>& forms,
                              std::wstring& errorText) const
{
    const SplitText split = SplitTopLevelForms(text);
    forms.clear();
    for (const TopLevelForm& form : split.forms)
        forms.push_back({form.text, form.line, form.column});
    if (split.isComplete)
        return true;
    errorText = L"line " + std::to_wstring(forms.back().line) + L", column " +
                std::to_wstring(forms.back().column) + L": the parentheses do not match";
    return false;
}

void SchemeEngine::SetNextSource(const std::wstring& source, int line, int column)
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    m_nextPlace = Place{source, line, column};
}

void SchemeEngine::Execute()
{
    CancelToken& token = CancelToken::Instance();
    const TambCommandsInfra::CancelScope cancel(token, token.NextJobNumber());
    Primitives().jobTraps = OrvikOs::FpControl::Save();

    runLoadedText();
}

void SchemeEngine::runLoadedText()
{
    const std::string text = TextForScheme(m_text);
    const std::string source = TextForScheme(m_place.source);
    Run run{text.c_str(), source.c_str(), m_place.line, m_place.column, false};
    try {
        inGuile(&runText, &run);
    } catch (const std::runtime_error& error) {
        // Not even the report could be written.
        m_output.Append(source + ": " + error.what() + "\n");
        throw;
    }
    if (!run.succeeded)
        throw std::runtime_error("The script failed.");
}

void SchemeEngine::Interrupt()
{
    if (m_started)
        OrvikOs::RaiseInterpreterSignal();
}

std::wstring SchemeEngine::GetOutput() const
{
    return m_output.Text();
}

void SchemeEngine::SetStartupLog(const std::wstring& log)
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    m_startupLog = log;
}

std::wstring SchemeEngine::GetStartupLog() const
{
    const OrvikOs::CriticalSection::Guard guard(m_lock);
    return m_startupLog;
}

namespace {

/// Makes the engine for the script plugin manager.
class SchemeEngineFactory : public OrvikCore::AScriptEngineFactory
{
public:
    OrvikCore::AScriptEngine* CreateEngine() override { return new SchemeEngine; }
};

} // namespace
} // namespace OrvikScheme

extern "C" ORVIK_EXPORT OrvikCore::AScriptEngineFactory* RegisterScriptEngineFactory()
{
    return new OrvikScheme::SchemeEngineFactory;
}
