#include "kernel/SavedViews.h"

#include <OrvikOs/Utf8.h>

#include <TDF_LabelSequence.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_View.hxx>
#include <XCAFDoc_ViewTool.hxx>
#include <XCAFView_Object.hxx>

#include <algorithm>
#include <cmath>

namespace OrvikCad {

namespace {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using OrvikModel::SavedCamera;

constexpr wchar_t kViews[] = L"Views";
constexpr wchar_t kCaptures[] = L"Captures";
constexpr wchar_t kUnnamed[] = L"view";

/// What lies between the eye of a view and its window when the file does not say.
double diagonalOf(const OrvikModel::Model& model)
{
    const double diagonal = 2.0 * model.box.Radius();
    return diagonal > 0.0 ? diagonal : 1.0;
}

void copy(const gp_XYZ& from, double* to)
{
    to[0] = from.X();
    to[1] = from.Y();
    to[2] = from.Z();
}

bool isFinite(const SavedCamera& camera)
{
    const auto isSound = [](double value) { return std::isfinite(value); };
    return std::all_of(camera.eye, camera.eye + 3, isSound) &&
           std::all_of(camera.target, camera.target + 3, isSound) &&
           std::all_of(camera.up, camera.up + 3, isSound) && isSound(camera.width) &&
           isSound(camera.height);
}

/// The eye stands where the document says, the target before it by the distance of the window; a
/// window at no distance lies one diagonal of the model away.
SavedCamera cameraOf(XCAFView_Object& view, double diagonal)
{
    const double distance = view.ZoomFactor() > 0.0 ? view.ZoomFactor() : diagonal;
    SavedCamera camera;
    copy(view.ProjectionPoint().XYZ(), camera.eye);
    copy(view.ProjectionPoint().XYZ() + view.ViewDirection().XYZ() * distance, camera.target);
    copy(view.UpDirection().XYZ(), camera.up);
    camera.width = view.WindowHorizontalSize();
    camera.height = view.WindowVerticalSize();
    camera.orthographic = view.Type() != XCAFView_ProjectionType_Central;
    return camera;
}

std::unique_ptr<ModelNode> makeNode(NodeKind kind, std::wstring name)
{
    auto node = std::make_unique<ModelNode>();
    node->kind = kind;
    node->name = std::move(name);
    return node;
}

/// The numbers of the nodes that the view lists, in ascending order.
std::vector<std::uint64_t> shownBy(const TDF_Label& view, const Handle(XCAFDoc_ViewTool) & tool,
                                   const NodeIndex& nodes)
{
    TDF_LabelSequence labels;
    TDF_LabelSequence annotations;
    tool->GetRefShapeLabel(view, labels);
    tool->GetRefGDTLabel(view, annotations);
    labels.Append(annotations);
    std::vector<std::uint64_t> numbers;
    for (const TDF_Label& label : labels)
        for (const ModelNode* node : nodes.Find(label))
            numbers.push_back(node->number);
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    return numbers;
}

} // namespace

void AddSavedViews(ReadContext& context)
{
    const Handle(XCAFDoc_ViewTool) tool = XCAFDoc_DocumentTool::ViewTool(context.document.Main());
    TDF_LabelSequence labels;
    tool->GetViewLabels(labels);
    const double diagonal = diagonalOf(context.model);
    auto views = makeNode(NodeKind::Views, kViews);
    auto captures = makeNode(NodeKind::Captures, kCaptures);
    for (const TDF_Label& label : labels) {
        Handle(XCAFDoc_View) attribute;
        if (!label.FindAttribute(XCAFDoc_View::GetID(), attribute))
            continue;
        const Handle(XCAFView_Object) object = attribute->GetObject();
        const SavedCamera camera = cameraOf(*object, diagonal);
        if (!isFinite(camera))
            continue;
        const std::wstring name = object->Name().IsNull() || object->Name()->IsEmpty()
                                      ? std::wstring(kUnnamed)
                                      : OrvikOs::Utf8ToWide(object->Name()->ToCString());
        views->children.push_back(makeNode(NodeKind::View, name));
        views->children.back()->camera = camera;
        std::vector<std::uint64_t> shown = shownBy(label, tool, context.nodes);
        if (shown.empty())
            continue;
        captures->children.push_back(makeNode(NodeKind::Capture, name));
        captures->children.back()->camera = camera;
        captures->children.back()->visible = std::move(shown);
    }
    for (auto* group : {&views, &captures})
        if (!(*group)->children.empty())
            context.model.nodes.push_back(std::move(*group));
}

} // namespace OrvikCad
