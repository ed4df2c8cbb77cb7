#ifndef ORVIKCAD_KERNEL_TESSELLATION_H
#define ORVIKCAD_KERNEL_TESSELLATION_H

#include "interface/CadMessages.h"
#include "interface/ICadKernel.h"
#include "kernel/KernelWatch.h"
#include "kernel/ShapeCatalog.h"

#include <OrvikModel/Model.h>

namespace OrvikCad {

/// Greatest angle between neighbouring chords unless something else is asked for, radians.
inline constexpr double kDefaultAngleRadians = 0.35;
/// Greatest distance of a chord from its curve, in multiples of the model's diagonal.
inline constexpr double kDefaultSagShare = 0.001;

/// Cuts every shape of a catalog into triangles, each once, several at a time, and numbers the
/// model's nodes.
///
/// How finely depends on the size of the whole model without its annotations, so that a small part
/// of a large assembly costs little. A shape that fails is named in a warning; what of it could be
/// cut is kept.
/// @throws TambCommandsInfra::JobCancelled, std::bad_alloc
void Tessellate(const ShapeCatalog& catalog, const CadTessellation& wanted, KernelBudget& budget,
                OrvikModel::Model& model, CadMessages& messages);

/// Cuts one shape; its topology holds no triangles afterwards.
///
/// @param failure  receives why not all of it could be cut; empty otherwise.
/// @throws TambCommandsInfra::JobCancelled, std::bad_alloc
ShapeMesh CutShape(const TopoDS_Shape& shape, const ShapeParts& parts,
                   const MeshParameters& parameters, KernelBudget& budget, std::wstring& failure);

} // namespace OrvikCad

#endif
