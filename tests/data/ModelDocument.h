#ifndef TESTS_DATA_MODELDOCUMENT_H
#define TESTS_DATA_MODELDOCUMENT_H

#include "StepText.h"

#include <Quantity_ColorRGBA.hxx>
#include <TDF_Label.hxx>
#include <TDocStd_Document.hxx>
#include <TopoDS_Shape.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DimTolTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Trsf.hxx>

#include <filesystem>
#include <string>

namespace TestData {

/// The schemas of STEP by the numbers that the kernel gives them.
enum class StepSchema
{
    Ap214 = 4,
    Ap203 = 3,
    Ap242 = 5,
};

/// How a document becomes a STEP file.
struct StepStyle
{
    StepSchema schema = StepSchema::Ap214;
    const char* unit = "MM"; ///< "MM", "INCH" or "M"; lengths in the document stay millimetres.
    NameCoding names = NameCoding::Escaped;
    std::string referencesPrefix = {}; ///< Not empty: each body in a file of its own, so named.
};

/// A kernel document that is filled step by step and then written.
class ModelDocument
{
public:
    ModelDocument();
    ~ModelDocument();
    ModelDocument(const ModelDocument&) = delete;
    ModelDocument& operator=(const ModelDocument&) = delete;

    /// Adds a body, or anything else that is no assembly.
    TDF_Label AddBody(const TopoDS_Shape& shape, const char16_t* name);
    TDF_Label AddAssembly(const char16_t* name);
    /// Places a body or an assembly in an assembly.
    TDF_Label Place(const TDF_Label& assembly, const TDF_Label& what, const gp_Trsf& place,
                    const char16_t* name);

    void SetColor(const TDF_Label& label, const Quantity_ColorRGBA& color);
    void SetFaceColor(const TDF_Label& body, const TopoDS_Shape& face,
                      const Quantity_ColorRGBA& color);
    /// Colours one placement only.
    /// @param placedShape  The body where it stands in the world.
    void SetInstanceColor(const TopoDS_Shape& placedShape, const Quantity_ColorRGBA& color);
    void SetLayer(const TDF_Label& label, const char16_t* layer);
    /// Stores volume, area and centroid of the body as they are, to be written along.
    void SetValidationProperties(const TDF_Label& body);

    XCAFDoc_ShapeTool& Shapes() { return *m_shapes; }
    XCAFDoc_ColorTool& Colors() { return *m_colors; }
    XCAFDoc_DimTolTool& Tolerances() { return *m_tolerances; }

    /// @throws std::runtime_error when the kernel refuses.
    void WriteStep(const std::filesystem::path& file, const StepStyle& style);
    void WriteIges(const std::filesystem::path& file);

private:
    Handle(TDocStd_Document) m_document;
    Handle(XCAFDoc_ShapeTool) m_shapes;
    Handle(XCAFDoc_ColorTool) m_colors;
    Handle(XCAFDoc_LayerTool) m_layers;
    Handle(XCAFDoc_DimTolTool) m_tolerances;
};

Quantity_ColorRGBA Color(float red, float green, float blue, float alpha = 1.0f);
std::u16string ToText(int number);

} // namespace TestData

#endif
