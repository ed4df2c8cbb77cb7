#include "ModelDocument.h"

#include "StepText.h"

#include <APIHeaderSection_MakeHeader.hxx>
#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>
#include <IGESCAFControl_Writer.hxx>
#include <IGESControl_Controller.hxx>
#include <IGESData_GlobalSection.hxx>
#include <IGESData_IGESModel.hxx>
#include <Interface_Static.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <STEPControl_Controller.hxx>
#include <TDataStd_Name.hxx>
#include <XCAFApp_Application.hxx>
#include <XCAFDoc_Area.hxx>
#include <XCAFDoc_Centroid.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_Volume.hxx>

#include <stdexcept>

namespace TestData {

namespace {

/// Stands in every file instead of the time of writing, so that files compare byte by byte.
constexpr char kIgesTimeStamp[] = "20200101.000000";
constexpr char kAuthor[] = "make_models";

Handle(TCollection_HAsciiString) text(const std::string& value)
{
    return new TCollection_HAsciiString(value.c_str());
}

void require(bool isDone, const char* what, const std::filesystem::path& file)
{
    if (!isDone)
        throw std::runtime_error(std::string(what) + ": " + file.string());
}

/// Settles the file and those that it refers to.
void settle(const std::filesystem::path& file, const StepStyle& style)
{
    SettleStepFile(file, style.names);
    if (style.referencesPrefix.empty())
        return;
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path()))
        if (entry.path().filename().string().starts_with(style.referencesPrefix))
            SettleStepFile(entry.path(), style.names);
}

void setName(const TDF_Label& label, const char16_t* name)
{
    TDataStd_Name::Set(label, TCollection_ExtendedString(name));
}

} // namespace

Quantity_ColorRGBA Color(float red, float green, float blue, float alpha)
{
    // Colours are told as they look, in the gamma-corrected values that STEP holds.
    return Quantity_ColorRGBA(Quantity_Color(static_cast<double>(red), static_cast<double>(green),
                                             static_cast<double>(blue), Quantity_TOC_sRGB),
                              alpha);
}

std::u16string ToText(int number)
{
    const std::string digits = std::to_string(number);
    return {digits.begin(), digits.end()};
}

ModelDocument::ModelDocument()
{
    XCAFApp_Application::GetApplication()->NewDocument("BinXCAF", m_document);
    m_shapes = XCAFDoc_DocumentTool::ShapeTool(m_document->Main());
    m_colors = XCAFDoc_DocumentTool::ColorTool(m_document->Main());
    m_layers = XCAFDoc_DocumentTool::LayerTool(m_document->Main());
    m_tolerances = XCAFDoc_DocumentTool::DimTolTool(m_document->Main());
}

ModelDocument::~ModelDocument()
{
    XCAFApp_Application::GetApplication()->Close(m_document);
}

TDF_Label ModelDocument::AddBody(const TopoDS_Shape& shape, const char16_t* name)
{
    const TDF_Label label = m_shapes->AddShape(shape, /*makeAssembly=*/false);
    setName(label, name);
    return label;
}

TDF_Label ModelDocument::AddAssembly(const char16_t* name)
{
    const TDF_Label label = m_shapes->NewShape();
    setName(label, name);
    return label;
}

TDF_Label ModelDocument::Place(const TDF_Label& assembly, const TDF_Label& what,
                               const gp_Trsf& place, const char16_t* name)
{
    const TDF_Label label = m_shapes->AddComponent(assembly, what, TopLoc_Location(place));
    setName(label, name);
    return label;
}

void ModelDocument::SetColor(const TDF_Label& label, const Quantity_ColorRGBA& color)
{
    m_colors->SetColor(label, color, XCAFDoc_ColorSurf);
}

void ModelDocument::SetFaceColor(const TDF_Label& body, const TopoDS_Shape& face,
                                 const Quantity_ColorRGBA& color)
{
    m_colors->SetColor(m_shapes->AddSubShape(body, face), color, XCAFDoc_ColorSurf);
}

void ModelDocument::SetInstanceColor(const TopoDS_Shape& placedShape,
                                     const Quantity_ColorRGBA& color)
{
    m_shapes->UpdateAssemblies();
    if (!m_colors->SetInstanceColor(placedShape, XCAFDoc_ColorSurf, color))
        throw std::runtime_error("no such placement to colour");
}

void ModelDocument::SetLayer(const TDF_Label& label, const char16_t* layer)
{
    m_layers->SetLayer(label, TCollection_ExtendedString(layer));
}

void ModelDocument::SetValidationProperties(const TDF_Label& body)
{
    const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(body);
    GProp_GProps volume;
    GProp_GProps area;
    BRepGProp::VolumeProperties(shape, volume);
    BRepGProp::SurfaceProperties(shape, area);
    XCAFDoc_Volume::Set(body, volume.Mass());
    XCAFDoc_Area::Set(body, area.Mass());
    XCAFDoc_Centroid::Set(body, volume.CentreOfMass());
}

void ModelDocument::WriteStep(const std::filesystem::path& file, const StepStyle& style)
{
    // The writer looks at the schema when it is made, and ignores it before the controller exists.
    STEPControl_Controller::Init();
    Interface_Static::SetIVal("write.step.schema", static_cast<int>(style.schema));
    Interface_Static::SetCVal("write.step.unit", style.unit);
    Interface_Static::SetCVal("write.step.product.name", file.stem().c_str());
    m_shapes->UpdateAssemblies();

    STEPCAFControl_Writer writer;
    const bool isSplit = !style.referencesPrefix.empty();
    require(writer.Transfer(m_document, STEPControl_AsIs,
                            isSplit ? style.referencesPrefix.c_str() : nullptr),
            "cannot transfer", file);
    APIHeaderSection_MakeHeader header(writer.ChangeWriter().Model());
    header.SetName(text(file.filename().string()));
    header.SetAuthorValue(1, text(kAuthor));
    require(writer.Write(file.c_str()) == IFSelect_RetDone, "cannot write", file);
    settle(file, style);
}

void ModelDocument::WriteIges(const std::filesystem::path& file)
{
    IGESControl_Controller::Init();
    Interface_Static::SetIVal("write.iges.brep.mode", 1);
    m_shapes->UpdateAssemblies();

    IGESCAFControl_Writer writer;
    require(writer.Transfer(m_document), "cannot transfer", file);
    writer.ComputeModel();
    IGESData_GlobalSection global = writer.Model()->GlobalSection();
    global.SetDate(text(kIgesTimeStamp));
    global.SetLastChangeDate(text(kIgesTimeStamp));
    global.SetFileName(text(file.filename().string()));
    global.SetAuthorName(text(kAuthor));
    writer.Model()->SetGlobalSection(global);
    require(writer.Write(file.c_str()), "cannot write", file);
}

} // namespace TestData
