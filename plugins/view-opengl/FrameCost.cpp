#include "FrameCost.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ViewOpenGl {
namespace {

using TambVizCore::PartKind;

/// Units of the counts, chosen so that each is about as dear as the others.
constexpr double kPixels = 1e6;
constexpr double kPrimitives = 1e5;
constexpr double kDraws = 1e3;

/// What is assumed until the first frame was measured, milliseconds for each unit: a software
/// renderer on a slow machine, so that the first frame is rather too coarse than too late.
constexpr std::array<double, 7> kStart = {4.0, 3.0, 5.0, 10.0, 8.0, 4.0, 4.0};

/// So much dearer or cheaper may everything get from one frame to the next: it depends on what else
/// the machine does.
constexpr double kDrift = 0.15;

/// And so much, as a share of that, each count alone. How often pixels are drawn anew differs from
/// scene to scene.
constexpr std::array<double, 7> kAlone = {0.5, 0.5, 2.0, 0.3, 0.3, 0.3, 0.3};

/// Share of the time of a frame that comes from what else the machine does.
constexpr double kNoise = 0.15;

/// Weights stay above this share of what they start with, so that they can grow again.
constexpr double kLeastShare = 0.01;

/// A frame counts as at most so many times what was expected, and some milliseconds: one that
/// waited for the compiler of the driver tells nothing about the next.
constexpr double kMostGrowth = 2.0;
constexpr double kLeastError = 1.0;

/// Fewer primitives, in fewer calls, are not worth waiting for.
constexpr int kLeastPiece = 16384;
constexpr double kLeastDraws = 32.0;

/// Of more primitives too many might be much dearer than those before.
constexpr int kMostPiece = 65536;

/// A piece is to take at most this share of what is left.
constexpr double kPieceShare = 0.5;

/// So much may a piece differ from what was foretold.
constexpr double kLeastSlowness = 0.01;
constexpr double kMostSlowness = 100.0;

} // namespace

FrameWork& FrameWork::operator+=(const FrameWork& other)
{
    slices += other.slices;
    pixels += other.pixels;
    covered += other.covered;
    triangles += other.triangles;
    segments += other.segments;
    points += other.points;
    draws += other.draws;
    return *this;
}

FrameWork& FrameWork::operator-=(const FrameWork& other)
{
    slices -= other.slices;
    pixels -= other.pixels;
    covered -= other.covered;
    triangles -= other.triangles;
    segments -= other.segments;
    points -= other.points;
    draws -= other.draws;
    return *this;
}

FrameWork WorkOf(PartKind kind, double primitives)
{
    FrameWork work;
    work.draws = 1.0;
    (kind == PartKind::Face   ? work.triangles
     : kind == PartKind::Edge ? work.segments
                              : work.points) = primitives;
    return work;
}

CostModel::CostModel() : m_weights(kStart)
{
    addDoubt(1.0);
}

/// @param share  by which all weights may be wrong together.
void CostModel::addDoubt(double share)
{
    for (std::size_t i = 0; i < kCounts; ++i) {
        for (std::size_t j = 0; j < kCounts; ++j)
            m_doubt[i][j] += share * share * m_weights[i] * m_weights[j];
        m_doubt[i][i] += std::pow(share * kAlone[i] * m_weights[i], 2);
    }
}

std::array<double, CostModel::kCounts> CostModel::countsOf(const FrameWork& work)
{
    return {work.slices,
            work.pixels / kPixels,
            work.covered / kPixels,
            work.triangles / kPrimitives,
            work.segments / kPrimitives,
            work.points / kPrimitives,
            work.draws / kDraws};
}

double CostModel::Milliseconds(const FrameWork& work) const
{
    const auto counts = countsOf(work);
    return std::inner_product(counts.begin(), counts.end(), m_weights.begin(), 0.0);
}

double CostModel::PrimitivesIn(PartKind kind, double milliseconds) const
{
    const double each = Milliseconds(WorkOf(kind, 1.0)) - Milliseconds(WorkOf(kind, 0.0));
    return each > 0.0 ? milliseconds / each : 1e9;
}

void CostModel::Learn(const FrameWork& work, double milliseconds)
{
    const auto counts = countsOf(work);
    addDoubt(kDrift);
    // How much each weight tells about this frame, and how sure its forecast is.
    std::array<double, kCounts> told;
    for (std::size_t i = 0; i < kCounts; ++i)
        told[i] = std::inner_product(counts.begin(), counts.end(), m_doubt[i].begin(), 0.0);
    const double expected = Milliseconds(work);
    const double measured = std::min(milliseconds, kMostGrowth * expected + kLeastError);
    const double variance = std::inner_product(counts.begin(), counts.end(), told.begin(), 0.0) +
                            std::pow(kNoise * std::max(expected, measured), 2) +
                            kLeastError * kLeastError;
    for (std::size_t i = 0; i < kCounts; ++i) {
        const double gain = told[i] / variance;
        m_weights[i] =
            std::max(kLeastShare * kStart[i], m_weights[i] + gain * (measured - expected));
        for (std::size_t j = 0; j < kCounts; ++j)
            m_doubt[i][j] -= gain * told[j];
    }
}

void FrameBudget::catchUp()
{
    m_wait();
    ++m_waits;
    m_leftMs = m_slice.LeftMs();
}

void FrameBudget::Begin()
{
    if (m_model != nullptr)
        catchUp();
}

bool FrameBudget::IsSpent(const FrameWork& done)
{
    // Something is drawn in each slice, however short.
    if (m_model == nullptr || done.draws <= 0.0)
        return false;
    FrameWork fresh = done;
    fresh -= m_seen;
    if (fresh.triangles + fresh.segments + fresh.points < kLeastPiece && fresh.draws < kLeastDraws)
        return m_slice.IsOver();
    const double before = m_leftMs;
    catchUp();
    m_seen = done;
    const double expected = m_model->Milliseconds(fresh);
    m_slowness = expected > 0.0
                     ? std::clamp((before - m_leftMs) / expected, kLeastSlowness, kMostSlowness)
                     : 1.0;
    const double next = m_model->Milliseconds(WorkOf(PartKind::Face, kLeastPiece));
    return m_leftMs <= 0.0 || next * m_slowness > m_leftMs;
}

int FrameBudget::Piece(PartKind kind, int primitives) const
{
    if (m_model == nullptr)
        return primitives;
    const double fitting =
        m_slowness > 0.0
            ? m_model->PrimitivesIn(kind, kPieceShare * std::max(m_leftMs, 0.0)) / m_slowness
            : 0.0;
    const int piece = static_cast<int>(std::clamp<double>(fitting, kLeastPiece, kMostPiece));
    // What would be left over for a small piece is drawn along.
    return piece + kLeastPiece / 2 >= primitives ? primitives : piece;
}

} // namespace ViewOpenGl
