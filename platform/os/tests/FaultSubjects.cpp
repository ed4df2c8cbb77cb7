#include "FaultSubjects.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cassert>
#include <cfloat>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace Subjects {

thread_local long g_levelsEntered = 0;
thread_local long g_levelsLeft = 0;

namespace {

// Each thread writes its own, so that subjects may run on several at a time.
thread_local volatile int g_sink = 0;
thread_local volatile double g_doubleSink = 0;
thread_local volatile long double g_longSink = 0;
volatile char g_text[64] = "text";

/// Gives an address that the compiler cannot know.
template <typename T> T* hidden(T* pointer)
{
    T* volatile opaque = pointer;
    return opaque;
}

class Base
{
public:
    Base() { callThrough(); }
    virtual ~Base() = default;

    virtual void Act() = 0;

private:
    /// Calls the pure operation while this object is only a Base.
    __attribute__((noinline)) void callThrough()
    {
        Base* volatile self = this;
        self->Act();
        asm volatile("");
    }
};

class Derived : public Base
{
public:
    void Act() override { g_sink = 1; }
};

struct CountedLevel
{
    CountedLevel() { g_levelsEntered += 1; }
    ~CountedLevel() { g_levelsLeft += 1; }
    CountedLevel(const CountedLevel&) = delete;
    CountedLevel& operator=(const CountedLevel&) = delete;
};

int recurse(int depth);

int (*volatile g_recurse)(int) = &recurse;

int recurse(int depth)
{
    const CountedLevel level;
    volatile char room[512];
    room[0] = static_cast<char>(depth);
    const int result = g_recurse(depth + 1);
    return result + room[0];
}

void divideFloat(double a, double b)
{
    const volatile double numerator = a;
    const volatile double denominator = b;
    g_doubleSink = numerator / denominator;
}

void multiplyFloat(double a, double b)
{
    const volatile double left = a;
    const volatile double right = b;
    g_doubleSink = left * right;
}

} // namespace

__attribute__((no_sanitize("address", "undefined", "thread"))) void ReadNull()
{
    g_sink = *hidden(reinterpret_cast<volatile int*>(0));
}

__attribute__((no_sanitize("address", "undefined", "thread"))) void WriteNull()
{
    *hidden(reinterpret_cast<volatile int*>(0)) = 1;
}

__attribute__((no_sanitize("undefined"))) void ExecuteNull()
{
    void (*volatile function)() = nullptr;
    function();
    asm volatile("");
}

__attribute__((no_sanitize("undefined"))) void ExecuteData()
{
    auto* volatile address = const_cast<char*>(&g_text[0]);
    reinterpret_cast<void (*)()>(reinterpret_cast<std::uintptr_t>(address))();
    asm volatile("");
}

void WriteReadOnly()
{
    void* const page = mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    asm volatile("movb $1, (%0)" : : "r"(page) : "memory");
}

void ReadNonCanonical()
{
    asm volatile("movabsq $0x1234567812345678, %%rax\n\tmovb (%%rax), %%al" : : : "rax", "memory");
}

// A load relative to the frame pointer uses the stack segment, whose faults the system reports
// differently.
asm(R"(
    .pushsection .text
    .type readFromBadFrame, @function
readFromBadFrame:
    .cfi_startproc
    pushq %rbp
    .cfi_adjust_cfa_offset 8
    .cfi_rel_offset rbp, 0
    movabsq $0x1234567812345678, %rbp
    movb (%rbp), %al
    popq %rbp
    .cfi_adjust_cfa_offset -8
    .cfi_restore rbp
    ret
    .cfi_endproc
    .size readFromBadFrame, .-readFromBadFrame
    .popsection
)");
extern "C" void readFromBadFrame();

void StackNonCanonical()
{
    readFromBadFrame();
}

void MisalignedVector()
{
    alignas(16) static char room[64];
    asm volatile("movaps (%0), %%xmm0" : : "r"(room + 1) : "xmm0", "memory");
}

void DivideByZero()
{
    asm volatile("movl $0, %%ecx\n\tmovl $7, %%eax\n\tcltd\n\tidivl %%ecx"
                 :
                 :
                 : "eax", "ecx", "edx");
}

void DivideOverflow()
{
    asm volatile("movabsq $0x8000000000000000, %%rax\n\tcqto\n\tmovq $-1, %%r9\n\tidivq %%r9"
                 :
                 :
                 : "rax", "r9", "rdx");
}

