#ifndef VIEWOPENGL_VIEWOBJECTS_H
#define VIEWOPENGL_VIEWOBJECTS_H

#include "objects/RubberBand.h"
#include "text/TextLabels.h"

#include <OrvikCore/IViewObjectProvider.h>
#include <TambVizCore/Node.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace OrvikCore {
class AViewObject;
}

namespace ViewOpenGl {

class AxesObject;

/// What a view draws beside the model: the objects of its manager, in three scenes of their own.
///
/// The first lies in the world: markup, arrows, triangles. The second is drawn in a corner: the
/// axes. The third lies over the picture, in window pixels from the top left: the rubber band.
/// @thread Main thread.
class ViewObjects : public OrvikCore::IViewObjectProvider
{
public:
    ViewObjects();
    ~ViewObjects() override;

    ViewObjects(const ViewObjects&) = delete;
    ViewObjects& operator=(const ViewObjects&) = delete;

    OrvikCore::ViewObjectManager* GetViewObjectManager() override;
    void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines,
                           TambVizCore::RGBAColor const& color) override;
    void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines, bool closed,
                           bool filled, TambVizCore::RGBAColor const& color) override;
    void DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2) override;

    /// Data that make no geometry are told by the debug output and draw nothing.
    void DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                              std::vector<float>& colors, std::vector<int>& indices) override;
    void ClearDrawingObjects() override;
    void DrawTextItems(std::vector<OrvikCore::TextItem3D> const& items) override;

protected:
    /// Brings the scenes up to date before a picture.
    /// @param view  double[16], world to eye.
    void prepareObjects(const double* view);

    TambVizCore::Node& worldObjects() { return m_world; }
    TambVizCore::Node& cornerObjects() { return m_corner; }
    TambVizCore::Node& overlayObjects() { return m_overlay; }

    TextLabels& textLabels() { return m_labels; }

    /// @return not owned; null when somebody took it out of the manager.
    RubberBand* rubberBand();

private:
    /// Enters an object (transferred in) that ClearDrawingObjects removes.
    void addDrawing(std::unique_ptr<OrvikCore::AViewObject> object);

    TambVizCore::Node m_world;
    TambVizCore::Node m_corner;
    TambVizCore::Node m_overlay;
    TextLabels m_labels;
    std::unique_ptr<OrvikCore::ViewObjectManager> m_manager; ///< After the scenes of its objects.
    std::vector<std::string> m_drawings;                     ///< Names of what was drawn.
};

} // namespace ViewOpenGl

#endif
