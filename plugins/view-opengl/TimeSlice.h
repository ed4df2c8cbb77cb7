#ifndef VIEWOPENGL_TIMESLICE_H
#define VIEWOPENGL_TIMESLICE_H

#include <OrvikOs/Clock.h>

#include <cstdint>

namespace ViewOpenGl {

/// How long a piece of work may take; work looks at it between pieces that are short.
class TimeSlice
{
public:
    /// A slice that never ends.
    TimeSlice() = default;

    explicit TimeSlice(int milliseconds)
        : m_endUs(OrvikOs::Clock::NowUs() + static_cast<std::uint64_t>(milliseconds) * 1000)
    {
    }

    bool IsOver() const { return m_endUs != kNever && OrvikOs::Clock::NowUs() >= m_endUs; }

    /// @return milliseconds until the end, not below 0; a very large number where there is none.
    double LeftMs() const
    {
        if (m_endUs == kNever)
            return 1e300;
        const std::uint64_t now = OrvikOs::Clock::NowUs();
        return now >= m_endUs ? 0.0 : static_cast<double>(m_endUs - now) / 1000.0;
    }

private:
    static constexpr std::uint64_t kNever = ~std::uint64_t{0};

    std::uint64_t m_endUs = kNever;
};

} // namespace ViewOpenGl

#endif
