#ifndef ORVIKCAD_KERNEL_MODELBUILDER_H
#define ORVIKCAD_KERNEL_MODELBUILDER_H

#include "kernel/Appearance.h"
#include "kernel/PartContent.h"
#include "kernel/ReadContext.h"

#include <TDF_LabelSequence.hxx>

#include <map>
#include <memory>
#include <optional>
#include <string>

namespace OrvikCad {

/// Instances that a model may have: a file that shares its assemblies can name far more than it has
/// bytes. With its row and its places each takes some 700 bytes.
inline constexpr std::size_t MaxModelNodes(std::size_t fileBytes)
{
    return 60'000 + fileBytes / 32;
}

/// Depth to which assemblies are followed.
inline constexpr unsigned kMaxAssemblyDepth = 200;

/// Makes the nodes of a document's structure: an Assembly for each place of an assembly, an
/// AssemblyReference for each component, a Body for a part of one body, an Assembly of bodies for a
/// part of several.
///
/// Which colour holds: that of a face, then that for one placement only, then that of the
/// innermost component, then that of the body, then that of the part; a body without any takes that
/// of the nearest assembly or component above.
class ModelBuilder
{
public:
    /// @param fallbackName  For top shapes without a name.
    /// @param maxNodes      What comes after so many nodes is left out, with a warning.
    ModelBuilder(ReadContext& context, std::wstring fallbackName, std::size_t maxNodes);

    /// Appends the top nodes to the model.
    void Build();

private:
    using Node = std::unique_ptr<OrvikModel::ModelNode>;

    Node makeDefinition(const TDF_Label& label, const std::wstring& fallbackName);
    Node makeAssembly(const TDF_Label& label, const std::wstring& fallbackName);
    Node makeComponent(const TDF_Label& component, const std::wstring& fallbackName);
    Node makePart(const TDF_Label& label, const std::wstring& fallbackName);
    Node makePiece(const PartPiece& piece, const PartContent& part,
                   const std::optional<TambVizCore::RGBAColor>& placementColor);
    const PartContent& partOf(const TDF_Label& label, const std::wstring& fallbackName);
    std::optional<TambVizCore::RGBAColor> placementColor() const;
    bool takeNode();
    void dropBadPlaces(OrvikModel::ModelNode& node);

    ReadContext& m_context; ///< Not owned.
    Appearance m_appearance;
    std::wstring m_fallbackName;
    LabelMap<std::unique_ptr<PartContent>> m_parts;
    TDF_LabelSequence m_components; ///< From the top down to where the walk is.
    std::size_t m_maxNodes;
    std::size_t m_nodeCount = 0;
};

} // namespace OrvikCad

#endif
