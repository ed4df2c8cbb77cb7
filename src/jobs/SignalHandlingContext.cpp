#include "OrvikCore/SignalHandlingContext.h"

#include "FaultTexts.h"

#include "OrvikCore/StructuredException.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/FileWriting.h>
#include <OrvikOs/FpControl.h>
#include <OrvikOs/Utf8.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace OrvikCore {

namespace {

/// The longest text of an invalid parameter, in characters.
constexpr std::size_t kInvalidParameterSize = 256;

std::atomic<const char*> s_crashFilePath{kCrashFilePath};

bool isFloatingPointCode(std::uint32_t code)
{
    return code >= OrvikOs::EXCEPTION_FLT_DENORMAL_OPERAND &&
           code <= OrvikOs::EXCEPTION_FLT_UNDERFLOW;
}

[[noreturn]] void throwFault(const OrvikOs::EXCEPTION_RECORD& record)
{
    if (isFloatingPointCode(record.ExceptionCode)) {
        OrvikOs::FpControl::ClearStatus();
    }
    throw StructuredException(&record);
}

[[noreturn]] void throwPureCall()
{
    throw std::logic_error(kPureCall);
}

[[noreturn]] void throwAbort()
{
    throw std::runtime_error(kAbnormalAbort);
}

std::string narrowOrEmpty(const wchar_t* text)
{
    return text ? OrvikOs::WideToUtf8(text) : std::string();
}

[[noreturn]] void throwInvalidParameter(const wchar_t* expression, const wchar_t* function,
                                        const wchar_t* file, unsigned line)
{
    if (!function && !file && !expression && line == 0) {
        throw std::invalid_argument(kInvalidParameterNoDetails);
    }
    // Put together in narrow characters: wide formatting depends on the locale. The limit counts
    // wide characters.
    const std::string functionText = narrowOrEmpty(function);
    const std::string fileText = narrowOrEmpty(file);
    const std::string expressionText = narrowOrEmpty(expression);
    const int length =
        std::snprintf(nullptr, 0, kInvalidParameterFormat, functionText.c_str(), fileText.c_str(),
                      static_cast<int>(line), expressionText.c_str());
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::snprintf(text.data(), text.size() + 1, kInvalidParameterFormat, functionText.c_str(),
                  fileText.c_str(), static_cast<int>(line), expressionText.c_str());
    const std::wstring wide = OrvikOs::Utf8ToWide(text).substr(0, kInvalidParameterSize - 1);
    throw std::invalid_argument(OrvikOs::WideToUtf8(wide));
}

/// Writes the marker line by line, flushing what the stream has kept back before it too.
void writeMarker(std::FILE* stream)
{
    for (const char* character = kCrashMarker; *character != '\0'; ++character) {
        std::fputc(*character, stream);
        if (*character == '\n') {
            std::fflush(stream);
        }
    }
}

[[noreturn]] void onTerminate()
{
    // The abort below must end the process, not become one more exception.
    OrvikOs::RestoreDefaultAbort();
    if (!OrvikOs::WriteMarkerFile(s_crashFilePath.load(std::memory_order_acquire), kCrashMarker)) {
        std::fputs(kCrashFileNotOpened, stdout);
    }
    writeMarker(stdout);
    writeMarker(stderr);
    std::abort();
}

void trace(const char* format, unsigned value)
{
    char line[128];
    std::snprintf(line, sizeof line, format, value);
    OrvikOs::WriteDebug(line);
}

/// Sets the exception masks and traces the outcome.
void applyControlWord(unsigned value, const char* newFormat, const char* errorFormat)
{
    const int error = OrvikOs::FpControl::SetControlWord(value, OrvikOs::kMCW_EM);
    if (error == 0) {
        trace(newFormat, OrvikOs::FpControl::ControlWord());
    } else {
        trace(errorFormat, static_cast<unsigned>(error));
    }
}

/// Scopes that know nothing of this library throw its exceptions too, from its loading on.
[[maybe_unused]] const OrvikOs::FaultHandlers s_previousProcessHandlers =
    OrvikOs::SetProcessFaultHandlers(
        {throwFault, throwPureCall, throwInvalidParameter, throwAbort});

} // namespace

SignalHandlingContext::SignalHandlingContext() : SignalHandlingContext(false) {}

SignalHandlingContext::SignalHandlingContext(const bool& floatingPointControl)
    : m_floatingPointControl(floatingPointControl)
{
    setSEHandling();
}

SignalHandlingContext::SignalHandlingContext(const SignalHandlingContext& other)
    : SignalHandlingContext(other.m_floatingPointControl)
{
}

SignalHandlingContext& SignalHandlingContext::operator=(const SignalHandlingContext&)
{
    return *this;
}

SignalHandlingContext::~SignalHandlingContext()
{
    unsetSEHandling();
}

void SignalHandlingContext::Test() {}

void SignalHandlingContext::SetCrashFilePath(const char* path)
{
    s_crashFilePath.store(path ? path : kCrashFilePath, std::memory_order_release);
}

void SignalHandlingContext::setSEHandling()
{
    OrvikOs::FaultScope::Enter();
    m_previousTerminate = std::set_terminate(onTerminate);
    m_previousTranslator = OrvikOs::SetFaultTranslator(throwFault);
    m_previousPureCall = OrvikOs::SetPureCallHandler(throwPureCall);
    m_previousInvalidParameter = OrvikOs::SetInvalidParameterHandler(throwInvalidParameter);
    m_previousAbort = OrvikOs::SetAbortHandler(throwAbort);
    if (m_floatingPointControl) {
        disableFloatingPointControl();
    }
}

void SignalHandlingContext::unsetSEHandling()
{
    std::set_terminate(m_previousTerminate);
    OrvikOs::SetFaultTranslator(m_previousTranslator);
    OrvikOs::SetPureCallHandler(m_previousPureCall);
    OrvikOs::SetInvalidParameterHandler(m_previousInvalidParameter);
    OrvikOs::SetAbortHandler(m_previousAbort);
    if (m_floatingPointControl) {
        unsetFloatingPointControl();
    }
    OrvikOs::FaultScope::Leave();
}

void SignalHandlingContext::disableFloatingPointControl()
{
    OrvikOs::FpControl::ClearStatus();
    m_savedControlWord = OrvikOs::FpControl::ControlWord();
    trace(kOriginalControlWord, m_savedControlWord);
    applyControlWord(OrvikOs::kEM_INEXACT | OrvikOs::kEM_UNDERFLOW | OrvikOs::kEM_INVALID,
                     kNewControlWord, kDisableControlError);
}

void SignalHandlingContext::setFloatingPointControl()
{
    OrvikOs::FpControl::ClearStatus();
    m_savedControlWord = OrvikOs::FpControl::ControlWord();
    trace(kOriginalControlWord, m_savedControlWord);
    const unsigned trapping =
        OrvikOs::kEM_OVERFLOW | OrvikOs::kEM_ZERODIVIDE | OrvikOs::kEM_INVALID;
    applyControlWord(m_savedControlWord & ~trapping, kNewControlWord, kSetControlError);
}

void SignalHandlingContext::unsetFloatingPointControl()
{
    OrvikOs::FpControl::ClearStatus();
    applyControlWord(m_savedControlWord, kRestoringControlWord, kUnsetControlError);
}

} // namespace OrvikCore
