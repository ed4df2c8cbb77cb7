#ifndef ORVIKCORE_VIEW_VIEWTEXTS_H
#define ORVIKCORE_VIEW_VIEWTEXTS_H

namespace OrvikCore {

inline constexpr char kViewName[] = "OrvikCoreView3D";
inline constexpr char kNoGraphStructure[] = "No graph structure in AView3D by default";
inline constexpr char kInvalidOperation[] = "Invalid argument in AView3D::Notify";
inline constexpr char kNoCameraProvider[] = "null ICameraProvider*";

// Deliberate: the wording is fixed, though the operation that prints it is the pick.
// Held by AView3DControllerAdapterPick.ExceptionIsPrintedUnderItsLabel.
inline constexpr wchar_t kPickException[] = L"Exception thrown in Highlight(): ";

/// The view object that shows a drag.
inline constexpr char kRubberBand[] = "Rubberband";

/// The language whose console gets picks as commands.
inline constexpr wchar_t kScheme[] = L"scheme";

} // namespace OrvikCore

#endif
