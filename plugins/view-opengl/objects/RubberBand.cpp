#include "objects/RubberBand.h"

#include "objects/ObjectGeometry.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Matrix.h>

namespace ViewOpenGl {

using TambVizCore::RGBAColor;

namespace {

constexpr RGBAColor kEnclosing{45, 108, 223, 60};
constexpr RGBAColor kTouching{46, 160, 67, 60};
constexpr std::uint64_t kAreaId = 1;
constexpr std::uint64_t kOutlineId = 2;

RGBAColor opaque(RGBAColor color)
{
    color.a = 255;
    return color;
}

} // namespace

RubberBand::RubberBand(TambVizCore::Node& parent) : NodeObject(parent)
{
    name = kRubberBandName;
    visible = false;
}

void RubberBand::Place(const PixelRectangle& rectangle)
{
    m_rectangle = rectangle;
    apply();
}

TambVizCore::Node* RubberBand::build(TambVizCore::Node& parent)
{
    const auto square = MakeUnitSquare();
    if (square == nullptr)
        return nullptr;
    const auto outline = MakeSegments({0, 0, 0, 1, 0, 0, 1, 0, 0, 1, 1, 0, //
                                       1, 1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 0});
    m_node = parent.CreateChildNode(Id(), kRubberBandName);
    m_node->CreateChildGeoNode(kAreaId)->SetGeometry(square);
    m_node->CreateChildGeoNode(kOutlineId)->SetGeometry(outline);
    apply();
    return m_node;
}

void RubberBand::apply()
{
    if (m_node == nullptr)
        return;
    double place[16];
    TambVizCore::SetIdentity(place);
    place[0] = m_rectangle.x2 - m_rectangle.x1;
    place[5] = m_rectangle.y2 - m_rectangle.y1;
    place[12] = m_rectangle.x1;
    place[13] = m_rectangle.y1;
    m_node->SetTransform(place);
    const RGBAColor color = m_rectangle.x2 < m_rectangle.x1 ? kTouching : kEnclosing;
    m_node->FindChild(kAreaId)->SetColor(color);
    m_node->FindChild(kOutlineId)->SetColor(opaque(color));
}

} // namespace ViewOpenGl
