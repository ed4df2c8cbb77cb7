#include "posix/Faults.h"

#include <unwind.h>

#include <cstring>

extern "C" {

/// The C++ personality routine of this process; only its address is used.
void __gxx_personality_v0();

/// What the unwinder knows about the function around an address.
struct dwarf_eh_bases
{
    void* tbase;
    void* dbase;
    void* func;
};
const void* _Unwind_Find_FDE(const void* address, dwarf_eh_bases* bases);
}

namespace OrvikOs {

namespace {

constexpr unsigned kMostFrames = 1u << 20; ///< Past this the stack is taken for broken.
constexpr unsigned char kOmitted = 0xFF;   ///< Encoding of a value that is not there.
constexpr unsigned char kAbsoluteOffset = 0x00;
constexpr unsigned char kIndirect = 0x80; ///< The value is the address of the pointer.
constexpr unsigned char kRelative = 0x10; ///< The value is relative to its own place.

/// Reads the variable-length values of exception tables.
class TableReader
{
public:
    explicit TableReader(const unsigned char* position) : m_position(position) {}

    const unsigned char* Position() const { return m_position; }

    unsigned char Byte() { return *m_position++; }

    std::uint64_t Unsigned()
    {
        std::uint64_t value = 0;
        unsigned shift = 0;
        unsigned char byte = 0;
        do {
            byte = Byte();
            value |= std::uint64_t{byte & 0x7Fu} << shift;
            shift += 7;
        } while ((byte & 0x80u) != 0);
        return value;
    }

    std::int64_t Signed()
    {
        std::uint64_t value = 0;
        unsigned shift = 0;
        unsigned char byte = 0;
        do {
            byte = Byte();
            value |= std::uint64_t{byte & 0x7Fu} << shift;
            shift += 7;
        } while ((byte & 0x80u) != 0);
        if (shift < 64 && (byte & 0x40u) != 0) {
            value |= ~std::uint64_t{0} << shift;
        }
        return static_cast<std::int64_t>(value);
    }

    /// Reads a value in one of the encodings that gcc and clang use on this processor.
    std::uint64_t Encoded(unsigned char encoding)
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
        if (value != 0 && (encoding & 0x70u) == kRelative) {
            value += place;
        }
        if (value != 0 && (encoding & kIndirect) != 0) {
            std::memcpy(&value, reinterpret_cast<const void*>(value), sizeof value);
        }
        return value;
    }

private:
    template <typename T> T fixed()
    {
        T value;
        std::memcpy(&value, m_position, sizeof value);
        m_position += sizeof value;
        return value;
    }

    const unsigned char* m_position;
};

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

/// Tells whether the function around @p address leaves its exceptions to the C++ runtime: only that
/// one ends the program at a place that the table leaves out.
bool usesCppPersonality(const void* address)
{
    dwarf_eh_bases bases = {};
    const auto* const fde = static_cast<const unsigned char*>(_Unwind_Find_FDE(address, &bases));
    if (fde == nullptr) {
        return false;
    }
    // The second word is the distance back to the common entry.
    std::int32_t distance = 0;
    std::memcpy(&distance, fde + 4, sizeof distance);
    const unsigned char* const cie = fde + 4 - distance;
    const unsigned char version = cie[8];
    const char* const augmentation = reinterpret_cast<const char*>(cie + 9);
    if (augmentation[0] != 'z') {
        return false;
    }
    TableReader reader(cie + 9 + std::strlen(augmentation) + 1);
    reader.Unsigned(); // Code alignment.
    reader.Signed();   // Data alignment.
    if (version == 1) {
        reader.Byte();
    } else {
        reader.Unsigned();
    }
    reader.Unsigned(); // Length of what follows.
    for (const char* letter = augmentation + 1; *letter != '\0'; ++letter) {
        if (*letter == 'P') {
            const unsigned char encoding = reader.Byte();
            return reader.Encoded(encoding) ==
                   reinterpret_cast<std::uint64_t>(&__gxx_personality_v0);
        }
        if (*letter == 'R' || *letter == 'L') {
            reader.Byte();
        } else if (*letter != 'S' && *letter != 'B') {
            return false;
        }
    }
    return false;
}

/// What a frame does when an exception arrives.
enum class FrameAnswer
{
    Passes,     ///< Lets it pass, perhaps after its destructors.
    Catches,    ///< Has a handler for it.
    Terminates, ///< Would end the program.
};

/// The exception table of one function.
class ExceptionTable
{
public:
    ExceptionTable(const unsigned char* table, std::uint64_t functionStart)
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

