#include "content/PartBoxes.h"

namespace OrvikModel {

using TambVizCore::Geometry;
using TambVizCore::VizBox;

namespace {

/// Triangles, segments or points from which on looking a box up pays.
constexpr std::uint32_t kLargePart = 64;

} // namespace

VizBox PartBoxes::BoxOf(const std::shared_ptr<const Geometry>& geometry, std::uint32_t part)
{
    if (part >= geometry->Parts().size() || geometry->Parts()[part].count < kLargePart)
        return geometry->PartBox(part);
    const std::lock_guard lock(m_mutex);
    const auto found = m_entries.find(geometry.get());
    if (found == m_entries.end() || found->second.geometry.lock() != geometry) {
        std::erase_if(m_entries, [](const auto& entry) { return entry.second.geometry.expired(); });
        m_entries[geometry.get()] = {geometry, {}};
    }
    auto& boxes = m_entries[geometry.get()].boxes;
    const auto known = boxes.find(part);
    if (known != boxes.end())
        return known->second;
    return boxes[part] = geometry->PartBox(part);
}

} // namespace OrvikModel
