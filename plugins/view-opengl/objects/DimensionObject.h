#ifndef VIEWOPENGL_OBJECTS_DIMENSIONOBJECT_H
#define VIEWOPENGL_OBJECTS_DIMENSIONOBJECT_H

#include "objects/NodeObject.h"
#include "objects/PixelSize.h"

#include <OrvikCore/IDimensionDrawer.h>

#include <array>
#include <vector>

namespace ViewOpenGl {

class TextLabels;

/// A dimension: lines with a light rim, an arrow head at each end of the measured one, and a text
/// beside its middle. All but the places keep their size in pixels; heads turn inside out where
/// there is no room between them.
class DimensionObject final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param parent  the scene that is drawn in front of the model.
    /// @param labels  Draws the text while the object is rendered; not owned, outlives it.
    DimensionObject(TambVizCore::Node& parent, TextLabels& labels,
                    const OrvikCore::Dimension& dimension);
    ~DimensionObject() override;

    void SetIsVisible(bool const& isVisible) override;

    /// Fits heads, widths and text to the picture that comes next.
    void Adapt(const PictureScale& scale);

    const std::vector<TambVizCore::EntityId>& Measured() const { return m_dimension.measured; }

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;
    void doRender() override;
    void doClear() override;

private:
    using Point = OrvikCore::Dimension::Point;

    std::vector<float> segments() const;
    void findMiddle();
    void placeHead(std::uint64_t childId, const Point& tip, const Point& before,
                   const PictureScale& scale);
    void placeText(const PictureScale& scale);

    TextLabels& m_labels;
    OrvikCore::Dimension m_dimension;
    double m_length = 0.0; ///< Of the measured line.
    Point m_middle{};      ///< Half way along it.
    Point m_along{};       ///< Its direction there; zero for a line without length.
};

} // namespace ViewOpenGl

#endif
