#include "DetailChoice.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/RenderingOptions.h>

#include <array>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;

/// From good to bad; the first that fits is taken, the last in any case.
constexpr std::array<Coarseness, 11> kSteps = {{
    {0.0, 0.0, true, false},
    {1.5, 1.0, true, false},
    {3.0, 2.0, true, false},
    {6.0, 4.0, true, false},
    {10.0, 8.0, true, false},
    {10.0, 8.0, false, false},
    {18.0, 16.0, false, true},
    {32.0, 32.0, false, true},
    {64.0, 64.0, false, true},
    {64.0, 128.0, false, true},
    {64.0, 256.0, false, true},
}};

/// A body of fewer triangles is cheaper drawn than left to a box.
constexpr int kBoxFrom = 2000;

/// A box has this many triangles.
constexpr double kBoxTriangles = 12.0;

const GpuPrimitives& primitivesOf(const FrameItem& item, std::size_t slot)
{
    return item.level != nullptr ? item.level->primitives[slot] : item.geometry->primitives[slot];
}

/// @return the coarsest version whose cells are small enough; null for the geometry itself.
GpuLevel* coarsest(const FrameItem& item, double cellPixels)
{
    GpuLevel* found = nullptr;
    if (!item.geometry->hasLevels || !(item.box.Radius() > 0.0))
        return found;
    const double pixelsPerUnit = item.pixels * item.scale / (2.0 * item.box.Radius());
    for (GpuLevel& level : item.geometry->levels)
        if (level.cell * pixelsPerUnit <= cellPixels)
            found = &level;
    return found;
}

void apply(const Coarseness& coarseness, FrameItem& item)
{
    const bool isWhole = item.geometry->isComplete;
    item.leftOut = item.pixels < coarseness.bodyPixels;
    item.level =
        isWhole && coarseness.cellPixels > 0.0 ? coarsest(item, coarseness.cellPixels) : nullptr;
    item.asBox = !isWhole || (coarseness.boxes && item.level == nullptr &&
                              item.geometry->primitives[0].count > 3 * kBoxFrom);
}

} // namespace

FrameWork WorkOf(const std::vector<FrameItem>& items, const TambVizCore::RenderingOptions& options,
                 bool edges)
{
    FrameWork work;
    const auto planes = static_cast<double>(options.GetClipPlanes().size());
    for (const FrameItem& item : items) {
        if (item.leftOut)
            continue;
        if (item.asBox) {
            work += WorkOf(PartKind::Face, kBoxTriangles);
            continue;
        }
        const double triangles = primitivesOf(item, 0).count / 3.0;
        // A body that is cut is drawn once more for each plane, to close it.
        const double times = (item.hasOpacity && item.hasTransparency ? 2.0 : 1.0) +
                             (item.cut ? planes : 0.0) +
                             (options.GetShowTessellation() ? 1.0 : 0.0);
        if (options.GetShowFaces() && triangles > 0.0)
            work += WorkOf(PartKind::Face, triangles * times);
        if (edges && options.GetShowEdges() && primitivesOf(item, 1).count > 0)
            work += WorkOf(PartKind::Edge, primitivesOf(item, 1).count / 2.0);
        const bool isCloud = item.node->GetCategory() == GeoNode::Category::PointCloud;
        if ((isCloud || options.GetShowVertices()) && primitivesOf(item, 2).count > 0)
            work += WorkOf(PartKind::Vertex, primitivesOf(item, 2).count);
    }
    return work;
}

void Apply(const Coarseness& coarseness, std::vector<FrameItem>& items)
{
    for (FrameItem& item : items)
        apply(coarseness, item);
}

Coarseness FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest,
                     const TambVizCore::RenderingOptions& options, std::vector<FrameItem>& items)
{
    for (const Coarseness& step : kSteps) {
        Apply(step, items);
        FrameWork work = WorkOf(items, options, step.edges);
        work += rest;
        if (model.Milliseconds(work) <= milliseconds)
            return step;
    }
    return kSteps.back();
}

} // namespace ViewOpenGl
