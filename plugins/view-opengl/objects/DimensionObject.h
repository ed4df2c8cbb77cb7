#ifndef VIEWOPENGL_OBJECTS_DIMENSIONOBJECT_H
#define VIEWOPENGL_OBJECTS_DIMENSIONOBJECT_H

#include "objects/NodeObject.h"
#include "objects/PixelSize.h"

#include <OrvikCore/IDimensionDrawer.h>

#include <array>
#include <cstdint>
#include <vector>

namespace ViewOpenGl {

class TextLabels;

/// A dimension: lines with a light rim, an arrow head at each end of the measured one (at the
/// last one only of a radius), and a text beside its middle. All but the places keep their size in
/// pixels; heads turn inside out where there is no room between them.
class DimensionObject final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param parent  the scene that is drawn in front of the model.
    /// @param labels  Draws the text while the object is rendered; not owned, outlives it.
    DimensionObject(TambVizCore::Node& parent, TextLabels& labels,
                    const OrvikCore::Dimension& dimension);
    ~DimensionObject() override;

    void SetIsVisible(bool const& isVisible) override;

    /// Moves along with what was measured where that is shown away from its place; hides while
    /// what was measured is shown apart, because the length is not the one between them then.
    ///
    /// @param model  in which the measured entities are looked for.
    void Follow(TambVizCore::Node& model);

    /// Fits heads, widths and text to the picture that comes next.
    void Adapt(const PictureScale& scale);

    const std::vector<TambVizCore::EntityId>& Measured() const { return m_dimension.measured; }

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;
    void doRender() override;
    void doClear() override;
    void doDisplay() override;

private:
    using Point = OrvikCore::Dimension::Point;

    std::vector<float> segments() const;
    void findMiddle();
    void show();
    void moveTo(const Point& shift);
    void placeHead(std::uint64_t childId, const Point& tip, const Point& before,
                   const PictureScale& scale);
    void placeText(const PictureScale& scale);

    TextLabels& m_labels;
    OrvikCore::Dimension m_home;      ///< Where the model belongs.
    OrvikCore::Dimension m_dimension; ///< Where it is drawn.
    Point m_shift{};                  ///< From the one to the other.
    bool m_isTogether = true;         ///< All that was measured is shifted by the same.
    std::uint64_t m_modelStamp = 0;   ///< When that was looked at.
    double m_length = 0.0;            ///< Of the measured line.
    Point m_middle{};                 ///< Half way along it.
    Point m_along{};                  ///< Its direction there; zero for a line without length.
};

} // namespace ViewOpenGl

#endif
