#ifndef ORVIKCORE_SRC_JOBS_FAULTTEXTS_H
#define ORVIKCORE_SRC_JOBS_FAULTTEXTS_H

#include <cstdint>

namespace OrvikCore {

// The wording is fixed, spelling included.

inline constexpr char kPureCall[] = "Pure virtual call";
inline constexpr char kAbnormalAbort[] = "Abnormal abort.";
inline constexpr char kInvalidParameterFormat[] = "Invalid parameter detected\n"
                                                  "   Function: %s\n"
                                                  "   File:     %s\n"
                                                  "   Line:     %d\n"
                                                  "   Expression: %s";
inline constexpr char kInvalidParameterNoDetails[] =
    "Invalid parameter detected, but the details are not available";

inline constexpr char kCrashFilePath[] = "/Pellux.crash";
inline constexpr char kCrashMarker[] = "!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n"
                                       "!!! terminate handler called\n"
                                       "!!!!!!!!!!!!!!!!!!!!!!!!!!!!\n";
inline constexpr char kCrashFileNotOpened[] = "Unable to open file";

inline constexpr char kOriginalControlWord[] = "Original  _controlfp_s value: 0x%.4x\n";
inline constexpr char kNewControlWord[] = "New       _controlfp_s value: 0x%.4x\n";
inline constexpr char kRestoringControlWord[] = "Restoring _controlfp_s value: 0x%.4x\n";
inline constexpr char kDisableControlError[] = "Error in disableFloatingPointControl(): %d\n";
inline constexpr char kSetControlError[] = "Error in setFloatingPointControl(): %d\n";
inline constexpr char kUnsetControlError[] = "Error in unsetFloatingPointControl(): %d\n";

inline constexpr char kInvalidRecord[] = "Invalid ExceptionRecord";
inline constexpr char kInvalidCode[] = "Invalid ExceptionCode";
inline constexpr char kNoncontinuable[] = "EXCEPTION_NONCONTINUABLE";
inline constexpr char kReadingFrom[] = " Reading from address: ";
inline constexpr char kWritingTo[] = " Writing to address: ";
inline constexpr char kExecutionPrevented[] = "  Data execution prevention (DEP) violation at ";
inline constexpr char kAddressFormat[] = "0x%llx.";
inline constexpr char kNtStatusFormat[] = " NTSTATUS = 0x%llx.";
inline constexpr char kFaultFormat[] = "Unhandled Exception\n"
                                       "   Code:    0x%8.8X  %s\n"
                                       "   Flags:   %s\n"
                                       "   Address: 0x%8.8llx\n"
                                       "   Message: %s";

/// Name and meaning of an exception code.
struct ExceptionText
{
    std::uint32_t code;
    const char* name;
    const char* description;
};

/// @return the entry for the code; for an unknown one "Invalid ExceptionCode" and no description.
const ExceptionText& exceptionText(std::uint32_t code);

} // namespace OrvikCore

#endif
