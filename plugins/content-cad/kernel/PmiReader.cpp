#include "kernel/PmiReader.h"

#include "kernel/KernelText.h"
#include "kernel/KernelWatch.h"
#include "kernel/NodePlaces.h"
#include "kernel/PartContent.h"
#include "kernel/PmiKinds.h"
#include "kernel/PmiText.h"

#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <XCAFDoc_Datum.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_Dimension.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GeomTolerance.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <map>

namespace OrvikCad {

namespace {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::EntityType;

bool hasEdges(const TopoDS_Shape& shape)
{
    return !shape.IsNull() && TopExp_Explorer(shape, TopAbs_EDGE).More();
}

/// Collects the annotations of one document.
class PmiBuilder
{
public:
    explicit PmiBuilder(ReadContext& context)
        : m_context(context),
          m_places(context.model),
          m_tool(XCAFDoc_DocumentTool::DimTolTool(context.document.Main()))
    {
    }

    void AddDimensions()
    {
        forEach<XCAFDoc_Dimension>(
            &XCAFDoc_DimTolTool::GetDimensionLabels,
            [this](const TDF_Label& label, const Handle(XCAFDimTolObjects_DimensionObject) & it) {
                addDimension(label, it);
            });
    }

    void AddTolerances()
    {
        forEach<XCAFDoc_GeomTolerance>(
            &XCAFDoc_DimTolTool::GetGeomToleranceLabels,
            [this](const TDF_Label& label, const Handle(XCAFDimTolObjects_GeomToleranceObject) &
                                               it) { addTolerance(label, it); });
    }

    void AddDatums()
    {
        forEach<XCAFDoc_Datum>(
            &XCAFDoc_DimTolTool::GetDatumLabels,
            [this](const TDF_Label& label, const Handle(XCAFDimTolObjects_DatumObject) & it) {
                addDatum(label, it);
            });
    }

    /// Moves what was collected into the model.
    void Finish()
    {
        if (m_annotations.empty())
            return;
        auto set = std::make_unique<ModelNode>();
        set->kind = NodeKind::PmiSet;
        set->name = L"PMI";
        for (const AnnotationType& each : kAnnotationTypes) {
            const auto found = m_annotations.find(each.type);
            if (found == m_annotations.end())
                continue;
            auto group = std::make_unique<ModelNode>();
            group->kind = NodeKind::PmiType;
            group->name = each.name;
            group->pmiType = each.type;
            group->children = std::move(found->second);
            set->children.push_back(std::move(group));
        }
        m_context.model.nodes.push_back(std::move(set));
    }

private:
    /// Calls @p add with each label and its object, where it has one.
    template <class Attribute, class Add>
    void forEach(void (XCAFDoc_DimTolTool::*list)(TDF_LabelSequence&) const, const Add& add)
    {
        TDF_LabelSequence labels;
        (*m_tool.*list)(labels);
        for (const TDF_Label& label : labels) {
            PollJob();
            Handle(Attribute) attribute;
            if (!label.FindAttribute(Attribute::GetID(), attribute))
                continue;
            const auto object = attribute->GetObject();
            if (!object.IsNull())
                add(label, object);
        }
    }

    void addDimension(const TDF_Label& label,
                      const Handle(XCAFDimTolObjects_DimensionObject) & dimension)
    {
        const std::wstring drawn = ToWide(dimension->GetPresentationName());
        const bool isDrawnOnly =
            dimension->GetType() == XCAFDimTolObjects_DimensionType_CommonLabel ||
            dimension->GetType() == XCAFDimTolObjects_DimensionType_DimensionPresentation;
        ModelNode& node =
            add(isDrawnOnly ? AnnotationTypeByName(drawn) : EntityType::PmiDimension, label);
        node.text = DimensionText(*dimension);
        node.name = !drawn.empty() ? drawn : DimensionWord(dimension->GetType());
        addShape(node, label, dimension->GetPresentation());
    }

    void addTolerance(const TDF_Label& label,
                      const Handle(XCAFDimTolObjects_GeomToleranceObject) & tolerance)
    {
        ModelNode& node = add(EntityType::PmiGeometricTolerance, label);
        node.text = ToleranceText(*tolerance, datumsOf(label));
        node.name = ToWide(tolerance->GetPresentationName());
        if (node.name.empty())
            node.name = ToWide(tolerance->GetSemanticName());
        if (node.name.empty())
            node.name = ToleranceWord(tolerance->GetType());
        addShape(node, label, tolerance->GetPresentation());
    }

    /// Each tolerance brings the datums that it names anew.
    void addDatum(const TDF_Label& label, const Handle(XCAFDimTolObjects_DatumObject) & datum)
    {
        const std::wstring text = DatumText(*datum);
        ModelNode*& known = m_datums[text];
        if (known)
            m_context.nodes.Add(label, *known);
        else
            known = &add(EntityType::PmiDatum, label);
        known->text = text;
        if (known->name.empty())
            known->name = ToWide(datum->GetPresentationName());
        if (!known->shape)
            addShape(*known, label, datum->GetPresentation());
    }

    ModelNode& add(EntityType type, const TDF_Label& label)
    {
        auto node = std::make_unique<ModelNode>();
        node->kind = NodeKind::Annotation;
        node->pmiType = type;
        m_context.nodes.Add(label, *node);
        auto& group = m_annotations[type];
        group.push_back(std::move(node));
        return *group.back();
    }

    void addShape(ModelNode& node, const TDF_Label& label, const TopoDS_Shape& drawn)
    {
        if (!hasEdges(drawn))
            return;
        node.shape = m_context.shapes.Get(drawn, node.name);
        const Place place =
            Product(placeOfBody(label), ToTransform(drawn.Location()).value_or(Place()));
        if (!place.empty())
            node.transform = place;
    }

    /// @return the first place of the body on whose faces or edges the annotation hangs.
    Place placeOfBody(const TDF_Label& label) const
    {
        TDF_LabelSequence first;
        TDF_LabelSequence second;
        m_tool->GetRefShapeLabel(label, first, second);
        first.Append(second);
        for (TDF_Label shape : first) {
            while (!shape.IsNull() && XCAFDoc_ShapeTool::IsSubShape(shape))
                shape = shape.Father();
            const auto nodes = m_context.nodes.Find(shape);
            if (!nodes.empty())
                return m_places.Find(nodes.front());
        }
        return {};
    }

    std::vector<Handle(XCAFDimTolObjects_DatumObject)> datumsOf(const TDF_Label& tolerance) const
    {
        TDF_LabelSequence labels;
        m_tool->GetDatumWithObjectOfTolerLabels(tolerance, labels);
        std::vector<Handle(XCAFDimTolObjects_DatumObject)> datums;
        for (const TDF_Label& label : labels) {
            Handle(XCAFDoc_Datum) datum;
            if (label.FindAttribute(XCAFDoc_Datum::GetID(), datum) && !datum->GetObject().IsNull())
                datums.push_back(datum->GetObject());
        }
        return datums;
    }

    ReadContext& m_context;
    NodePlaces m_places;
    Handle(XCAFDoc_DimTolTool) m_tool;
    std::map<EntityType, std::vector<std::unique_ptr<ModelNode>>> m_annotations;
    std::map<std::wstring, ModelNode*> m_datums; ///< By text; not owned.
};

} // namespace

void AddPmi(ReadContext& context)
{
    PmiBuilder builder(context);
    builder.AddDimensions();
    builder.AddTolerances();
    builder.AddDatums();
    builder.Finish();
}

} // namespace OrvikCad
