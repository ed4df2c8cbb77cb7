#ifndef VIEWOPENGL_VIEWOBJECTS_H
#define VIEWOPENGL_VIEWOBJECTS_H

#include "objects/PixelSize.h"
#include "objects/RubberBand.h"
#include "text/TextLabels.h"

#include <OrvikCore/IDimensionDrawer.h>
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
class DimensionObject;
class RotationMark;

/// What a view draws beside the model: the objects of its manager, in four scenes of their own.
///
/// The first lies in the world: markup, arrows, triangles. The second lies there too, but in front
/// of everything: dimensions, the mark at the rotation centre. The third is drawn in a corner: the
/// axes. The last lies over the picture, in window pixels from the top left: the rubber band.
/// @thread Main thread.
class ViewObjects : public OrvikCore::IViewObjectProvider, public OrvikCore::IDimensionDrawer
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

    void DrawDimension(const OrvikCore::Dimension& dimension) override;
    void ClearDimensions() override;

protected:
    /// Brings the scenes up to date before a picture.
    /// @param model  The scene of the model; dimensions go with what they measure.
    void prepareObjects(TambVizCore::Node& model, const PictureScale& scale);

    TambVizCore::Node& worldObjects() { return m_world; }
    TambVizCore::Node& frontObjects() { return m_front; }
    TambVizCore::Node& cornerObjects() { return m_corner; }
    TambVizCore::Node& overlayObjects() { return m_overlay; }

    TextLabels& textLabels() { return m_labels; }
    /// Those of what lies in front of everything.
    TextLabels& frontLabels() { return m_frontLabels; }

    /// @return not owned; null when somebody took it out of the manager.
    RubberBand* rubberBand();
    RotationMark* rotationMark();

private:
    /// Enters an object (transferred in) that ClearDrawingObjects removes.
    void addDrawing(std::unique_ptr<OrvikCore::AViewObject> object);
    void remove(const std::string& objectName);
    DimensionObject* dimension(const std::string& objectName);
    void dropDimensionsOfWhatHasGone(TambVizCore::Node& model);

    /// Made once: too long for a string to hold without memory, and asked for in every frame.
    const std::string m_rotationMarkName;
    TambVizCore::Node m_world;
    TambVizCore::Node m_front;
    TambVizCore::Node m_corner;
    TambVizCore::Node m_overlay;
    TextLabels m_labels;
    TextLabels m_frontLabels;
    std::unique_ptr<OrvikCore::ViewObjectManager> m_manager; ///< After the scenes of its objects.
    std::vector<std::string> m_drawings;                     ///< Names of what was drawn.
    std::vector<std::string> m_dimensions;                   ///< The same, oldest first.
    std::uint64_t m_modelStamp = 0; ///< Of what the dimensions were held against.
};

} // namespace ViewOpenGl

#endif
