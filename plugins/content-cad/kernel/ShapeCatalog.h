#ifndef ORVIKCAD_KERNEL_SHAPECATALOG_H
#define ORVIKCAD_KERNEL_SHAPECATALOG_H

#include "kernel/CadShape.h"

#include <TopTools_ShapeMapHasher.hxx>
#include <TopoDS_Shape.hxx>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace OrvikCad {

/// The unique shapes of one file. Shapes that differ only by their location are one.
///
/// Shapes are empty until Tessellate() (Tessellation.h) fills all of them; their nodes may be made
/// before.
class ShapeCatalog
{
public:
    /// One unique shape with the name under which warnings tell of it.
    struct Entry
    {
        std::shared_ptr<CadShape> shape;
        std::wstring name;
    };

    /// Finds or adds a shape.
    ///
    /// @param shape  Any kind; its location is left out and belongs into the node's transform.
    /// @param name   Used when the shape is new.
    std::shared_ptr<const CadShape> Get(const TopoDS_Shape& shape, const std::wstring& name);

    /// In the order in which they were added.
    const std::vector<Entry>& Entries() const { return m_entries; }

private:
    struct Hash
    {
        std::size_t operator()(const TopoDS_Shape& shape) const
        {
            return static_cast<std::size_t>(shape.HashCode(IntegerLast()));
        }
    };
    struct Equal
    {
        bool operator()(const TopoDS_Shape& a, const TopoDS_Shape& b) const { return a.IsEqual(b); }
    };

    std::vector<Entry> m_entries;
    std::unordered_map<TopoDS_Shape, std::size_t, Hash, Equal> m_positions;
};

} // namespace OrvikCad

#endif
