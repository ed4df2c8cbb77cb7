#include "PrimitiveBoxes.h"

#include <OrvikOs/ParallelFor.h>

namespace OrvikRay {

namespace {

/// Boxes per task: some 100 us of work.
constexpr std::size_t kTaskSize = 1u << 14;

} // namespace

std::vector<Box> PrimitiveBoxes(const TambVizCore::Geometry& geometry,
                                std::span<const std::uint32_t> indices, std::size_t corners)
{
    std::vector<Box> boxes(indices.size() / corners);
    const float* const positions = geometry.Positions().Data();
    OrvikOs::ParallelFor(boxes.size(), kTaskSize, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) {
            boxes[i] = Box::Empty();
            for (std::size_t corner = 0; corner < corners; ++corner)
                boxes[i].Add(positions + std::size_t{indices[i * corners + corner]} * 3);
        }
    });
    return boxes;
}

} // namespace OrvikRay
