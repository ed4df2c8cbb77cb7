#ifndef VIEWOPENGL_OBJECTS_TEXTOBJECT_H
#define VIEWOPENGL_OBJECTS_TEXTOBJECT_H

#include <OrvikCore/AViewObject.h>
#include <OrvikCore/TextItem3D.h>

namespace ViewOpenGl {

class TextLabels;

/// One text label. @thread Main thread.
class TextObject final : public OrvikCore::AViewObject
{
public:
    /// @param labels  Draws the label while it is rendered; not owned, outlives the object.
    TextObject(TextLabels& labels, const OrvikCore::TextItem3D& item);
    ~TextObject() override;

    TextObject(const TextObject&) = delete;
    TextObject& operator=(const TextObject&) = delete;

    void SetIsVisible(bool const& isVisible) override;

protected:
    void doRender() override;
    void doClear() override;
    void doDisplay() override;

private:
    TextLabels& m_labels;
    OrvikCore::TextItem3D m_item;
};

} // namespace ViewOpenGl

#endif
