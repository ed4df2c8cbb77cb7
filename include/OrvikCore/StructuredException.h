#ifndef ORVIKCORE_STRUCTUREDEXCEPTION_H
#define ORVIKCORE_STRUCTUREDEXCEPTION_H

#include "OrvikCore/Export.h"

#include <OrvikOs/ExceptionRecord.h>

#include <cstdint>
#include <exception>

namespace OrvikCore {

/// A machine fault as an exception: keeps a copy of the fault's record and describes it.
class ORVIKCORE_API StructuredException : public std::exception
{
public:
    /// @param record  the fault, copied; null is allowed and described as
    ///                "Invalid ExceptionRecord".
    explicit StructuredException(const OrvikOs::EXCEPTION_RECORD* record);

    /// Copies record, code and text; the copy refers to its own record.
    StructuredException(const StructuredException& other);
    StructuredException& operator=(const StructuredException& other);
    ~StructuredException() override;

    /// Describes the fault on five lines: "Unhandled Exception", code and name, flags, address,
    /// and a sentence about the code; at most 511 characters.
    ///
    /// The text is made by the first call, which must not race with another on the same object.
    ///
    /// @return valid as long as the exception.
    const char* what() const noexcept override;

private:
    static constexpr unsigned kMessageSize = 512;

    void formatMessage() const;

    OrvikOs::EXCEPTION_RECORD* m_record = nullptr; ///< Null, or this object's own copy below.
    OrvikOs::EXCEPTION_RECORD m_recordCopy{};
    std::uint32_t m_code = 0;
    mutable char m_message[kMessageSize] = {}; ///< Empty until the first what().
};

} // namespace OrvikCore

#endif
