#ifndef TAMBVIZCORE_RENDERID_H
#define TAMBVIZCORE_RENDERID_H

#include "TambVizCore/Export.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace TambVizCore {

/// Names a drawable item inside one view: an origin and a path of 64-bit ids.
///
/// In the 3D view the path leads from the children of the scene root to a node, and its last id
/// may name a part of a GeoNode. In the model tree it leads from the top row to a row. A value,
/// compared and ordered by origin, then path.
///
/// @thread Any thread, one at a time for one id.
class TAMBVIZCORE_API RenderId
{
public:
    static constexpr std::uint32_t kOriginNone = 0;
    static constexpr std::uint32_t kOriginView3D = 1;
    static constexpr std::uint32_t kOriginTree = 2;

    /// Makes an empty id of origin 0.
    RenderId() = default;

    /// Makes an empty id of the given origin.
    explicit RenderId(std::uint32_t origin);

    /// The leading field: 1 = 3D view, 2 = model tree, anything else is unknown.
    std::uint32_t Origin() const { return m_origin; }
    void SetOrigin(std::uint32_t origin) { m_origin = origin; }

    /// Empties the path and sets the origin to 0.
    void Clear();

    /// Appends an id to the path.
    void AddValue(const std::uint64_t& value);

    /// Drops the last id; nothing happens on an empty path.
    void RemoveLast();

    /// @return the number of ids in the path, without the origin.
    int Length() const;

    /// @return the id at a zero-based position; 0 when there is none at that position.
    std::uint64_t operator[](int index) const;

    /// @return the last id; 0 for an empty path.
    std::uint64_t Last() const;

    /// @return true when the path holds no id, whatever the origin.
    bool IsEmpty() const { return m_path.empty(); }

    /// @return true when both have the same origin and this path begins @p other's, or is equal.
    bool IsPrefixOf(const RenderId& other) const;

    /// @return "RenderId = 1: 5/6/7"; "RenderId = 0:" for a cleared id.
    std::string ToString() const;

    bool operator==(const RenderId& other) const = default;
    bool operator<(const RenderId& other) const;

private:
    std::uint32_t m_origin = kOriginNone;
    std::vector<std::uint64_t> m_path;
};

} // namespace TambVizCore

/// For unordered containers.
template <> struct std::hash<TambVizCore::RenderId>
{
    TAMBVIZCORE_API std::size_t operator()(const TambVizCore::RenderId& id) const noexcept;
};

#endif
