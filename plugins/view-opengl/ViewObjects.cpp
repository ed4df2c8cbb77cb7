#include "ViewObjects.h"

#include "objects/AxesObject.h"
#include "objects/DrawingObjects.h"
#include "objects/ObjectGeometry.h"
#include "objects/TextObject.h"

#include <OrvikCore/Dbg.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/RGBAColor.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ViewOpenGl {

using OrvikCore::AViewObject;
using TambVizCore::RGBAColor;
using TambVizCore::SharedArray;

namespace {

constexpr RGBAColor kArrowColor{230, 126, 34};

std::unique_ptr<AViewObject> ownedBy(AViewObject* object)
{
    return std::unique_ptr<AViewObject>(object);
}

/// Red, green, blue from 0 to 1 as four bytes for each point.
std::vector<std::uint8_t> toBytes(const std::vector<float>& colors)
{
    std::vector<std::uint8_t> bytes;
    bytes.reserve(colors.size() / 3 * 4);
    for (std::size_t i = 0; i + 2 < colors.size(); i += 3) {
        for (std::size_t k = 0; k < 3; ++k) {
            const float value = std::isfinite(colors[i + k]) ? colors[i + k] : 0.0f;
            bytes.push_back(static_cast<std::uint8_t>(std::clamp(value, 0.0f, 1.0f) * 255.0f));
        }
        bytes.push_back(255);
    }
    return bytes;
}

} // namespace

ViewObjects::ViewObjects()
    : m_world(1),
      m_corner(1),
      m_overlay(1),
      m_manager(std::make_unique<OrvikCore::ViewObjectManager>(m_world))
{
    m_world.SetAuxiliary(true);
    m_corner.SetAuxiliary(true);
    m_overlay.SetAuxiliary(true);
    // The manager owns what is added.
    m_manager->Add(kAxesName, std::make_unique<AxesObject>(m_corner).release());
    m_manager->Add(kRubberBandName, std::make_unique<RubberBand>(m_overlay).release());
}

ViewObjects::~ViewObjects() = default;

OrvikCore::ViewObjectManager* ViewObjects::GetViewObjectManager()
{
    return m_manager.get();
}

void ViewObjects::DrawMarkupObjects(std::vector<std::vector<double>> const& polylines,
                                    RGBAColor const& color)
{
    DrawMarkupObjects(polylines, false, false, color);
}

void ViewObjects::DrawMarkupObjects(std::vector<std::vector<double>> const& polylines, bool closed,
                                    bool filled, RGBAColor const& color)
{
    auto markup = std::make_unique<MarkupObject>(*m_manager->GetNode(), closed, filled, color);
    for (const std::vector<double>& polyline : polylines)
        markup->AddPolyline(polyline);
    addDrawing(std::move(markup));
}

void ViewObjects::DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2)
{
    const double from[3] = {x1, y1, z1};
    const double to[3] = {x2, y2, z2};
    addDrawing(std::make_unique<ArrowObject>(*m_manager->GetNode(), from, to, kArrowColor));
}

void ViewObjects::DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                                       std::vector<float>& colors, std::vector<int>& indices)
{
    std::vector<std::uint32_t> triangles(indices.begin(), indices.end());
    TambVizCore::GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>(points)))
        .SetNormals(SharedArray<float>(std::vector<float>(normals)))
        .SetColors(SharedArray<std::uint8_t>(toBytes(colors)))
        .SetTriangles(SharedArray<std::uint32_t>(std::move(triangles)));
    if (auto geometry = BuildGeometry(builder))
        addDrawing(
            std::make_unique<TessellationObject>(*m_manager->GetNode(), std::move(geometry)));
}

void ViewObjects::DrawTextItems(std::vector<OrvikCore::TextItem3D> const& items)
{
    for (const OrvikCore::TextItem3D& item : items)
        addDrawing(std::make_unique<TextObject>(m_labels, item));
}

void ViewObjects::ClearDrawingObjects()
{
    for (const std::string& name : m_drawings) {
        const auto object = ownedBy(m_manager->Get(name));
        m_manager->Remove(name);
        if (object != nullptr)
            object->Clear();
    }
    m_drawings.clear();
}

void ViewObjects::addDrawing(std::unique_ptr<AViewObject> object)
{
    const std::string name = "Drawing" + std::to_string(object->Id());
    m_drawings.push_back(name);
    m_manager->Add(name, object.release());
}

void ViewObjects::prepareObjects(const double* view)
{
    m_manager->Render();
    m_manager->Display();
    m_world.SetVisible(m_manager->IsEnabled());
    m_corner.SetVisible(m_manager->IsEnabled());
    m_overlay.SetVisible(m_manager->IsEnabled());
    if (auto* const axes = dynamic_cast<AxesObject*>(m_manager->Get(kAxesName)))
        axes->Turn(view);
}

RubberBand* ViewObjects::rubberBand()
{
    return dynamic_cast<RubberBand*>(m_manager->Get(kRubberBandName));
}

} // namespace ViewOpenGl
