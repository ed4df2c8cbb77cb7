#include "tests/KernelFixture.h"

#include <fstream>
#include <iterator>

namespace OrvikCad {
namespace {

using OrvikModel::Model;
using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// STEP files with annotations, views and claims about their bodies.
class AnnotatedFile : public KernelFixture
{
protected:
    static const ModelNode* Find(const Model& model, NodeKind kind)
    {
        for (const auto& node : model.nodes)
            if (node->kind == kind)
                return node.get();
        return nullptr;
    }

    static std::string StepTextOf(const std::string& name)
    {
        std::ifstream stream(OrvikOs::WideToUtf8(PathOf(name)), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    static std::string Replaced(std::string text, const std::string& from, const std::string& to)
    {
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    }

    Model ReadText(const std::string& text)
    {
        return Read(folder.Write("file.step", text), CadFormat::Step);
    }

    /// "name: text" of all annotations in the order of the tree.
    static std::vector<std::wstring> Texts(const Model& model)
    {
        std::vector<std::wstring> texts;
        const ModelNode* set = Find(model, NodeKind::PmiSet);
        for (const auto& type : set->children)
            for (const auto& annotation : type->children)
                texts.push_back(annotation->name + L": " + annotation->text);
        return texts;
    }
};

TEST_F(AnnotatedFile, HasItsAnnotationsInTheTree)
{
    EXPECT_THAT(Texts(ReadTestModel("pmi.step")),
                ElementsAre(L"Diameter.1: \u2300 12 +0.1/-0.05", L"Length.1: 100 h7",
                            L"Flatness.1: \u23E5 0.05", L"Position.1: \u2316 \u2300 0.2 \u24C2 | A",
                            L"Datum Feature.1: A", L"Note.1: ", L"Surface Roughness.1: "));
}

TEST_F(AnnotatedFile, DrawsItsAnnotations)
{
    const Model model = ReadTestModel("pmi.step");

    const ModelNode& size = *Find(model, NodeKind::PmiSet)->children.at(0)->children.at(0);
    ASSERT_TRUE(size.shape);
    const TambVizCore::VizBox& box = size.shape->BoundingBox();
    EXPECT_NEAR(box.Lo()[2], 10.0, 0.01);
    EXPECT_NEAR(box.Hi()[2], 34.0, 0.01);
}

TEST_F(AnnotatedFile, TellsInchesInMillimetres)
{
    EXPECT_THAT(Texts(ReadTestModel("pmi_inch.step")),
                ElementsAre(L"Diameter: \u2300 12.7 \u00B10.254"));
}

TEST_F(AnnotatedFile, KeepsTheSignsOfTolerances)
{
    const std::string text = StepTextOf("pmi.step");
    const std::string both =
        Replaced(text, "MEASURE_WITH_UNIT(-5.E-02", "MEASURE_WITH_UNIT(5.E-02");
    EXPECT_THAT(Texts(ReadText(both)), testing::Contains(L"Diameter.1: \u2300 12 +0.1/+0.05"));

    const std::string below = Replaced(text, "MEASURE_WITH_UNIT(0.1", "MEASURE_WITH_UNIT(-2.E-02");
    EXPECT_THAT(Texts(ReadText(below)), testing::Contains(L"Diameter.1: \u2300 12 -0.02/-0.05"));
}

TEST_F(AnnotatedFile, ReadsTheValueOfAToleranceThatIsMoreThanAPlainMeasure)
{
    const std::string plain = StepTextOf("pmi.step");
    const std::size_t value = plain.find("= LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(5.E-02)");
    ASSERT_NE(value, std::string::npos);
    const std::string unit = plain.substr(plain.find(",#", value) + 1, 4);
    const std::string complex =
        Replaced(plain, "= LENGTH_MEASURE_WITH_UNIT(LENGTH_MEASURE(5.E-02)," + unit + ");",
                 "= ( LENGTH_MEASURE_WITH_UNIT() MEASURE_REPRESENTATION_ITEM() "
                 "MEASURE_WITH_UNIT(LENGTH_MEASURE(7.E-02)," +
                     unit + ") REPRESENTATION_ITEM('tolerance value') );");

    EXPECT_THAT(Texts(ReadText(complex)), testing::Contains(L"Flatness.1: \u23E5 0.07"));
}

TEST_F(AnnotatedFile, DrawsCalloutsInPlanesOfTheirOwn)
{
    const std::string plain = StepTextOf("pmi.step");
    const std::size_t callout = plain.find("DRAUGHTING_CALLOUT('Diameter.1'");
    ASSERT_NE(callout, std::string::npos);
    const std::size_t set = plain.find("TESSELLATED_GEOMETRIC_SET('',", callout);
    const std::string before = plain.substr(set, plain.find(';', set) - set);
    const std::string curves = before.substr(before.find(",(") + 1);
    std::string text =
        Replaced(plain, before,
                 "( REPOSITIONED_TESSELLATED_ITEM(#900004) "
                 "REPRESENTATION_ITEM('diameter dimension') TESSELLATED_GEOMETRIC_SET(" +
                     curves + " )");
    text = Replaced(text, "ENDSEC;\nEND-ISO",
                    "#900001 = CARTESIAN_POINT('',(0.,0.,1000.));\n"
                    "#900002 = DIRECTION('',(0.,0.,1.));\n"
                    "#900003 = DIRECTION('',(1.,0.,0.));\n"
                    "#900004 = AXIS2_PLACEMENT_3D('',#900001,#900002,#900003);\n"
                    "ENDSEC;\nEND-ISO");

    const Model model = ReadText(text);

    const ModelNode& size = *Find(model, NodeKind::PmiSet)->children.at(0)->children.at(0);
    EXPECT_EQ(size.name, L"Diameter.1 (diameter dimension)");
    EXPECT_EQ(size.text, L"\u2300 12 +0.1/-0.05");
    ASSERT_TRUE(size.shape);
    EXPECT_NEAR(size.shape->BoundingBox().Lo()[2], 1010.0, 0.01);
}

TEST_F(AnnotatedFile, LooksFromTheEyeOfASavedViewThroughItsWindow)
{
    const Model model = ReadTestModel("views.step");

    const ModelNode* views = Find(model, NodeKind::Views);
    ASSERT_TRUE(views);
    ASSERT_EQ(views->children.size(), 2u);
    EXPECT_EQ(views->children[0]->name, L"Iso view");
    const OrvikModel::SavedCamera& camera = *views->children[0]->camera;
    const double eye[3] = {165.470, -85.470, 120.470};
    const double target[3] = {50.0, 30.0, 5.0}; // The middle of the plate.
    const double up[3] = {-0.408, 0.408, 0.816};
    for (int axis = 0; axis < 3; ++axis) {
        EXPECT_NEAR(camera.eye[axis], eye[axis], 0.001) << axis;
        EXPECT_NEAR(camera.target[axis], target[axis], 0.001) << axis;
        EXPECT_NEAR(camera.up[axis], up[axis], 0.001) << axis;
    }
    EXPECT_EQ(camera.width, 200.0);
    EXPECT_EQ(camera.height, 120.0);
    EXPECT_TRUE(camera.orthographic);
}

TEST_F(AnnotatedFile, ShowsInACaptureWhatTheFileLists)
{
    const Model model = ReadTestModel("views.step");

    const ModelNode* captures = Find(model, NodeKind::Captures);
    ASSERT_TRUE(captures);
    ASSERT_EQ(captures->children.size(), 1u);
    std::vector<std::wstring> names;
    for (const std::uint64_t number : captures->children[0]->visible)
        names.push_back(model.FindNode(number)->name);
    EXPECT_THAT(names, ElementsAre(L"annotated plate", L"Diameter.1"));
}

TEST_F(AnnotatedFile, IsSilentWhereItsClaimsHold)
{
    ReadTestModel("validation_right.step");

    EXPECT_THAT(warnings, IsEmpty());
}

TEST_F(AnnotatedFile, IsWarnedOfWhereItsClaimsDoNotHold)
{
    ReadTestModel("validation_wrong.step");

    EXPECT_THAT(warnings, ElementsAre(HasSubstr(L"\"checked block\": the file says its volume is "
                                                L"60000, its shape has 6000"),
                                      HasSubstr(L"its centroid is (10 10 15), its shape has (5 10 "
                                                L"15)")));
}

} // namespace
} // namespace OrvikCad
