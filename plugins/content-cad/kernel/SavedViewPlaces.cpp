#include "kernel/SavedViewPlaces.h"

#include "kernel/PmiUnits.h"

#include <Geom_Axis2Placement.hxx>
#include <Interface_EntityIterator.hxx>
#include <Interface_Graph.hxx>
#include <Interface_InterfaceModel.hxx>
#include <StepGeom_Axis2Placement3d.hxx>
#include <StepGeom_CartesianPoint.hxx>
#include <StepToGeom.hxx>
#include <StepVisual_CameraModelD3.hxx>
#include <StepVisual_DraughtingModel.hxx>
#include <StepVisual_PlanarBox.hxx>
#include <StepVisual_ViewVolume.hxx>
#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_View.hxx>
#include <XCAFDoc_ViewTool.hxx>
#include <XCAFView_Object.hxx>
#include <gp_Ax2.hxx>

#include <cmath>
#include <optional>

namespace OrvikCad {

namespace {

using StepCamera = Handle(StepVisual_CameraModelD3);

std::optional<gp_XYZ> pointOf(const Handle(StepGeom_CartesianPoint) & point)
{
    if (point.IsNull() || point->Coordinates().IsNull())
        return std::nullopt;
    gp_XYZ result;
    for (int axis = 1; axis <= 3 && axis <= point->NbCoordinates(); ++axis)
        result.SetCoord(axis, point->CoordinatesValue(axis));
    return result;
}

/// The middle of the window in the view's reference system.
gp_XYZ middleOf(StepVisual_ViewVolume& volume, double planeDistance)
{
    gp_XYZ corner(0.0, 0.0, planeDistance);
    const Handle(StepVisual_PlanarBox) window = volume.ViewWindow();
    if (window.IsNull())
        return corner;
    const Handle(StepGeom_Axis2Placement3d) place = window->Placement().Axis2Placement3d();
    if (place.IsNull())
        return corner;
    if (const auto at = pointOf(place->Location()))
        corner = *at;
    return {corner.X() + window->SizeInX() / 2, corner.Y() + window->SizeInY() / 2, planeDistance};
}

/// The unit of the model that draws with the camera, in millimetres.
double unitOf(const StepCamera& camera, const Interface_Graph& graph)
{
    for (Interface_EntityIterator it = graph.Sharings(camera); it.More(); it.Next()) {
        const auto model = Handle(StepVisual_DraughtingModel)::DownCast(it.Value());
        if (!model.IsNull())
            return LengthUnitOf(model->ContextOfItems());
    }
    return 1.0;
}

/// A view of a file, in its own unit.
struct FileView
{
    gp_Ax2 axes;
    gp_XYZ eye;    ///< In the axes.
    gp_XYZ middle; ///< In the axes.
    double distance = 0.0;
};

/// @return nothing where the camera lacks a piece.
std::optional<FileView> readCamera(const StepCamera& camera)
{
    const Handle(StepVisual_ViewVolume) volume = camera->PerspectiveOfVolume();
    if (volume.IsNull() || camera->ViewReferenceSystem().IsNull())
        return std::nullopt;
    const Handle(Geom_Axis2Placement) axes =
        StepToGeom::MakeAxis2Placement(camera->ViewReferenceSystem());
    const auto origin = pointOf(camera->ViewReferenceSystem()->Location());
    const auto eye = pointOf(volume->ProjectionPoint());
    if (axes.IsNull() || !origin || !eye)
        return std::nullopt;
    FileView view;
    // The kernel's own origin is scaled by whatever unit it met last.
    view.axes = gp_Ax2(*origin, axes->Direction(), axes->XDirection());
    view.eye = *eye;
    view.middle = middleOf(*volume, volume->ViewPlaneDistance());
    view.distance = std::abs(view.middle.Z() - view.eye.Z());
    return view;
}

gp_XYZ toWorld(const gp_Ax2& axes, const gp_XYZ& local)
{
    return axes.Location().XYZ() + axes.XDirection().XYZ() * local.X() +
           axes.YDirection().XYZ() * local.Y() + axes.Direction().XYZ() * local.Z();
}

void place(const FileView& view, const StepCamera& camera, double unit, XCAFView_Object& object)
{
    gp_Dir direction = view.axes.Direction();
    if (view.middle.Z() < view.eye.Z())
        direction.Reverse();
    gp_XYZ eye = toWorld(view.axes, view.eye);
    if (object.Type() != XCAFView_ProjectionType_Central)
        // Parallel rays have no eye: it stands before the middle of the window.
        eye = toWorld(view.axes, view.middle) - direction.XYZ() * view.distance;
    object.SetProjectionPoint(gp_Pnt(eye * unit));
    object.SetViewDirection(direction);
    object.SetUpDirection(view.axes.YDirection());
    object.SetZoomFactor(view.distance * unit);
    const Handle(StepVisual_PlanarBox) window = camera->PerspectiveOfVolume()->ViewWindow();
    if (window.IsNull())
        return;
    object.SetWindowHorizontalSize(window->SizeInX() * unit);
    object.SetWindowVerticalSize(window->SizeInY() * unit);
}

bool isNamedAlike(const StepCamera& camera, const Handle(XCAFView_Object) & view)
{
    const Handle(TCollection_HAsciiString) a = camera->Name();
    const Handle(TCollection_HAsciiString) b = view->Name();
    return a.IsNull() || b.IsNull() ? a.IsNull() == b.IsNull() : a->IsSameString(b);
}

} // namespace

void PlaceSavedViews(const Handle(XSControl_WorkSession) & session, CadDocument& document)
{
    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ViewTool(document.Main())->GetViewLabels(labels);
    const Handle(Interface_InterfaceModel) model = session->Model();
    // The kernel makes one view of each camera, in the order of the file.
    int next = 1;
    for (int i = 1; i <= model->NbEntities() && next <= labels.Length(); ++i) {
        const auto camera = StepCamera::DownCast(model->Value(i));
        if (camera.IsNull())
            continue;
        Handle(XCAFDoc_View) attribute;
        if (!labels.Value(next++).FindAttribute(XCAFDoc_View::GetID(), attribute))
            continue;
        const Handle(XCAFView_Object) object = attribute->GetObject();
        const auto view = readCamera(camera);
        if (!view || !isNamedAlike(camera, object))
            continue;
        place(*view, camera, unitOf(camera, session->Graph()), *object);
        attribute->SetObject(object);
    }
}

} // namespace OrvikCad
