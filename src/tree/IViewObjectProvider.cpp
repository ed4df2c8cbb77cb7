#include "OrvikCore/IViewObjectProvider.h"

#include "OrvikCore/IDimensionDrawer.h"
#include "OrvikCore/TextItem3D.h"

#include <stdexcept>

namespace OrvikCore {

IDimensionDrawer::~IDimensionDrawer() = default;
IViewObjectProvider::~IViewObjectProvider() = default;

void IViewObjectProvider::DrawMarkupObjects(std::vector<std::vector<double>> const& /*polylines*/,
                                            TambVizCore::RGBAColor const& /*color*/)
{
    throw std::runtime_error(
        "DrawMarkupObjects needs to be implemented in your ViewObjectProvider.");
}

} // namespace OrvikCore
