#include "BoxTree.h"
#include "Line.h"

#include <OrvikRay/InstanceTree.h>
#include <OrvikRay/Vector3.h>

#include <algorithm>
#include <cmath>

namespace OrvikRay {

using TambVizCore::PickQuery;
using TambVizCore::VizBox;

namespace {

/// Sums and products of two such numbers stay far inside the range of floats.
constexpr double kLargest = 1e30;

float roundedDown(double value)
{
    const auto nearest = static_cast<float>(value);
    return double{nearest} <= value ? nearest : std::nextafter(nearest, -HUGE_VALF);
}

float roundedUp(double value)
{
    return -roundedDown(-value);
}

bool fits(const VizBox& box)
{
    return std::all_of(box.Lo(), box.Lo() + 3, [](double at) { return at >= -kLargest; }) &&
           std::all_of(box.Hi(), box.Hi() + 3, [](double at) { return at <= kLargest; });
}

Box toBox(const VizBox& source)
{
    Box box{};
    for (std::size_t i = 0; i < 3; ++i) {
        box.lo[i] = roundedDown(source.Lo()[i]);
        box.hi[i] = roundedUp(source.Hi()[i]);
    }
    return box;
}

/// The ray with a unit direction in single precision, as PickNearest itself uses it.
Line worldLine(const PickQuery& query)
{
    const Vector3 direction = ToVector3(query.ray.Direction());
    const double size = std::hypot(direction.x, direction.y, direction.z);
    float unit[3] = {0.0f, 0.0f, 0.0f};
    if (size > 0.0 && std::isfinite(size))
        Store({direction.x / size, direction.y / size, direction.z / size}, unit);
    return Line(ToVector3(query.ray.Origin()), ToVector3(unit), std::max(query.ray.Radius(), 0.0),
                std::max(query.radiusGrowth, 0.0));
}

} // namespace

InstanceTree::InstanceTree() : InstanceTree(std::span<const VizBox>{}) {}

InstanceTree::InstanceTree(std::span<const VizBox> worldBoxes)
{
    m_boxes.reserve(worldBoxes.size());
    m_positions.reserve(worldBoxes.size());
    for (std::size_t i = 0; i < worldBoxes.size(); ++i) {
        if (worldBoxes[i].IsEmpty())
            continue;
        if (!fits(worldBoxes[i])) {
            m_always.push_back(i);
            continue;
        }
        m_boxes.push_back(toBox(worldBoxes[i]));
        m_positions.push_back(i);
    }
    auto tree = std::make_unique<BoxTree>();
    tree->Build(m_boxes);
    m_tree = std::move(tree);
}

InstanceTree::~InstanceTree() = default;
InstanceTree::InstanceTree(InstanceTree&& other) noexcept = default;
InstanceTree& InstanceTree::operator=(InstanceTree&& other) noexcept = default;

void InstanceTree::Find(const PickQuery& query, std::vector<std::size_t>& positions) const
{
    positions.clear();
    const Line line = worldLine(query);
    if (!line.HasDirection())
        return;
    positions = m_always;
    const auto meets = [&line](const Box& box) {
        double enter = line.near;
        double leave = line.far;
        return line.Clip(box, line.RadiusAt(box) * (1.0 + 1e-9), enter, leave);
    };
    m_tree->Walk(meets, [&](std::uint32_t number) {
        if (meets(m_boxes[number]))
            positions.push_back(m_positions[number]);
    });
    std::sort(positions.begin(), positions.end());
}

std::size_t InstanceTree::MemoryBytes() const
{
    return sizeof *this + sizeof(BoxTree) + m_tree->MemoryBytes() +
           m_boxes.capacity() * sizeof(Box) +
           (m_positions.capacity() + m_always.capacity()) * sizeof(std::size_t);
}

} // namespace OrvikRay
