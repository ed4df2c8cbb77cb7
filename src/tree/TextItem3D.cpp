#include "OrvikCore/TextItem3D.h"

namespace OrvikCore {

TextItem3D::TextItem3D(std::wstring const& text, bool facesCamera, std::wstring const& fontName,
                       float x, float y, float z, TextDirection readingDirection,
                       TextDirection upDirection, bool bold, bool italic, float height,
                       float offsetX, float offsetY, std::wstring const& toolTip,
                       TambVizCore::RGBAColor const& textColor,
                       TambVizCore::RGBAColor const& backgroundColor)
    : m_text(text),
      m_facesCamera(facesCamera),
      m_fontName(fontName),
      m_x(x),
      m_y(y),
      m_z(z),
      m_readingDirection(readingDirection),
      m_upDirection(upDirection),
      m_bold(bold),
      m_italic(italic),
      m_height(height),
      m_offsetX(offsetX),
      m_offsetY(offsetY),
      m_toolTip(toolTip),
      m_textColor(textColor),
      m_backgroundColor(backgroundColor)
{
}

} // namespace OrvikCore
