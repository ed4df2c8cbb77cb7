#include "objects/TextObject.h"

#include "text/TextLabels.h"

namespace ViewOpenGl {

TextObject::TextObject(TextLabels& labels, const OrvikCore::TextItem3D& item)
    : m_labels(labels), m_item(item)
{
    name = "Text";
}

TextObject::~TextObject()
{
    m_labels.Remove(Id());
}

void TextObject::SetIsVisible(bool const& isVisible)
{
    AViewObject::SetIsVisible(isVisible);
    m_labels.SetVisible(Id(), isVisible);
}

void TextObject::doRender()
{
    m_labels.Add(Id(), m_item);
    rendered = true;
}

void TextObject::doClear()
{
    m_labels.Remove(Id());
}

void TextObject::doDisplay()
{
    m_labels.SetVisible(Id(), true);
}

} // namespace ViewOpenGl
