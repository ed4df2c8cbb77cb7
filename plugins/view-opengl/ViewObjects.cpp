#include "ViewObjects.h"

#include "objects/AxesObject.h"
#include "objects/DimensionObject.h"
#include "objects/DrawingObjects.h"
#include "objects/ObjectGeometry.h"
#include "objects/RotationMark.h"
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

/// So many dimensions are kept; a script may measure in a loop.
constexpr std::size_t kMostDimensions = 100;

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
    : m_rotationMarkName(kRotationMarkName),
      m_world(1),
      m_front(1),
      m_corner(1),
      m_overlay(1),
      m_manager(std::make_unique<OrvikCore::ViewObjectManager>(m_world))
{
    m_world.SetAuxiliary(true);
    m_front.SetAuxiliary(true);
    m_corner.SetAuxiliary(true);
    m_overlay.SetAuxiliary(true);
    // The manager owns what is added.
    m_manager->Add(kAxesName, std::make_unique<AxesObject>(m_corner).release());
    m_manager->Add(kRotationMarkName, std::make_unique<RotationMark>(m_front).release());
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
    for (const std::string& name : m_drawings)
        remove(name);
    m_drawings.clear();
    ViewObjects::ClearDimensions();
}

void ViewObjects::DrawDimension(const OrvikCore::Dimension& drawn)
{
    if (m_dimensions.size() >= kMostDimensions) {
        remove(m_dimensions.front());
        m_dimensions.erase(m_dimensions.begin());
    }
    auto object = std::make_unique<DimensionObject>(m_front, m_frontLabels, drawn);
    m_dimensions.push_back("Dimension" + std::to_string(object->Id()));
    m_manager->Add(m_dimensions.back(), object.release()); // The manager owns it now.
}

void ViewObjects::ClearDimensions()
{
    for (const std::string& name : m_dimensions)
        remove(name);
    m_dimensions.clear();
}

void ViewObjects::remove(const std::string& objectName)
{
    const auto object = ownedBy(m_manager->Get(objectName));
    m_manager->Remove(objectName);
    if (object != nullptr)
        object->Clear();
}

DimensionObject* ViewObjects::dimension(const std::string& objectName)
{
    return dynamic_cast<DimensionObject*>(m_manager->Get(objectName));
}

void ViewObjects::dropDimensionsOfWhatHasGone(TambVizCore::Node& model)
{
    if (m_modelStamp == model.Stamps().structure)
        return;
    m_modelStamp = model.Stamps().structure;
    const auto hasGone = [&](const std::string& name) {
        const DimensionObject* const drawn = dimension(name);
        return drawn == nullptr || std::any_of(drawn->Measured().begin(), drawn->Measured().end(),
                                               [&model](const TambVizCore::EntityId& entity) {
                                                   return model.FindEntity(entity) == nullptr;
                                               });
    };
    for (const std::string& name : m_dimensions)
        if (hasGone(name))
            remove(name);
    std::erase_if(m_dimensions,
                  [this](const std::string& name) { return !m_manager->Contains(name); });
}

void ViewObjects::addDrawing(std::unique_ptr<AViewObject> object)
{
    const std::string name = "Drawing" + std::to_string(object->Id());
    m_drawings.push_back(name);
    m_manager->Add(name, object.release());
}

void ViewObjects::prepareObjects(TambVizCore::Node& model, const PictureScale& scale)
{
    dropDimensionsOfWhatHasGone(model);
    m_manager->Render();
    m_manager->Display();
    m_world.SetVisible(m_manager->IsEnabled());
    m_front.SetVisible(m_manager->IsEnabled());
    m_corner.SetVisible(m_manager->IsEnabled());
    m_overlay.SetVisible(m_manager->IsEnabled());
    if (auto* const axes = dynamic_cast<AxesObject*>(m_manager->Get(kAxesName)))
        axes->Turn(scale.projection.view);
    for (const std::string& name : m_dimensions)
        if (DimensionObject* const drawn = dimension(name)) {
            drawn->Follow(model);
            drawn->Adapt(scale);
        }
}

RotationMark* ViewObjects::rotationMark()
{
    return dynamic_cast<RotationMark*>(m_manager->Get(m_rotationMarkName));
}

RubberBand* ViewObjects::rubberBand()
{
    return dynamic_cast<RubberBand*>(m_manager->Get(kRubberBandName));
}

} // namespace ViewOpenGl
