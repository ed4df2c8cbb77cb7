#ifndef VIEWOPENGL_OBJECTS_DRAWINGOBJECTS_H
#define VIEWOPENGL_OBJECTS_DRAWINGOBJECTS_H

#include "objects/NodeObject.h"

#include <OrvikCore/AMarkupViewObject.h>

#include <memory>
#include <vector>

namespace TambVizCore {
class Geometry;
}

namespace ViewOpenGl {

/// Polylines in one colour, open or closed, the closed ones filled where that is asked for.
class MarkupObject final : public NodeObject<OrvikCore::AMarkupViewObject>
{
public:
    MarkupObject(TambVizCore::Node& parent, bool closed, bool filled,
                 const TambVizCore::RGBAColor& color);

    /// Points that are not finite end a polyline's use: it is left out.
    void AddPolyline(std::vector<double> const& polyline) override;
    void RemovePolylines() override;
    int CountPolylines() const override;

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;

private:
    std::vector<std::vector<double>> m_polylines;
};

/// An arrow between two points.
class ArrowObject final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param from, to  double[3], world units.
    ArrowObject(TambVizCore::Node& parent, const double* from, const double* to,
                const TambVizCore::RGBAColor& color);

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;

private:
    double m_from[3];
    double m_to[3];
    TambVizCore::RGBAColor m_color;
};

/// Triangles as a script gave them.
class TessellationObject final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param geometry  Not null.
    TessellationObject(TambVizCore::Node& parent,
                       std::shared_ptr<const TambVizCore::Geometry> geometry);

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;

private:
    std::shared_ptr<const TambVizCore::Geometry> m_geometry;
};

/// Writes the transform that takes the arrow of MakeArrow() to the one between two points.
///
/// @param matrix  double[16]. @return false when the points are one.
bool PlaceArrow(const double* from, const double* to, double* matrix);

} // namespace ViewOpenGl

#endif
