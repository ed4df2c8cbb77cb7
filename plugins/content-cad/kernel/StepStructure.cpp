#include "kernel/StepStructure.h"

#include "kernel/KernelWatch.h"

#include <BRep_Builder.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepShape_EdgeBasedWireframeModel.hxx>
#include <StepShape_FaceBasedSurfaceModel.hxx>
#include <StepShape_FaceSurface.hxx>
#include <StepShape_FacetedBrepAndBrepWithVoids.hxx>
#include <StepShape_GeometricSet.hxx>
#include <StepShape_GeometricSetSelect.hxx>
#include <StepShape_HArray1OfConnectedEdgeSet.hxx>
#include <StepShape_HArray1OfConnectedFaceSet.hxx>
#include <StepShape_HArray1OfGeometricSetSelect.hxx>
#include <StepShape_HArray1OfShell.hxx>
#include <StepShape_ManifoldSolidBrep.hxx>
#include <StepShape_ShellBasedSurfaceModel.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>
#include <TopoDS_Vertex.hxx>
#include <TransferBRep_ShapeBinder.hxx>
#include <Transfer_TransientProcess.hxx>
#include <XSControl_TransferReader.hxx>

namespace OrvikCad {

namespace {

constexpr int kPollEntities = 4096;

TopoDS_Shape emptyShape(TopAbs_ShapeEnum kind)
{
    const BRep_Builder builder;
    TopoDS_Solid solid;
    TopoDS_Shell shell;
    TopoDS_Face face;
    TopoDS_Edge edge;
    TopoDS_Vertex vertex;
    switch (kind) {
    case TopAbs_SOLID:
        builder.MakeSolid(solid);
        return solid;
    case TopAbs_SHELL:
        builder.MakeShell(shell);
        return shell;
    case TopAbs_FACE:
        builder.MakeFace(face);
        return face;
    case TopAbs_EDGE:
        builder.MakeEdge(edge);
        return edge;
    default:
        builder.MakeVertex(vertex);
        return vertex;
    }
}

/// A compound of empty shapes of one kind.
TopoDS_Shape emptyShapes(TopAbs_ShapeEnum kind, int count)
{
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    for (int i = 0; i < count; ++i)
        builder.Add(compound, emptyShape(kind));
    return compound;
}

TopoDS_Shape emptySet(const StepShape_GeometricSet& set)
{
    const BRep_Builder builder;
    TopoDS_Compound compound;
    builder.MakeCompound(compound);
    if (set.Elements().IsNull())
        return compound;
    for (const StepShape_GeometricSetSelect& element : *set.Elements()) {
        if (!element.Surface().IsNull())
            builder.Add(compound, emptyShape(TopAbs_FACE));
        else if (!element.Curve().IsNull())
            builder.Add(compound, emptyShape(TopAbs_EDGE));
        else if (!element.Point().IsNull())
            builder.Add(compound, emptyShape(TopAbs_VERTEX));
    }
    return compound;
}

/// A damaged file may leave a list away.
template <class List> int countOf(const Handle(List) & list)
{
    return list.IsNull() ? 0 : list->Length();
}

/// @return null for an entity that is no shape by itself.
TopoDS_Shape placeholderFor(const Handle(Standard_Transient) & entity)
{
    if (entity->IsKind(STANDARD_TYPE(StepShape_ManifoldSolidBrep)) ||
        entity->IsKind(STANDARD_TYPE(StepShape_FacetedBrepAndBrepWithVoids)))
        return emptyShape(TopAbs_SOLID);
    if (const auto shells = Handle(StepShape_ShellBasedSurfaceModel)::DownCast(entity))
        return emptyShapes(TopAbs_SHELL, countOf(shells->SbsmBoundary()));
    if (const auto faces = Handle(StepShape_FaceBasedSurfaceModel)::DownCast(entity))
        return emptyShapes(TopAbs_SHELL, countOf(faces->FbsmFaces()));
    if (const auto edges = Handle(StepShape_EdgeBasedWireframeModel)::DownCast(entity))
        return emptyShapes(TopAbs_EDGE, countOf(edges->EbwmBoundary()));
    if (const auto set = Handle(StepShape_GeometricSet)::DownCast(entity))
        return emptySet(*set);
    if (entity->IsKind(STANDARD_TYPE(StepShape_FaceSurface)))
        return emptyShape(TopAbs_FACE);
    return {};
}

} // namespace

void BindPlaceholders(const Handle(XSControl_WorkSession) & session)
{
    const Handle(Interface_InterfaceModel)& model = session->Model();
    const Handle(Transfer_TransientProcess) process = session->TransferReader()->TransientProcess();
    for (int i = 1; i <= model->NbEntities(); ++i) {
        if (i % kPollEntities == 0)
            PollJob();
        const Handle(Standard_Transient) entity = model->Value(i);
        const TopoDS_Shape placeholder = placeholderFor(entity);
        if (!placeholder.IsNull())
            process->Bind(entity, new TransferBRep_ShapeBinder(placeholder));
    }
}

} // namespace OrvikCad
