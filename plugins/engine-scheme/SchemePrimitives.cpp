#include "SchemePrimitives.h"

#include "SchemeText.h"
#include "ValueConversion.h"

#include <OrvikOs/FaultHook.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <libguile.h>

#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <new>
#include <stdexcept>

namespace OrvikScheme {
namespace {

using TambCommandsInfra::CancelToken;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;

/// The job's floating-point traps for the time of one native command.
class TrapsOfJob
{
public:
    TrapsOfJob() : m_held(OrvikOs::FpControl::Save())
    {
        OrvikOs::FpControl::Restore(Primitives().jobTraps);
    }
    ~TrapsOfJob() { OrvikOs::FpControl::Restore(m_held); }

    TrapsOfJob(const TrapsOfJob&) = delete;
    TrapsOfJob& operator=(const TrapsOfJob&) = delete;

private:
    OrvikOs::FpState m_held; ///< Masks of the interpreter.
};

/// How a native command ended, in plain memory: nothing here has a destructor, so a Scheme error
/// may leave the frame that holds it.
struct Outcome
{
    Value* result = nullptr; ///< Owned by the frame that asked; null after a failure.
    char* error = nullptr;   ///< Of malloc; null after success.
    bool cancelled = false;
};

/// Copies a message, whose bytes may be any, as UTF-8 into memory of malloc; null when memory ends.
char* messageCopy(const char* message) noexcept
{
    try {
        return strdup(TextForScheme(TambVizCore::Utils::StringToWstring(message)).c_str());
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

/// Runs @p work with faults as C++ exceptions; reports by @p outcome only.
/// Stands apart from the caller, so that a fault in @p work is caught in another frame.
[[gnu::noinline]] void guarded(Outcome& outcome, const std::function<Value()>& work) noexcept
{
    const OrvikOs::FaultHookScope faultsAreExceptions(nullptr, nullptr);
    try {
        outcome.result = new Value(work());
    } catch (const TambCommandsInfra::JobCancelled&) {
        outcome.cancelled = true;
        outcome.error = strdup("");
    } catch (const std::exception& error) {
        outcome.error = messageCopy(error.what());
    } catch (...) {
        outcome.error = strdup("Unrecognized exception in a command.");
    }
}

void deleteValue(void* value)
{
    delete static_cast<Value*>(value);
}

/// Ends a primitive: gives the result, or leaves by a Scheme error. Holds no C++ object.
SCM finish(Outcome outcome)
{
    // What the outcome owns is released also when Guile runs out of memory below.
    scm_dynwind_begin(static_cast<scm_t_dynwind_flags>(0));
    scm_dynwind_free(outcome.error);
    scm_dynwind_unwind_handler(&deleteValue, outcome.result, SCM_F_WIND_EXPLICITLY);
    if (outcome.result == nullptr) {
        SCM text =
            scm_from_utf8_string(outcome.error == nullptr ? "Out of memory." : outcome.error);
        if (outcome.cancelled)
            scm_throw(scm_from_utf8_symbol("pellux-cancelled"), SCM_EOL);
        scm_throw(scm_from_utf8_symbol("pellux-error"), scm_list_1(text));
    }
    SCM value = ToScheme(*outcome.result);
    scm_dynwind_end();
    return value;
}

Value invokeCommand(std::size_t index, SCM arguments)
{
    std::vector<Value> values;
    const std::string& name = Primitives().commands.at(index);
    int position = 0;
    for (; scm_is_pair(arguments); arguments = SCM_CDR(arguments)) {
        ++position;
        try {
            values.push_back(FromScheme(SCM_CAR(arguments)));
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument(name + ": argument " + std::to_string(position) + ": " +
                                        error.what());
        }
    }
    // The arguments are data: only the command itself computes with the traps of the job.
    const TrapsOfJob traps;
    return CommandTable::Instance().Run(name, std::move(values));
}

SCM invoke(SCM index, SCM arguments)
{
    Outcome outcome;
    const std::size_t number = scm_to_size_t(index);
    guarded(outcome, [&] { return invokeCommand(number, arguments); });
    return finish(outcome);
}

SCM cancelPending()
{
    return scm_from_bool(CancelToken::Instance().IsCancelled());
}

Value helpOnAll()
{
    const CommandTable& table = CommandTable::Instance();
    std::string text;
    for (const std::string& name : table.Names())
        text += TambCommandsInfra::CommandTable::Signature(*table.Find(name)) + "\n    " +
                table.Find(name)->summary + "\n";
    text += "(help 'name) tells more of one command, (apropos \"text\") searches.\n";
    return Value(TambVizCore::Utils::StringToWstring(text));
}

Value helpOnOne(const std::string& name)
{
    const CommandTable& table = CommandTable::Instance();
    if (const auto command = table.Find(name))
        return Value(TambVizCore::Utils::StringToWstring(CommandTable::HelpText(*command)));
    const std::string nearest = table.Suggest(name);
    throw std::invalid_argument("help: there is no command \"" + name + "\"" +
                                (nearest.empty() ? "." : "; did you mean \"" + nearest + "\"?"));
}

std::string narrow(SCM text)
{
    return TambVizCore::Utils::WstringToString(FromScheme(text).AsString());
}

SCM help(SCM name)
{
    Outcome outcome;
    guarded(outcome, [&] { return scm_is_false(name) ? helpOnAll() : helpOnOne(narrow(name)); });
    return finish(outcome);
}

Value findCommands(const std::string& pattern)
{
    const CommandTable& table = CommandTable::Instance();
    std::string text;
    for (const std::string& name : table.Apropos(pattern))
        text += name + "\n    " + table.Find(name)->summary + "\n";
    if (text.empty())
        text = "No command speaks of \"" + pattern + "\".\n";
    return Value(TambVizCore::Utils::StringToWstring(text));
}

SCM apropos(SCM pattern)
{
    Outcome outcome;
    guarded(outcome, [&] { return findCommands(narrow(pattern)); });
    return finish(outcome);
}

SCM suggest(SCM name)
{
    Outcome outcome;
    guarded(outcome, [&] {
        const std::string nearest = CommandTable::Instance().Suggest(narrow(name));
        return nearest.empty() ? Value(false) : Value(TambVizCore::Utils::StringToWstring(nearest));
    });
    return finish(outcome);
}

void define(const char* name, int arguments, void* function)
{
    scm_c_define_gsubr(name, arguments, 0, 0, function);
}

} // namespace

PrimitiveState& Primitives()
{
    // Never destroyed: Guile may call a primitive as long as the process lives.
    static PrimitiveState& state = *new PrimitiveState;
    return state;
}

void DefinePrimitives()
{
    define("%invoke", 2, reinterpret_cast<void*>(&invoke));
    define("%cancel-pending?", 0, reinterpret_cast<void*>(&cancelPending));
    define("%help", 1, reinterpret_cast<void*>(&help));
    define("%suggest", 1, reinterpret_cast<void*>(&suggest));
    define("%apropos", 1, reinterpret_cast<void*>(&apropos));
}

} // namespace OrvikScheme
