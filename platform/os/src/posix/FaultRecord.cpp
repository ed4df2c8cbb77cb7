#include "posix/Faults.h"

#include <signal.h>
#include <ucontext.h>

#include <cstring>

namespace OrvikOs {

namespace {

constexpr greg_t kDivideTrap = 0;
constexpr greg_t kDebugTrap = 1;
constexpr greg_t kBreakpointTrap = 3;
constexpr greg_t kProtectionTrap = 13;
constexpr greg_t kPageFaultTrap = 14;
constexpr greg_t kX87Trap = 16;
constexpr greg_t kWriteBit = 2;  ///< Of a page fault's error code.
constexpr greg_t kFetchBit = 16; ///< Of a page fault's error code.

constexpr std::uintptr_t kKindRead = 0;
constexpr std::uintptr_t kKindWrite = 1;
constexpr std::uintptr_t kKindExecute = 8;
constexpr std::uintptr_t kUnknownAddress = ~std::uintptr_t{0};

constexpr unsigned kX87StackFault = 0x40;
constexpr unsigned kSixErrors = 0x3F;

/// Walks over one machine instruction.
class InstructionReader
{
public:
    explicit InstructionReader(const ucontext_t& context)
        : m_context(context),
          m_next(reinterpret_cast<const unsigned char*>(context.uc_mcontext.gregs[REG_RIP]))
    {
        readPrefixes();
    }

    /// Gives the first byte of the operation code.
    unsigned char Opcode() const { return *m_next; }

    /// Tells whether user programs may not run the instruction.
    bool IsPrivileged() const
    {
        switch (m_next[0]) {
        case 0x6C: // ins, outs
        case 0x6D:
        case 0x6E:
        case 0x6F:
        case 0xE4: // in, out
        case 0xE5:
        case 0xE6:
        case 0xE7:
        case 0xEC:
        case 0xED:
        case 0xEE:
        case 0xEF:
        case 0xF4: // hlt
        case 0xFA: // cli
        case 0xFB: // sti
            return true;
        case 0x0F:
            return isPrivilegedExtension(m_next[1]);
        default:
            return false;
        }
    }

    /// Tells whether the instruction is an integer division whose divisor is not zero: what failed
    /// is then that the quotient has no room.
    bool IsDivisionByNonZero() const
    {
        const unsigned char opcode = m_next[0];
        const unsigned operation = m_next[1] >> 3 & 7u;
        if ((opcode != 0xF6 && opcode != 0xF7) || operation < 6 || m_hasSegment) {
            return false;
        }
        const std::size_t bytes = opcode == 0xF6 ? 1 : m_isWide ? 8 : m_isShort ? 2 : 4;
        std::uint64_t divisor = 0;
        if (m_next[1] >> 6 == 3) {
            divisor = byteRegisterIsHigh(bytes) ? registerAt(m_next[1] & 3u) >> 8
                                                : registerAt((m_next[1] & 7u) | m_extendBase);
            divisor &= bytes == 8 ? ~std::uint64_t{0} : (std::uint64_t{1} << (8 * bytes)) - 1;
        } else {
            std::memcpy(&divisor, reinterpret_cast<const void*>(operandAddress()), bytes);
        }
        return divisor != 0;
    }

private:
    void readPrefixes()
    {
        for (;; ++m_next) {
            const unsigned char byte = *m_next;
            if (byte == 0x66) {
                m_isShort = true;
            } else if (byte == 0x64 || byte == 0x65) {
                m_hasSegment = true;
            } else if (byte != 0x67 && byte != 0xF0 && byte != 0xF2 && byte != 0xF3 &&
                       byte != 0x2E && byte != 0x36 && byte != 0x3E && byte != 0x26) {
                break;
            }
        }
        if ((*m_next & 0xF0u) == 0x40) {
            m_hasRex = true;
            m_isWide = (*m_next & 8u) != 0;
            m_extendIndex = (*m_next & 2u) != 0 ? 8 : 0;
            m_extendBase = (*m_next & 1u) != 0 ? 8 : 0;
            ++m_next;
        }
    }