void DivideOverflowInMemory()
{
    static const std::int32_t table[4] = {1, 1, -1, 1};
    asm volatile("movl $0x80000000, %%eax\n\tcltd\n\tmovq $2, %%r8\n\tidivl (%0,%%r8,4)"
                 :
                 : "r"(table)
                 : "rax", "r8", "rdx", "memory");
}

void DivideByZeroInMemory()
{
    static const std::int32_t table[4] = {1, 0, 1, 1};
    asm volatile("movl $7, %%eax\n\tcltd\n\tidivl 4(%0)" : : "r"(table) : "rax", "rdx", "memory");
}

void DivideByteOverflow()
{
    asm volatile("movl $0x1000, %%eax\n\tmovl $0x0100, %%ebx\n\tdivb %%bh" : : : "rax", "rbx");
}

void IllegalInstruction()
{
    asm volatile("ud2");
}

void Breakpoint()
{
    asm volatile("int3\n\tnop");
}

asm(R"(
    .pushsection .text
    .type setTrapFlag, @function
setTrapFlag:
    .cfi_startproc
    pushfq
    .cfi_adjust_cfa_offset 8
    orq $0x100, (%rsp)
    popfq
    .cfi_adjust_cfa_offset -8
    nop
    nop
    ret
    .cfi_endproc
    .size setTrapFlag, .-setTrapFlag
    .popsection
)");
extern "C" void setTrapFlag();

void SingleStep()
{
    setTrapFlag();
}

void Halt()
{
    asm volatile("hlt");
}

void ReadPastEndOfFile()
{
    char name[] = "/tmp/orvik-os-test-XXXXXX";
    const int file = mkstemp(name);
    unlink(name);
    if (ftruncate(file, 8192) != 0) {
        std::abort();
    }
    void* const mapping = mmap(nullptr, 8192, PROT_READ, MAP_SHARED, file, 0);
    if (ftruncate(file, 4096) != 0) {
        std::abort();
    }
    close(file);
    asm volatile("movb 4096(%0), %%al" : : "r"(mapping) : "rax", "memory");
}

void CopyFromNull()
{
    void* (*volatile copy)(void*, const void*, std::size_t) = &std::memmove;
    copy(const_cast<char*>(&g_text[0]), nullptr, 48);
    asm volatile("");
}

void LengthOfNull()
{
    std::size_t (*volatile length)(const char*) = &std::strlen;
    g_sink = static_cast<int>(length(nullptr));
}

void Abort()
{
    std::abort();
}

void FailedAssertion()
{
    // As assert() does it; kept out of reach of NDEBUG.
    __assert_fail("g_sink == 12345", "FaultSubjects.cpp", 1, "FailedAssertion");
}

void PureCall()
{
    const Derived object;
}

void FpDivide()
{
    divideFloat(1.0, 0.0);
}

void FpOverflow()
{
    multiplyFloat(DBL_MAX, 16.0);
}

void FpDenormal()
{
    multiplyFloat(4.9e-324, 2.0);
}

void FpInvalid()
{
    divideFloat(0.0, 0.0);
}

void FpUnderflow()
{
    multiplyFloat(DBL_MIN, 1e-10);
}

void FpInexact()
{
    divideFloat(1.0, 3.0);
}

void X87Divide()
{
    const volatile long double one = 1.0L;
    const volatile long double zero = 0.0L;
    g_longSink = one / zero;
}

void X87Overflow()
{
    const volatile long double large = LDBL_MAX;
    g_longSink = large * large;
}

void X87Denormal()
{
    // Loading the denormal double is what the unit reports.
    const volatile double tiny = 4.9e-324;
    asm volatile("fldl %0\n\tfstpl %0\n\tfwait" : : "m"(tiny) : "memory", "st");
}

void X87StackUnderflow()
{
    asm volatile("fstp %%st(0)\n\tfwait" : : : "memory");
}

void Overflow()
{
    g_levelsEntered = 0;
    g_levelsLeft = 0;
    g_sink = recurse(0);
}

void CorruptHeap()
{
    volatile std::uintptr_t* volatile links = static_cast<std::uintptr_t*>(std::malloc(3000));
    void* volatile between = std::malloc(3000);
    std::free(const_cast<std::uintptr_t*>(links));
    links[0] = 0x10;
    links[1] = 0x10;
    void* volatile larger = std::malloc(5000); // Sorts the broken chunk.
    std::free(larger);
    std::free(between);
}

} // namespace Subjects
