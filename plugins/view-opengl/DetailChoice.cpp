#include "DetailChoice.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::PartKind;
using TambVizCore::RenderingOptions;

constexpr double kAnyCell = std::numeric_limits<double>::max();

/// How bodies are drawn, and the fewest pixels that go with it.
struct Detail
{
    double cellPixels;
    double bodyPixels;
    bool edges;
    Boxes boxes;
    double leastScale;
};

/// From good to bad, each cheaper than the one before; the first that fits is taken.
constexpr std::array<Detail, 12> kDetails = {{
    {0.0, 0.0, true, Boxes::None, 1.0},
    {1.5, 1.0, true, Boxes::None, 1.0},
    {3.0, 2.0, true, Boxes::None, 0.7},
    {6.0, 4.0, true, Boxes::None, 0.5},
    {10.0, 8.0, true, Boxes::None, 0.5},
    {10.0, 8.0, false, Boxes::None, 0.5},
    {18.0, 16.0, false, Boxes::WithoutVersion, 0.25},
    {32.0, 16.0, false, Boxes::WithoutVersion, 0.25},
    {64.0, 16.0, false, Boxes::WithoutVersion, 0.25},
    {128.0, 32.0, false, Boxes::WithoutVersion, 0.25},
    {512.0, 32.0, false, Boxes::WithoutVersion, 0.25},
    {kAnyCell, 32.0, false, Boxes::WithoutVersion, 0.25},
}};

/// After all of these: boxes, and of those the largest.
constexpr Coarseness kBoxesOnly = {kAnyCell, 0.0, false, Boxes::AllDearer, 0.25};

/// Each takes about half the pixels of the one before.
constexpr std::array<double, 5> kScales = {1.0, 0.7, 0.5, 0.35, 0.25};

/// What bodies get of the time in any case.
constexpr double kShareOfBodies = 0.25;

/// A body of fewer primitives is cheaper drawn than left to a box.
constexpr int kBoxFrom = 2000;

/// A box has this many triangles, or edges.
constexpr int kBoxPrimitives = 12;

const GpuPrimitives& primitivesOf(const FrameItem& item, std::size_t slot)
{
    return item.level != nullptr ? item.level->primitives[slot] : item.geometry->primitives[slot];
}

/// @return how many primitives of all kinds a body has as it is drawn.
int primitiveCount(const FrameItem& item)
{
    return primitivesOf(item, 0).count / 3 + primitivesOf(item, 1).count / 2 +
           primitivesOf(item, 2).count;
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

bool isBox(const FrameItem& item, Boxes boxes)
{
    switch (boxes) {
    case Boxes::None:
        return false;
    case Boxes::WithoutVersion:
        return !(item.geometry->hasLevels && !item.geometry->levels.empty()) &&
               primitiveCount(item) > kBoxFrom;
    case Boxes::AllDearer:
        return primitiveCount(item) > kBoxPrimitives;
    }
    return false;
}

void apply(const Coarseness& coarseness, FrameItem& item)
{
    const bool isWhole = item.geometry->isComplete;
    item.leftOut = item.pixels < coarseness.bodyPixels;
    item.level =
        isWhole && coarseness.cellPixels > 0.0 ? coarsest(item, coarseness.cellPixels) : nullptr;
    item.asBox = !isWhole || isBox(item, coarseness.boxes);
}

/// @return the work of a box: faces, or edges where no faces are shown.
FrameWork workOfBox(const FrameItem& item, const RenderingOptions& options)
{
    const bool hasFaces = options.GetShowFaces();
    FrameWork work = WorkOf(hasFaces ? PartKind::Face : PartKind::Edge, kBoxPrimitives);
    work.covered = hasFaces ? item.covered : 0.0;
    return work;
}

FrameWork workInFull(const FrameItem& item, const RenderingOptions& options, bool edges)
{
    FrameWork work;
    const double triangles = primitivesOf(item, 0).count / 3.0;
    // A body that is cut is drawn once more for each plane, to close it.
    const double times = (item.hasOpacity && item.hasTransparency ? 2.0 : 1.0) +
                         (item.cut ? static_cast<double>(options.GetClipPlanes().size()) : 0.0) +
                         (options.GetShowTessellation() ? 1.0 : 0.0);
    if (options.GetShowFaces() && triangles > 0.0) {
        work += WorkOf(PartKind::Face, triangles * times);
        work.covered += item.covered * times;
    }
    if (primitivesOf(item, 1).count > 0 && ShowsEdges(item, options, edges))
        work += WorkOf(PartKind::Edge, primitivesOf(item, 1).count / 2.0);
    if (primitivesOf(item, 2).count > 0 && ShowsVertices(item, options))
        work += WorkOf(PartKind::Vertex, primitivesOf(item, 2).count);
    return work;
}

FrameWork workAsMarked(const FrameItem& item, const RenderingOptions& options, bool edges)
{
    return item.asBox ? workOfBox(item, options) : workInFull(item, options, edges);
}

/// What a frame is fitted into, and with what.
struct Fitting
{
    const CostModel& model;
    double milliseconds;
    const FrameWork& rest;
    const RenderingOptions& options;
    std::vector<FrameItem>& items;

    bool Fits(const FrameWork& work, const Coarseness& coarseness) const
    {
        return model.Milliseconds(Shrunk(work, coarseness)) <= milliseconds;
    }

    /// Marks the bodies. @return the work of the frame, unless it is shrunk.
    FrameWork Mark(const Coarseness& coarseness) const
    {
        Apply(coarseness, items);
        FrameWork work = WorkOf(items, options, coarseness.edges);
        work += rest;
        return work;
    }
};

Coarseness coarsenessOf(const Detail& detail)
{
    return {detail.cellPixels, detail.bodyPixels, detail.edges, detail.boxes, detail.leastScale};
}

/// Marks the bodies: the largest as they are, the others left out. At least one stays.
void keepLargest(const Fitting& fitting, const Coarseness& coarseness,
                 std::vector<FrameItem*>& order)
{
    order.clear();
    for (FrameItem& item : fitting.items) {
        order.push_back(&item);
        item.leftOut = true;
    }
    const auto isSmaller = [](const FrameItem* a, const FrameItem* b) {
        return a->pixels != b->pixels ? a->pixels < b->pixels : a < b;
    };
    std::make_heap(order.begin(), order.end(), isSmaller);
    FrameWork work = fitting.rest;
    for (std::size_t left = order.size(); left > 0; --left) {
        std::pop_heap(order.begin(), order.begin() + static_cast<std::ptrdiff_t>(left), isSmaller);
        FrameItem& item = *order[left - 1];
        work += workAsMarked(item, fitting.options, coarseness.edges);
        if (left < order.size() && !fitting.Fits(work, coarseness))
            return;
        item.leftOut = false;
    }
}

} // namespace