    static bool isPrivilegedExtension(unsigned char second)
    {
        switch (second) {
        case 0x00: // lldt, ltr
        case 0x01: // lgdt, lidt, invlpg, swapgs
        case 0x06: // clts
        case 0x07: // sysret
        case 0x08: // invd
        case 0x09: // wbinvd
        case 0x20: // mov from and to control and debug registers
        case 0x21:
        case 0x22:
        case 0x23:
        case 0x30: // wrmsr
        case 0x32: // rdmsr
        case 0x33: // rdpmc
        case 0x35: // sysexit
            return true;
        default:
            return false;
        }
    }

    /// Without a REX prefix the byte registers 4 to 7 are the second bytes of registers 0 to 3.
    bool byteRegisterIsHigh(std::size_t bytes) const
    {
        return bytes == 1 && !m_hasRex && (m_next[1] & 4u) != 0;
    }

    std::uint64_t registerAt(unsigned number) const
    {
        static constexpr int kOrder[16] = {REG_RAX, REG_RCX, REG_RDX, REG_RBX, REG_RSP, REG_RBP,
                                           REG_RSI, REG_RDI, REG_R8,  REG_R9,  REG_R10, REG_R11,
                                           REG_R12, REG_R13, REG_R14, REG_R15};
        return static_cast<std::uint64_t>(m_context.uc_mcontext.gregs[kOrder[number]]);
    }

    static std::uint64_t displacement32(const unsigned char* bytes)
    {
        std::int32_t value = 0;
        std::memcpy(&value, bytes, sizeof value);
        return static_cast<std::uint64_t>(std::int64_t{value});
    }

    /// Gives the address of the memory operand.
    std::uint64_t operandAddress() const
    {
        const unsigned mode = m_next[1] >> 6;
        const unsigned base = m_next[1] & 7u;
        const unsigned char* rest = m_next + 2;
        std::uint64_t address = 0;
        if (base == 4) {
            const unsigned char scaled = *rest++;
            const unsigned index = (scaled >> 3 & 7u) | m_extendIndex;
            const bool hasBase = (scaled & 7u) != 5 || mode != 0;
            address = hasBase ? registerAt((scaled & 7u) | m_extendBase) : displacement32(rest);
            if (index != 4) {
                address += registerAt(index) << (scaled >> 6);
            }
        } else if (base == 5 && mode == 0) { // Relative to the next instruction.
            return reinterpret_cast<std::uint64_t>(rest + 4) + displacement32(rest);
        } else {
            address = registerAt(base | m_extendBase);
        }
        if (mode == 1) {
            address += static_cast<std::uint64_t>(std::int64_t{static_cast<signed char>(*rest)});
        } else if (mode == 2) {
            address += displacement32(rest);
        }
        return address;
    }

