#ifndef ORVIKOS_TESTS_FAULTSUBJECTS_H
#define ORVIKOS_TESTS_FAULTSUBJECTS_H

// Functions that fault, each in one way. Called through pointers only.

namespace Subjects {

void ReadNull();
void WriteNull();
void ExecuteNull();
void ExecuteData();
void WriteReadOnly();
void ReadNonCanonical();
void StackNonCanonical();
void MisalignedVector();
void DivideByZero();
void DivideOverflow();
void DivideOverflowInMemory();
void DivideByZeroInMemory();
void DivideByteOverflow();
void IllegalInstruction();
void Breakpoint();
void SingleStep();
void Halt();
void ReadPastEndOfFile();
void CopyFromNull();
void LengthOfNull();
void Abort();
void FailedAssertion();
void PureCall();

void FpDivide();
void FpOverflow();
void FpDenormal();
void FpInvalid();
void FpUnderflow();
void FpInexact();
void X87Divide();
void X87Overflow();
void X87Denormal();
void X87StackUnderflow();

/// Breaks the free lists of the memory allocator and allocates, so that the allocator itself
/// faults.
void CorruptHeap();

/// Recurses until the stack is used up; each level has a destructor that counts.
void Overflow();

/// Levels entered and destructors run by the last Overflow().
extern thread_local long g_levelsEntered;
extern thread_local long g_levelsLeft;

} // namespace Subjects

#endif