bool ShowsEdges(const FrameItem& item, const RenderingOptions& options, bool edges)
{
    // Lines with a colour of their own and those that are no model follow no switch.
    if (item.isOwnColored || item.node->GetCategory() != GeoNode::Category::Model)
        return true;
    const bool hasFaces = options.GetShowFaces() && item.geometry->primitives[0].count > 0;
    return options.GetShowEdges() && (edges || !hasFaces);
}

bool ShowsVertices(const FrameItem& item, const RenderingOptions& options)
{
    return options.GetShowVertices() || item.isOwnColored ||
           item.node->GetCategory() == GeoNode::Category::PointCloud;
}

FrameWork WorkOf(const std::vector<FrameItem>& items, const RenderingOptions& options, bool edges)
{
    FrameWork work;
    for (const FrameItem& item : items)
        if (!item.leftOut)
            work += workAsMarked(item, options, edges);
    return work;
}

void Apply(const Coarseness& coarseness, std::vector<FrameItem>& items)
{
    for (FrameItem& item : items)
        apply(coarseness, item);
}

FrameWork Shrunk(const FrameWork& work, const Coarseness& coarseness)
{
    FrameWork shrunk = work;
    const double pixels = coarseness.scale * coarseness.scale;
    shrunk.pixels *= pixels;
    shrunk.covered *= pixels;
    return shrunk;
}

Coarseness FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest,
                     const RenderingOptions& options, std::vector<FrameItem>& items,
                     std::vector<FrameItem*>& order)
{
    const double least = model.Milliseconds(Shrunk(rest, kBoxesOnly));
    const Fitting fitting{model, std::max(milliseconds, least + kShareOfBodies * milliseconds),
                          rest, options, items};
    Coarseness coarseness;
    if (fitting.Fits(fitting.Mark(coarseness), coarseness))
        return coarseness;
    const auto found =
        std::partition_point(kDetails.begin(), kDetails.end(), [&](const Detail& detail) {
            coarseness = coarsenessOf(detail);
            return !fitting.Fits(fitting.Mark(coarseness), coarseness);
        });
    if (found == kDetails.end()) {
        Apply(kBoxesOnly, items);
        keepLargest(fitting, kBoxesOnly, order);
        return kBoxesOnly;
    }
    coarseness = coarsenessOf(*found);
    const FrameWork work = fitting.Mark(coarseness);
    coarseness.scale = *std::find_if(kScales.begin(), kScales.end(), [&](double scale) {
        coarseness.scale = scale;
        return scale == found->leastScale || fitting.Fits(work, coarseness);
    });
    return coarseness;
}

} // namespace ViewOpenGl
