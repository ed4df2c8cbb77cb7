#include "common/ExceptionTable.h"

#include <cstddef>
#include <cstring>

namespace OrvikOs {

namespace {

constexpr unsigned char kOmitted = 0xFF;     ///< Encoding of a value that is not there.
constexpr unsigned char kIndirect = 0x80;    ///< The value is the address of the pointer.
constexpr unsigned char kRelative = 0x10;    ///< The value is relative to its own place.
constexpr unsigned char kApplication = 0x70; ///< The bits that say what a value is relative to.

/// Gives the number of bytes of a fixed-size encoding.
std::size_t encodedBytes(unsigned char encoding)
{
    switch (encoding & 0x0Fu) {
    case 0x02:
    case 0x0A:
        return 2;
    case 0x03:
    case 0x0B:
        return 4;
    default:
        return 8;
    }
}

bool catches(const std::type_info* handler, const std::type_info* type, void* object)
{
    if (handler == nullptr || type == nullptr) {
        return true;
    }
    if (object == nullptr) {
        return *handler == *type;
    }
    void* adjusted = object;
    return handler->__do_catch(type, &adjusted, 1);
}

} // namespace

std::uint64_t TableReader::sevenBitGroups(unsigned& bits, unsigned char& last)
{
    std::uint64_t value = 0;
    bits = 0;
    do {
        last = Byte();
        value |= std::uint64_t{last & 0x7Fu} << bits;
        bits += 7;
    } while ((last & 0x80u) != 0);
    return value;
}

std::uint64_t TableReader::Unsigned()
{
    unsigned bits = 0;
    unsigned char last = 0;
    return sevenBitGroups(bits, last);
}

std::int64_t TableReader::Signed()
{
    unsigned bits = 0;
    unsigned char last = 0;
    std::uint64_t value = sevenBitGroups(bits, last);
    if (bits < 64 && (last & 0x40u) != 0) {
        value |= ~std::uint64_t{0} << bits;
    }
    return static_cast<std::int64_t>(value);
}

template <typename T> T TableReader::fixed()
{
    T value;
    std::memcpy(&value, m_position, sizeof value);
    m_position += sizeof value;
    return value;
}

std::uint64_t TableReader::Encoded(unsigned char encoding)
{
    const auto place = reinterpret_cast<std::uint64_t>(m_position);
    std::uint64_t value = 0;
    switch (encoding & 0x0Fu) {
    case 0x01:
        value = Unsigned();
        break;
    case 0x02:
        value = fixed<std::uint16_t>();
        break;
    case 0x03:
        value = fixed<std::uint32_t>();
        break;
    case 0x09:
        value = static_cast<std::uint64_t>(Signed());
        break;
    case 0x0A:
        value = static_cast<std::uint64_t>(std::int64_t{fixed<std::int16_t>()});
        break;
    case 0x0B:
        value = static_cast<std::uint64_t>(std::int64_t{fixed<std::int32_t>()});
        break;
    default: // A whole word.
        value = fixed<std::uint64_t>();
        break;
    }
    if (value != 0 && (encoding & kApplication) == kRelative) {
        value += place;
    }
    if (value != 0 && (encoding & kIndirect) != 0) {
        std::memcpy(&value, reinterpret_cast<const void*>(value), sizeof value);
    }
    return value;
}

ExceptionTable::ExceptionTable(const unsigned char* table, std::uint64_t functionStart)
    : m_functionStart(functionStart)
{
    TableReader reader(table);
    const unsigned char startEncoding = reader.Byte();
    if (startEncoding != kOmitted) {
        reader.Encoded(startEncoding);
    }
    m_typeEncoding = reader.Byte();
    if (m_typeEncoding != kOmitted) {
        const std::uint64_t offset = reader.Unsigned();
        m_types = reader.Position() + offset;
    }
    m_siteEncoding = reader.Byte();
    const std::uint64_t bytes = reader.Unsigned();
    m_sites = reader.Position();
    m_actions = m_sites + bytes;
}

FrameAnswer ExceptionTable::AnswerAt(std::uint64_t address, const std::type_info* type,
                                     void* object) const
{
    const std::uint64_t offset = address - m_functionStart;
    TableReader reader(m_sites);
    while (reader.Position() < m_actions) {
        const std::uint64_t start = reader.Encoded(m_siteEncoding);
        const std::uint64_t length = reader.Encoded(m_siteEncoding);
        const std::uint64_t landing = reader.Encoded(m_siteEncoding);
        const std::uint64_t action = reader.Unsigned();
        if (offset < start) {
            break; // The sites are in rising order.
        }
        if (offset < start + length) {
            return landing == 0 || action == 0 ? FrameAnswer::Passes
                                               : answerOfAction(action, type, object);
        }
    }
    return FrameAnswer::Terminates;
}

FrameAnswer ExceptionTable::answerOfAction(std::uint64_t action, const std::type_info* type,
                                           void* object) const
{
    TableReader reader(m_actions + action - 1);
    for (;;) {
        const std::int64_t filter = reader.Signed();
        const unsigned char* const place = reader.Position();
        const std::int64_t distance = reader.Signed();
        if (filter > 0 && catches(typeAt(static_cast<std::uint64_t>(filter)), type, object)) {
            return FrameAnswer::Catches;
        }
        if (filter < 0) { // An exception list of old; what it does not name ends the program.
            return FrameAnswer::Terminates;
        }
        if (distance == 0) {
            return FrameAnswer::Passes;
        }
        reader = TableReader(place + distance);
    }
}

const std::type_info* ExceptionTable::typeAt(std::uint64_t filter) const
{
    TableReader reader(m_types - filter * encodedBytes(m_typeEncoding));
    return reinterpret_cast<const std::type_info*>(reader.Encoded(m_typeEncoding));
}

} // namespace OrvikOs