    /// Gives the answer for an exception of the given type at @p address.
    FrameAnswer AnswerAt(std::uint64_t address, const std::type_info* type, void* object) const
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

private:
    FrameAnswer answerOfAction(std::uint64_t action, const std::type_info* type, void* object) const
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

    /// Gives the type of a handler, null for one that catches everything.
    const std::type_info* typeAt(std::uint64_t filter) const
    {
        TableReader reader(m_types - filter * encodedBytes(m_typeEncoding));
        return reinterpret_cast<const std::type_info*>(reader.Encoded(m_typeEncoding));
    }

    static bool catches(const std::type_info* handler, const std::type_info* type, void* object)
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

    std::uint64_t m_functionStart;
    const unsigned char* m_types = nullptr; ///< End of the list of types, which is read backwards.
    const unsigned char* m_sites = nullptr;
    const unsigned char* m_actions = nullptr; ///< Also the end of the sites.
    unsigned char m_typeEncoding = kAbsoluteOffset;
    unsigned char m_siteEncoding = kAbsoluteOffset;
};

/// The state of one walk outward.
struct Walk
{
    const std::type_info* type;
    void* object;
    std::uint64_t faultAddress; ///< Program counter of the faulting frame.
    std::uint64_t faultStack;   ///< Stack pointer of the faulting frame.
    unsigned frames = 0;
    bool reachedFault = false;    ///< The frames of this library's own handling are passed.
    bool moveToThisFrame = false; ///< The frame before would have ended the program.
    bool isMoved = false;
    bool hasCatcher = false;
    FaultFrame target = {}; ///< Where to throw from when isMoved.
};

/// Takes the registers of the frame that the walk stands at.
void takeRegisters(_Unwind_Context* context, FaultFrame& target)
{
    const auto value = [context](int number) {
        return static_cast<std::uint64_t>(_Unwind_GetGR(context, number));
    };
    target.rip = _Unwind_GetIP(context) - 1; // Within the call, not behind it.
    target.rsp = _Unwind_GetCFA(context);
    target.rbx = value(3);
    target.rbp = value(6);
    target.r12 = value(12);
    target.r13 = value(13);
    target.r14 = value(14);
    target.r15 = value(15);
}

_Unwind_Reason_Code visitFrame(_Unwind_Context* context, void* argument)
{
    Walk& walk = *static_cast<Walk*>(argument);
    int isExact = 0;
    const std::uint64_t reported = _Unwind_GetIPInfo(context, &isExact);
    if (reported == 0 || ++walk.frames > kMostFrames) {
        return _URC_END_OF_STACK;
    }
    if (!walk.reachedFault) {
        walk.reachedFault =
            reported == walk.faultAddress && _Unwind_GetCFA(context) == walk.faultStack;
        if (!walk.reachedFault) {
            return _URC_NO_REASON;
        }
    }
    if (walk.moveToThisFrame) {
        takeRegisters(context, walk.target);
        walk.isMoved = true;
        walk.moveToThisFrame = false;
    }
    const std::uint64_t address = isExact != 0 ? reported : reported - 1;
    const auto* const table =
        reinterpret_cast<const unsigned char*>(_Unwind_GetLanguageSpecificData(context));
    if (table == nullptr || !usesCppPersonality(reinterpret_cast<const void*>(address))) {
        return _URC_NO_REASON;
    }
    switch (ExceptionTable(table, _Unwind_GetRegionStart(context))
                .AnswerAt(address, walk.type, walk.object)) {
    case FrameAnswer::Passes:
        break;
    case FrameAnswer::Catches:
        walk.hasCatcher = true;
        return _URC_END_OF_STACK;
    case FrameAnswer::Terminates:
        walk.moveToThisFrame = true;
        break;
    }
    return _URC_NO_REASON;
}

} // namespace

bool SkipTerminatingFrames(FaultFrame& frame, const std::type_info* type, void* object)
{
    Walk walk = {};
    walk.type = type;
    walk.object = object;
    walk.faultAddress = frame.rip;
    walk.faultStack = frame.rsp;
    _Unwind_Backtrace(&visitFrame, &walk);
    if (!walk.isMoved || !walk.hasCatcher) {
        return walk.hasCatcher;
    }
    frame.rip = walk.target.rip;
    frame.rsp = walk.target.rsp;
    frame.rbx = walk.target.rbx;
    frame.rbp = walk.target.rbp;
    frame.r12 = walk.target.r12;
    frame.r13 = walk.target.r13;
    frame.r14 = walk.target.r14;
    frame.r15 = walk.target.r15;
    return true;
}

} // namespace OrvikOs
