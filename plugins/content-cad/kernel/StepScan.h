#ifndef ORVIKCAD_KERNEL_STEPSCAN_H
#define ORVIKCAD_KERNEL_STEPSCAN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace OrvikCad {

/// Deepest nesting of brackets that is read; files of real systems stay below ten.
inline constexpr unsigned kMaxStepNesting = 100;

/// What a look through a STEP file finds before the kernel reads it.
struct StepScan
{
    bool isStep = false;  ///< Begins with ISO-10303-21, after blanks and comments.
    bool hasData = false; ///< Holds a data section.
    bool isUtf8 = true;   ///< Every byte is ASCII or belongs to valid UTF-8.
    /// Line of the first thing for which the kernel must not see the file, because it would run
    /// without end or bounds or spoil memory: brackets nested deeper than kMaxStepNesting, an
    /// entity number that is there twice or beyond 2147483647, an entity that holds others. 0 when
    /// there is none.
    std::uint64_t refusedLine = 0;
    std::wstring refusal;        ///< Why; empty when there is nothing.
    bool isComplete = false;     ///< Ends as it should.
    std::size_t usableBytes = 0; ///< Up to the end of the last whole statement.
    std::string tail;            ///< What has to follow the usable bytes of an incomplete file.
};

/// Looks through a file: strings and comments are told apart from statements.
StepScan ScanStep(std::string_view text);

/// @return the number, from 1, of the line that holds the byte at @p offset.
std::uint64_t LineOf(std::string_view text, std::size_t offset);

} // namespace OrvikCad

#endif
