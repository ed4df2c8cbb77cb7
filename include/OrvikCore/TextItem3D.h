#ifndef ORVIKCORE_TEXTITEM3D_H
#define ORVIKCORE_TEXTITEM3D_H

#include "OrvikCore/Export.h"
#include "OrvikCore/TextDirection.h"

#include <TambVizCore/RGBAColor.h>

#include <string>

namespace OrvikCore {

/// The description of one text label in the 3D view: a plain value.
class ORVIKCORE_API TextItem3D
{
public:
    TextItem3D(std::wstring const& text, bool facesCamera, std::wstring const& fontName, float x,
               float y, float z, TextDirection readingDirection, TextDirection upDirection,
               bool bold, bool italic, float height, float offsetX, float offsetY,
               std::wstring const& toolTip, TambVizCore::RGBAColor const& textColor,
               TambVizCore::RGBAColor const& backgroundColor);

    std::wstring m_text;
    bool m_facesCamera;               ///< Turned to the camera; the directions are then not used.
    std::wstring m_fontName;          ///< Empty for the view's own font.
    float m_x;                        ///< Anchor, world units.
    float m_y;                        ///< Anchor, world units.
    float m_z;                        ///< Anchor, world units.
    TextDirection m_readingDirection; ///< Where the letters run to.
    TextDirection m_upDirection;      ///< Where the letters stand up to.
    bool m_bold;
    bool m_italic;
    float m_height;  ///< Of a capital letter: pixels when facing the camera, else world units.
    float m_offsetX; ///< From the anchor along the reading direction, in the unit of the height.
    float m_offsetY; ///< From the anchor along the up direction, in the unit of the height.
    std::wstring m_toolTip; ///< Empty for none.
    TambVizCore::RGBAColor m_textColor;
    TambVizCore::RGBAColor m_backgroundColor; ///< Alpha 0 for none.
};

} // namespace OrvikCore

#endif