    const ucontext_t& m_context;
    const unsigned char* m_next; ///< The operation code, behind all prefixes.
    bool m_isShort = false;      ///< Operands of 16 bits.
    bool m_isWide = false;       ///< Operands of 64 bits.
    bool m_hasRex = false;
    bool m_hasSegment = false;  ///< Addresses are relative to a base that is not known here.
    unsigned m_extendIndex = 0; ///< 8 when the index register is one of the upper eight.
    unsigned m_extendBase = 0;  ///< 8 when the base register is one of the upper eight.
};

void setAccess(EXCEPTION_RECORD& record, std::uint32_t code, std::uintptr_t kind,
               std::uintptr_t address)
{
    record.ExceptionCode = code;
    record.NumberParameters = 2;
    record.ExceptionInformation[0] = kind;
    record.ExceptionInformation[1] = address;
}

std::uintptr_t kindOfAccess(const ucontext_t& context)
{
    const greg_t bits = context.uc_mcontext.gregs[REG_ERR];
    if ((bits & kFetchBit) != 0) {
        return kKindExecute;
    }
    return (bits & kWriteBit) != 0 ? kKindWrite : kKindRead;
}

void describeSegmentation(EXCEPTION_RECORD& record, const siginfo_t& info,
                          const ucontext_t& context)
{
    const greg_t trap = context.uc_mcontext.gregs[REG_TRAPNO];
    if (trap == kPageFaultTrap) {
        setAccess(record, EXCEPTION_ACCESS_VIOLATION, kindOfAccess(context),
                  reinterpret_cast<std::uintptr_t>(info.si_addr));
    } else if (trap == kProtectionTrap && InstructionReader(context).IsPrivileged()) {
        record.ExceptionCode = EXCEPTION_PRIV_INSTRUCTION;
    } else { // The processor does not tell the address of an operand that is no address at all.
        setAccess(record, EXCEPTION_ACCESS_VIOLATION, kKindRead, kUnknownAddress);
    }
}

void describeBus(EXCEPTION_RECORD& record, const siginfo_t& info, const ucontext_t& context)
{
    switch (info.si_code) {
    case BUS_ADRALN:
        record.ExceptionCode = EXCEPTION_DATATYPE_MISALIGNMENT;
        break;
    case BUS_ADRERR:
    case BUS_MCEERR_AR:
    case BUS_MCEERR_AO:
        setAccess(record, EXCEPTION_IN_PAGE_ERROR, kindOfAccess(context),
                  reinterpret_cast<std::uintptr_t>(info.si_addr));
        record.NumberParameters = 3;
        record.ExceptionInformation[2] = STATUS_END_OF_FILE;
        break;
    default: // An address on the stack that is no address at all.
        setAccess(record, EXCEPTION_ACCESS_VIOLATION, kKindRead, kUnknownAddress);
        break;
    }
}

/// Chooses the code for a set of floating-point errors that are raised and not masked.
std::uint32_t floatingPointCode(unsigned errors)
{
    if ((errors & 0x01u) != 0) {
        return EXCEPTION_FLT_INVALID_OPERATION;
    }
    if ((errors & 0x04u) != 0) {
        return EXCEPTION_FLT_DIVIDE_BY_ZERO;
    }
    if ((errors & 0x02u) != 0) {
        return EXCEPTION_FLT_DENORMAL_OPERAND;
    }
    if ((errors & 0x08u) != 0) {
        return EXCEPTION_FLT_OVERFLOW;
    }
    return (errors & 0x10u) != 0 ? EXCEPTION_FLT_UNDERFLOW : EXCEPTION_FLT_INEXACT_RESULT;
}

void describeArithmetic(EXCEPTION_RECORD& record, const ucontext_t& context)
{
    const greg_t trap = context.uc_mcontext.gregs[REG_TRAPNO];
    if (trap == kDivideTrap) {
        record.ExceptionCode = InstructionReader(context).IsDivisionByNonZero()
                                   ? EXCEPTION_INT_OVERFLOW
                                   : EXCEPTION_INT_DIVIDE_BY_ZERO;
        return;
    }
    const auto* const fp = context.uc_mcontext.fpregs;
    if (trap == kX87Trap) {
        const unsigned errors = fp->swd & ~static_cast<unsigned>(fp->cwd) & kSixErrors;
        const bool isStackFault = (errors & 1u) != 0 && (fp->swd & kX87StackFault) != 0;
        record.ExceptionCode = isStackFault ? EXCEPTION_FLT_STACK_CHECK : floatingPointCode(errors);
        if (fp->rip !=
            0) { // The unit reports late: the program counter is at its next instruction.
            record.ExceptionAddress = reinterpret_cast<void*>(fp->rip);
        }
        return;
    }
    record.ExceptionCode = floatingPointCode(fp->mxcsr & ~(fp->mxcsr >> 7) & kSixErrors);
}

} // namespace

EXCEPTION_RECORD DescribeFault(int signal, const siginfo_t& info, const ucontext_t& context)
{
    EXCEPTION_RECORD record;
    const greg_t* const registers = context.uc_mcontext.gregs;
    record.ExceptionAddress = reinterpret_cast<void*>(registers[REG_RIP]);
    switch (signal) {
    case SIGSEGV:
        describeSegmentation(record, info, context);
        break;
    case SIGBUS:
        describeBus(record, info, context);
        break;
    case SIGFPE:
        describeArithmetic(record, context);
        break;
    case SIGTRAP:
        if (registers[REG_TRAPNO] == kDebugTrap) {
            record.ExceptionCode = EXCEPTION_SINGLE_STEP;
        } else {
            record.ExceptionCode = EXCEPTION_BREAKPOINT;
            if (registers[REG_TRAPNO] == kBreakpointTrap) {
                record.ExceptionAddress = reinterpret_cast<void*>(registers[REG_RIP] - 1);
            }
        }
        break;
    default:
        record.ExceptionCode = EXCEPTION_ILLEGAL_INSTRUCTION;
        break;
    }
    return record;
}

} // namespace OrvikOs
