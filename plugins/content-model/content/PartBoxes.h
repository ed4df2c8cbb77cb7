#ifndef ORVIKMODEL_CONTENT_PARTBOXES_H
#define ORVIKMODEL_CONTENT_PARTBOXES_H

#include <TambVizCore/Geometry.h>
#include <TambVizCore/VizBox.h>

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>

namespace OrvikModel {

/// Remembers the boxes of large parts: a face of a mesh may have a million triangles, and whoever
/// writes picks down asks for its box with each of them.
///
/// @thread  Any thread.
class PartBoxes
{
public:
    /// @param geometry  Not null.
    /// @return as Geometry::PartBox().
    TambVizCore::VizBox BoxOf(const std::shared_ptr<const TambVizCore::Geometry>& geometry,
                              std::uint32_t part);

private:
    /// Of one geometry.
    struct Entry
    {
        std::weak_ptr<const TambVizCore::Geometry> geometry; ///< Another may get its address.
        std::unordered_map<std::uint32_t, TambVizCore::VizBox> boxes;
    };

    std::mutex m_mutex;
    std::unordered_map<const TambVizCore::Geometry*, Entry> m_entries;
};

} // namespace OrvikModel

#endif
