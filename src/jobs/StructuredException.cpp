#include "OrvikCore/StructuredException.h"

#include "FaultTexts.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace OrvikCore {

namespace {

// Kinds of access in the first parameter of a record.
constexpr std::uint64_t kKindRead = 0;
constexpr std::uint64_t kKindWrite = 1;
constexpr std::uint64_t kKindExecute = 8;

/// Detail texts are at most two short sentences with a 16-digit number each.
constexpr std::size_t kDetailSize = 128;

const char* kindText(std::uint64_t kind)
{
    switch (kind) {
    case kKindRead:
        return kReadingFrom;
    case kKindWrite:
        return kWritingTo;
    case kKindExecute:
        return kExecutionPrevented;
    default:
        return nullptr;
    }
}

/// Writes what the parameters of an access fault tell; an empty text for any other code.
void formatDetail(const OrvikOs::EXCEPTION_RECORD& record, char (&detail)[kDetailSize])
{
    detail[0] = '\0';
    const bool inPage = record.ExceptionCode == OrvikOs::EXCEPTION_IN_PAGE_ERROR;
    if (!inPage && record.ExceptionCode != OrvikOs::EXCEPTION_ACCESS_VIOLATION) {
        return;
    }
    std::size_t used = 0;
    const auto append = [&detail, &used](const char* format, auto value) {
        const int written = std::snprintf(detail + used, kDetailSize - used, format, value);
        used = std::min(used + static_cast<std::size_t>(std::max(written, 0)), kDetailSize - 1);
    };
    if (const char* kind = kindText(record.ExceptionInformation[0])) {
        append("%s", kind);
        append(kAddressFormat, static_cast<unsigned long long>(record.ExceptionInformation[1]));
    }
    if (inPage) {
        append(kNtStatusFormat, static_cast<unsigned long long>(record.ExceptionInformation[2]));
    }
}

} // namespace

StructuredException::StructuredException(const OrvikOs::EXCEPTION_RECORD* record)
{
    if (record) {
        m_recordCopy = *record;
        m_record = &m_recordCopy;
        m_code = record->ExceptionCode;
    }
}

StructuredException::StructuredException(const StructuredException& other)
    : std::exception(other),
      m_record(other.m_record ? &m_recordCopy : nullptr),
      m_recordCopy(other.m_recordCopy),
      m_code(other.m_code)
{
    std::memcpy(m_message, other.m_message, kMessageSize);
}

StructuredException& StructuredException::operator=(const StructuredException& other)
{
    if (this != &other) {
        m_recordCopy = other.m_recordCopy;
        m_record = other.m_record ? &m_recordCopy : nullptr;
        m_code = other.m_code;
        std::memcpy(m_message, other.m_message, kMessageSize);
    }
    return *this;
}

StructuredException::~StructuredException() = default;

const char* StructuredException::what() const noexcept
{
    if (m_message[0] == '\0') {
        formatMessage();
    }
    return m_message;
}

void StructuredException::formatMessage() const
{
    if (!m_record) {
        std::snprintf(m_message, kMessageSize, "%s", kInvalidRecord);
        return;
    }
    char flags[32];
    if (m_record->ExceptionFlags == OrvikOs::EXCEPTION_NONCONTINUABLE) {
        std::snprintf(flags, sizeof flags, "%s", kNoncontinuable);
    } else {
        std::snprintf(flags, sizeof flags, "%u", m_record->ExceptionFlags);
    }
    char detail[kDetailSize];
    formatDetail(*m_record, detail);
    const ExceptionText& text = exceptionText(m_code);
    char message[kDetailSize + 256];
    std::snprintf(message, sizeof message, "%s%s", text.description, detail);
    std::snprintf(m_message, kMessageSize, kFaultFormat, m_code, text.name, flags,
                  reinterpret_cast<unsigned long long>(m_record->ExceptionAddress), message);
}

} // namespace OrvikCore
