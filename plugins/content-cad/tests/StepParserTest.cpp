#include "kernel/StepParser.h"

#include "CadTest.h"

#include <Interface_FileParameter.hxx>
#include <gtest/gtest.h>

#include <algorithm>

namespace OrvikCad {
namespace {

using OrvikModel::ModelNode;

constexpr char kHead[] =
    "ISO-10303-21;\nHEADER;\nFILE_NAME('a','b',(''),(''),'','','');\nENDSEC;\nDATA;\n";
constexpr char kTail[] = "ENDSEC;\nEND-ISO-10303-21;\n";

bool parses(const std::string& data)
{
    return StepParser(kHead + data + kTail).Parse();
}

void expectSame(const ModelNode& a, const ModelNode& b)
{
    EXPECT_EQ(a.kind, b.kind);
    EXPECT_EQ(a.name, b.name);
    EXPECT_EQ(a.text, b.text);
    EXPECT_EQ(a.color, b.color);
    EXPECT_EQ(a.layers, b.layers);
    EXPECT_EQ(a.transform, b.transform);
    EXPECT_EQ(a.partColors, b.partColors);
    ASSERT_EQ(a.shape == nullptr, b.shape == nullptr);
    if (a.shape) {
        EXPECT_EQ(a.shape->Present()->Parts(), b.shape->Present()->Parts());
        EXPECT_TRUE(std::ranges::equal(a.shape->Present()->Positions().Span(),
                                       b.shape->Present()->Positions().Span()));
    }
    ASSERT_EQ(a.children.size(), b.children.size());
    for (std::size_t i = 0; i < a.children.size(); ++i)
        expectSame(*a.children[i], *b.children[i]);
}

class StepFiles : public testing::TestWithParam<const char*>
{
};

TEST_P(StepFiles, ReadAsByTheKernelsOwnParser)
{
    const std::string text = TestModelText(GetParam());
    ASSERT_TRUE(StepParser(text).Parse());

    const ReadResult ours = ReadCadText(text, "a.step");
    // Without its end a file is left to the kernel's parser.
    const ReadResult kernels = ReadCadText(text.substr(0, text.rfind("END-ISO")), "a.step");

    ASSERT_TRUE(ours.isRead && kernels.isRead);
    EXPECT_EQ(ours.warnings.size() + 1, kernels.warnings.size());
    ASSERT_EQ(ours.model.nodes.size(), kernels.model.nodes.size());
    for (std::size_t i = 0; i < ours.model.nodes.size(); ++i)
        expectSame(*ours.model.nodes[i], *kernels.model.nodes[i]);
}

INSTANTIATE_TEST_SUITE_P(Models, StepFiles,
                         testing::Values("assembly_ap203.step", "assembly_ap214.step",
                                         "assembly_ap242.step", "instance_color.step",
                                         "hole_plate.step", "free_shapes.step", "pmi.step",
                                         "units_inch.step", "validation_right.step", "views.step"));

TEST(StepParser, MakesARecordOfEachListBeforeTheEntity)
{
    StepParser parser(kHead + std::string("#7=A('it''s',(1.,(2)),L(3.E1),.T.,$,*,#8);\n") + kTail);
    ASSERT_TRUE(parser.Parse());

    const Handle(StepData_StepReaderData) data = parser.Release(Resource_FormatType_UTF8);

    // Three of the header; then "(2)", "(1.,...)", "L(...)" and the entity.
    ASSERT_EQ(data->NbRecords(), 7);
    EXPECT_STREQ(data->CType(6), "L");
    EXPECT_EQ(data->RecordIdent(7), 7);
    EXPECT_EQ(data->NbParams(7), 7);
    EXPECT_STREQ(data->Param(7, 1).CValue(), "'it''s'");
    EXPECT_EQ(data->Param(6, 1).ParamType(), Interface_ParamReal);
    EXPECT_EQ(data->Param(4, 1).ParamType(), Interface_ParamInteger);
    EXPECT_EQ(data->Param(7, 4).ParamType(), Interface_ParamEnum);
    EXPECT_EQ(data->Param(7, 5).ParamType(), Interface_ParamVoid);
    EXPECT_STREQ(data->Param(7, 7).CValue(), "#8");
}

TEST(StepParser, SkipsCommentsAndBlanksAnywhere)
{
    EXPECT_TRUE(parses("/* one */ #1 /**/ = A ( 1 /* two */ , \r\n 'x' ) ;"));
    EXPECT_TRUE(parses("#1=(A()B(#2));"));
}

TEST(StepParser, LeavesWhatIsNotPlainToTheKernel)
{
    for (const char* data :
         {"#1=A(1;", "#1=A(1e5);", "#1=A(1.2.3);", "#1=!A();", "#1=&SCOPE A() ENDSCOPE B();",
          "#1=A('x);", "#1=A(,);", "#=A();", "#1=();", "#1=A(..);", "#1=A(\"0F);", "#1=A(--1);",
          "#1=A() #2=B();", "A();", "#1=A(1.E);"})
        EXPECT_FALSE(parses(data)) << data;
    EXPECT_FALSE(StepParser("").Parse());
    EXPECT_FALSE(StepParser("ISO-10303-21;HEADER;").Parse());
    EXPECT_FALSE(parses("#1=A(" + std::string(200, '(') + std::string(200, ')') + ");"));
}

} // namespace
} // namespace OrvikCad
