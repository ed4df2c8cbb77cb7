#ifndef VIEWOPENGL_FRAMECOST_H
#define VIEWOPENGL_FRAMECOST_H

#include "TimeSlice.h"

#include <TambVizCore/PartKind.h>

#include <array>
#include <cstddef>

namespace ViewOpenGl {

/// What was or is to be drawn, counted.
struct FrameWork
{
    FrameWork& operator+=(const FrameWork& other);
    FrameWork& operator-=(const FrameWork& other);

    double slices = 0.0;  ///< Times that the renderer is waited for.
    double pixels = 0.0;  ///< Of frames, not of what is drawn into them; each sample counts.
    double covered = 0.0; ///< Pixels within the boxes of what has faces, once for each time.
    double triangles = 0.0;
    double segments = 0.0;
    double points = 0.0;
    double draws = 0.0; ///< Calls that draw.
};

/// @return the work of a draw call.
FrameWork WorkOf(TambVizCore::PartKind kind, double primitives);

/// How long frames take on this machine, learnt from those that were drawn.
///
/// The time is a sum over the counts, each with a weight. After each frame the weights move toward
/// what would have foretold its time, those the most that are least sure (Kalman, 1960; the weights
/// drift, so they follow a machine that gets slower). So frames of different kinds tell apart what
/// is dear.
class CostModel
{
public:
    CostModel();

    double Milliseconds(const FrameWork& work) const;

    /// @return how many primitives of a kind take some time.
    double PrimitivesIn(TambVizCore::PartKind kind, double milliseconds) const;

    /// Takes up that some work took a time.
    void Learn(const FrameWork& work, double milliseconds);

private:
    static constexpr std::size_t kCounts = 7;

    static std::array<double, kCounts> countsOf(const FrameWork& work);
    void addDoubt(double share);

    std::array<double, kCounts> m_weights; ///< Milliseconds for each unit of countsOf().
    std::array<std::array<double, kCounts>, kCounts> m_doubt = {}; ///< Their covariances.
};

/// How much of a frame may be drawn before the caller gets control back.
///
/// Renderers work on after a call has returned, and triangles differ: those in front cost ten times
/// as much as those behind. So what is large is drawn in pieces; after each the renderer is waited
/// for, and what it took tells the size of the next.
class FrameBudget
{
public:
    /// A budget without end.
    FrameBudget() = default;

    /// @param model  Not owned; outlives the budget.
    /// @param wait   returns when the renderer has done what it was told.
    FrameBudget(const CostModel& model, const TimeSlice& slice, void (*wait)())
        : m_model(&model), m_slice(slice), m_wait(wait), m_leftMs(slice.LeftMs())
    {
    }

    /// Waits for what was drawn so far, so that the next piece is measured alone.
    void Begin();

    /// @return whether nothing more should be drawn; false while nothing was.
    bool IsSpent(const FrameWork& done);

    /// @return how many of so many primitives to draw in one go.
    int Piece(TambVizCore::PartKind kind, int primitives) const;

    /// @return how often the renderer was waited for.
    int Waits() const { return m_waits; }

private:
    void catchUp();

    const CostModel* m_model = nullptr; ///< Not owned; null for no end.
    TimeSlice m_slice;
    void (*m_wait)() = nullptr;
    double m_leftMs = 0.0;   ///< When the renderer was waited for last.
    FrameWork m_seen;        ///< What it had done by then.
    double m_slowness = 0.0; ///< What the last piece took over what was foretold; 0 for unknown.
    int m_waits = 0;
};

} // namespace ViewOpenGl

#endif
