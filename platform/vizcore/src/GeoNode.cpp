#include "TambVizCore/GeoNode.h"

#include "TambVizCore/VisibilityStamp.h"

#include <algorithm>
#include <utility>

namespace TambVizCore {

namespace {

constexpr float kMinPixels = 1.0f;
constexpr float kMaxPixels = 64.0f;

/// Copies the states of parts that both geometries have; both lists ascend by id.
void carryStates(const std::vector<GeometryPart>& from, const std::vector<PartState>& fromStates,
                 const std::vector<GeometryPart>& to, std::vector<PartState>& toStates)
{
    std::size_t i = 0;
    for (std::size_t k = 0; k < to.size(); ++k) {
        while (i < from.size() && from[i].id < to[k].id) {
            ++i;
        }
        if (i < from.size() && from[i].id == to[k].id) {
            toStates[k] = fromStates[i];
        }
    }
}

} // namespace

GeoNode::GeoNode(std::uint64_t id, std::string name) : Node(id, std::move(name)) {}

GeoNode::~GeoNode() = default;

GeoNode* GeoNode::AsGeoNode()
{
    return this;
}

const GeoNode* GeoNode::AsGeoNode() const
{
    return this;
}

void GeoNode::SetGeometry(std::shared_ptr<const Geometry> geometry)
{
    if (geometry == m_geometry) {
        return;
    }
    std::vector<PartState> states(geometry != nullptr ? geometry->Parts().size() : 0);
    if (geometry != nullptr && m_geometry != nullptr) {
        carryStates(m_geometry->Parts(), m_partStates, geometry->Parts(), states);
    }
    m_geometry = std::move(geometry);
    m_partStates = std::move(states);
    m_changedBegin = 0;
    m_changedEnd = static_cast<std::uint32_t>(m_partStates.size());
    touch(Change::Structure);
}

void GeoNode::SetCategory(Category category)
{
    if (m_category != category) {
        m_category = category;
        touch(Change::Appearance);
        AdvanceVisibilityStamp();
    }
}

void GeoNode::SetLineWidthPixels(float width)
{
    const float clamped = std::clamp(width, kMinPixels, kMaxPixels);
    if (m_lineWidthPixels != clamped) {
        m_lineWidthPixels = clamped;
        touch(Change::Appearance);
    }
}

void GeoNode::SetPointSizePixels(float size)
{
    const float clamped = std::clamp(size, kMinPixels, kMaxPixels);
    if (m_pointSizePixels != clamped) {
        m_pointSizePixels = clamped;
        touch(Change::Appearance);
    }
}

bool GeoNode::SetPartShown(std::uint32_t partIndex, bool shown)
{
    return setFlag(partIndex, PartState::kShown, shown);
}

bool GeoNode::SetPartHighlighted(std::uint32_t partIndex, bool highlighted)
{
    return setFlag(partIndex, PartState::kHighlighted, highlighted);
}

bool GeoNode::SetPartSelected(std::uint32_t partIndex, bool selected)
{
    return setFlag(partIndex, PartState::kSelected, selected);
}

bool GeoNode::SetPartPicked(std::uint32_t partIndex, bool picked)
{
    return setFlag(partIndex, PartState::kPicked, picked);
}

bool GeoNode::SetPartColor(std::uint32_t partIndex, const RGBAColor& color)
{
    if (partIndex >= m_partStates.size()) {
        return false;
    }
    PartState state = m_partStates[partIndex];
    state.color = color;
    state.flags |= PartState::kColored;
    if (state == m_partStates[partIndex]) {
        return false;
    }
    m_partStates[partIndex] = state;
    noteChange(partIndex, 1);
    return true;
}

bool GeoNode::ClearPartColor(std::uint32_t partIndex)
{
    return setFlag(partIndex, PartState::kColored, false);
}

void GeoNode::SetAllParts(std::uint32_t flags, bool on)
{
    bool changed = false;
    for (PartState& state : m_partStates) {
        const std::uint32_t wanted = on ? state.flags | flags : state.flags & ~flags;
        changed = changed || wanted != state.flags;
        state.flags = wanted;
    }
    if (changed) {
        noteChange(0, static_cast<std::uint32_t>(m_partStates.size()));
        if ((flags & PartState::kShown) != 0) {
            AdvanceVisibilityStamp();
        }
    }
}

PartRange GeoNode::TakeChangedParts()
{
    const PartRange range{m_changedBegin, m_changedEnd - m_changedBegin};
    m_changedBegin = 0;
    m_changedEnd = 0;
    return range;
}

VizBox GeoNode::ownBounds() const
{
    return m_geometry != nullptr ? m_geometry->BoundingBox() : VizBox();
}

void GeoNode::printOwn(std::string& out, bool withParts) const
{
    if (m_geometry == nullptr) {
        out += " (no geometry)";
        return;
    }
    out += " (" + std::to_string(m_geometry->TriangleCount()) + " triangles, " +
           std::to_string(m_geometry->SegmentCount()) + " segments, " +
           std::to_string(m_geometry->PointCount()) + " points";
    if (withParts) {
        std::size_t counts[4] = {0, 0, 0, 0};
        for (const GeometryPart& part : m_geometry->Parts()) {
            ++counts[static_cast<std::size_t>(part.kind)];
        }
        out += "; " + std::to_string(counts[1]) + " faces, " + std::to_string(counts[2]) +
               " edges, " + std::to_string(counts[3]) + " vertices";
    }
    out += ")";
}

bool GeoNode::setFlag(std::uint32_t partIndex, std::uint32_t flag, bool on)
{
    if (partIndex >= m_partStates.size() || m_partStates[partIndex].Has(flag) == on) {
        return false;
    }
    m_partStates[partIndex].flags ^= flag;
    noteChange(partIndex, 1);
    if (flag == PartState::kShown) {
        AdvanceVisibilityStamp();
    }
    return true;
}

void GeoNode::noteChange(std::uint32_t first, std::uint32_t count)
{
    if (m_changedBegin == m_changedEnd) {
        m_changedBegin = first;
        m_changedEnd = first + count;
    } else {
        m_changedBegin = std::min(m_changedBegin, first);
        m_changedEnd = std::max(m_changedEnd, first + count);
    }
    touch(Change::Parts);
}

} // namespace TambVizCore
