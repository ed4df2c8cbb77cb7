#ifndef TAMBVIZCORE_GEONODE_H
#define TAMBVIZCORE_GEONODE_H

#include "TambVizCore/Export.h"
#include "TambVizCore/Geometry.h"
#include "TambVizCore/Node.h"
#include "TambVizCore/PartState.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace TambVizCore {

/// A run of part indices.
struct PartRange
{
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// A node that draws: one geometry, shared with other nodes, and the state of each of its parts.
///
/// Changing a part writes eight bytes; the geometry is never touched. What is drawn of a part is
/// the part's state together with the flags of the node and of all nodes above.
///
/// @thread As Node.
class TAMBVIZCORE_API GeoNode : public Node
{
public:
    /// Which display switch of RenderingOptions the node follows beside those of faces, edges and
    /// vertices.
    enum class Category
    {
        Model,
        PointCloud,
        PMI
    };

    explicit GeoNode(std::uint64_t id, std::string name = {});
    ~GeoNode() override;

    GeoNode* AsGeoNode() override;
    const GeoNode* AsGeoNode() const override;

    /// @return null while none is set.
    const std::shared_ptr<const Geometry>& GetGeometry() const { return m_geometry; }
    /// Shares a geometry (null allowed). Parts that both geometries have, by id, keep their state;
    /// the others are shown and plain.
    void SetGeometry(std::shared_ptr<const Geometry> geometry);

    Category GetCategory() const { return m_category; }
    void SetCategory(Category category);

    /// Width of lines and size of points in pixels, 1 at start; values outside 1 to 64 are clamped.
    float LineWidthPixels() const { return m_lineWidthPixels; }
    void SetLineWidthPixels(float width);
    float PointSizePixels() const { return m_pointSizePixels; }
    void SetPointSizePixels(float size);

    /// One record per part of the geometry, by part index; valid until SetGeometry.
    std::span<const PartState> PartStates() const { return m_partStates; }

    /// Setters of one part: an index out of range is ignored.
    /// @return true when the state changed.
    bool SetPartShown(std::uint32_t partIndex, bool shown);
    bool SetPartHighlighted(std::uint32_t partIndex, bool highlighted);
    bool SetPartSelected(std::uint32_t partIndex, bool selected);
    bool SetPartPicked(std::uint32_t partIndex, bool picked);
    bool SetPartColor(std::uint32_t partIndex, const RGBAColor& color);
    /// Takes the colour of its own away.
    bool ClearPartColor(std::uint32_t partIndex);

    /// Sets or clears flags (PartState::kShown, ...) of every part at once.
    void SetAllParts(std::uint32_t flags, bool on);

    /// @return the smallest run that holds every part changed since the last call, and forgets it.
    ///         For the one view that draws the scene.
    PartRange TakeChangedParts();

protected:
    VizBox ownBounds() const override;
    void printOwn(std::string& out, bool withParts) const override;

private:
    bool setFlag(std::uint32_t partIndex, std::uint32_t flag, bool on);
    void noteChange(std::uint32_t first, std::uint32_t count);

    std::shared_ptr<const Geometry> m_geometry;
    std::vector<PartState> m_partStates;
    std::uint32_t m_changedBegin = 0;
    std::uint32_t m_changedEnd = 0;
    Category m_category = Category::Model;
    float m_lineWidthPixels = 1.0f;
    float m_pointSizePixels = 1.0f;
};

} // namespace TambVizCore

#endif
