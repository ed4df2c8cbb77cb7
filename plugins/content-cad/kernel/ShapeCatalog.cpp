#include "kernel/ShapeCatalog.h"

#include <TopLoc_Location.hxx>

namespace OrvikCad {

std::shared_ptr<const CadShape> ShapeCatalog::Get(const TopoDS_Shape& shape,
                                                  const std::wstring& name)
{
    const TopoDS_Shape unplaced = shape.Located(TopLoc_Location());
    const auto [position, isNew] = m_positions.try_emplace(unplaced, m_entries.size());
    if (isNew)
        m_entries.push_back({std::make_shared<CadShape>(unplaced), name});
    return m_entries[position->second].shape;
}

} // namespace OrvikCad
