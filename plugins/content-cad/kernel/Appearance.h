#ifndef ORVIKCAD_KERNEL_APPEARANCE_H
#define ORVIKCAD_KERNEL_APPEARANCE_H

#include "kernel/CadDocument.h"

#include <TambVizCore/RGBAColor.h>

#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_LayerTool.hxx>

#include <optional>
#include <string>
#include <vector>

namespace OrvikCad {

/// Reads colours, layers and visibility of labels.
class Appearance
{
public:
    /// Which of the colours that a label may have is wanted first.
    enum class ColorOf
    {
        Surface,
        Curve,
    };

    explicit Appearance(const CadDocument& document);

    /// @return the colour of a label itself, sRGB; none when it has none.
    std::optional<TambVizCore::RGBAColor> Color(const TDF_Label& label, ColorOf what) const;

    /// @return the colour for one placement only, given to a chain of components; none when there
    ///         is none.
    /// @param components  Labels of components from the outermost to the innermost.
    std::optional<TambVizCore::RGBAColor> PlacementColor(const TDF_LabelSequence& components) const;

    /// @return the names of a label's layers, sorted.
    std::vector<std::wstring> Layers(const TDF_Label& label) const;

    /// @return false for a label that is hidden, or that lies on hidden layers only.
    bool IsShown(const TDF_Label& label) const;

private:
    Handle(XCAFDoc_ColorTool) m_colors;
    Handle(XCAFDoc_LayerTool) m_layers;
};

} // namespace OrvikCad

#endif
