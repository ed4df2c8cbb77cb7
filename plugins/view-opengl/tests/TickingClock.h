#ifndef VIEWOPENGL_TESTS_TICKINGCLOCK_H
#define VIEWOPENGL_TESTS_TICKINGCLOCK_H

#include <OrvikOs/Clock.h>

#include <cstdint>

namespace ViewOpenGl {

/// A clock that goes on by a step each time somebody looks at it, for its life: so work that looks
/// at the clock between pieces takes as long as it has pieces.
class TickingClock : public OrvikOs::IClock
{
public:
    explicit TickingClock(std::uint64_t stepUs)
        : m_stepUs(stepUs), m_before(OrvikOs::SetClock(this))
    {
    }

    ~TickingClock() override { OrvikOs::SetClock(m_before); }

    TickingClock(const TickingClock&) = delete;
    TickingClock& operator=(const TickingClock&) = delete;

    std::uint64_t NowUs() override { return m_now += m_stepUs; }

    void SetStep(std::uint64_t stepUs) { m_stepUs = stepUs; }

private:
    std::uint64_t m_stepUs;
    std::uint64_t m_now = 0;
    OrvikOs::IClock* m_before; ///< Not owned.
};

} // namespace ViewOpenGl

#endif
