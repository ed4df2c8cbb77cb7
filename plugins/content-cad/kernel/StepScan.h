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
    /// First line on which brackets are nested deeper than kMaxStepNesting; 0 when none is.
    std::uint64_t tooDeepLine = 0;
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
