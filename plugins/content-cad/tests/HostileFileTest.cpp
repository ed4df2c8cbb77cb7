#include "CadTest.h"
#include "DamagedFile.h"
#include "ScopedTempDir.h"

#include <OrvikOs/Utf8.h>

#include <BRepPrimAPI_MakeBox.hxx>
#include <BinTools.hxx>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <string>

namespace OrvikCad {
namespace {

/// A file of each format, small enough to be read thousands of times.
class HostileFiles : public testing::TestWithParam<const char*>
{
protected:
    static std::string Name() { return GetParam(); }
};

/// What is read is whole, what is not has a reason that names the file.
void expectAnswer(const ReadResult& read, const std::string& what)
{
    if (read.isRead)
        EXPECT_FALSE(read.model.nodes.empty()) << what;
    else
        EXPECT_NE(read.error.find(L": "), std::wstring::npos) << what;
    EXPECT_EQ(read.isRead, read.error.empty()) << what;
    for (const std::wstring& warning : read.warnings)
        EXPECT_FALSE(warning.empty()) << what;
}

/// A different number from outside looks further than the everyday run.
std::uint32_t seedCount()
{
    const char* wanted = std::getenv("ORVIK_FUZZ_SEEDS");
    return wanted ? static_cast<std::uint32_t>(std::strtoul(wanted, nullptr, 10)) : 50;
}

TEST_P(HostileFiles, CutOffAnywhereGiveAnAnswer)
{
    const std::string text = TestModelText(Name());

    for (std::size_t tenth = 0; tenth < 10; ++tenth)
        expectAnswer(ReadCadText(text.substr(0, text.size() * tenth / 10), Name(), kHostileLimits),
                     "cut at tenth " + std::to_string(tenth));
}

TEST_P(HostileFiles, WithFlippedBitsGiveAnAnswer)
{
    const std::string text = TestModelText(Name());
    testing::internal::CaptureStdout();

    for (std::uint32_t seed = 0; seed < seedCount(); ++seed)
        expectAnswer(ReadCadText(DamagedFile(text, seed), Name(), kHostileLimits),
                     "seed " + std::to_string(seed));

    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_P(HostileFiles, EmptyOrOfAnotherKindNameTheReason)
{
    const ReadResult empty = ReadCadText("", Name());
    EXPECT_NE(empty.error.find(L": the file is empty"), std::wstring::npos);
    for (const std::string& text :
         {std::string("solid x\nendsolid x\n"), std::string(5000, '\0'), std::string("\x7f"),
          std::string(100000, 'S'), TestModelText("written") + "\xff\xfe"}) {
        const ReadResult other = ReadCadText(text, Name());

        EXPECT_FALSE(other.isRead);
        EXPECT_NE(other.error.find(L": this is no "), std::wstring::npos);
    }
}

TEST_P(HostileFiles, AreFineOnceMoreAfterwards)
{
    const std::string text = TestModelText(Name());
    ReadCadText(DamagedFile(text, 3), Name(), kHostileLimits);

    const ReadResult read = ReadCadText(text, Name());

    EXPECT_TRUE(read.isRead);
    EXPECT_TRUE(read.warnings.empty());
}

INSTANTIATE_TEST_SUITE_P(Formats, HostileFiles,
                         testing::Values("hole_plate.step", "colors.iges", "solids.brep"));

TEST(HostileFile, ThatIsNotThereIsNamed)
{
    const ReadResult read = ReadCad(L"/nowhere/at/all.step");

    EXPECT_EQ(read.error.find(L"/nowhere/at/all.step: the file cannot be opened: "), 0u);
}

TEST(HostileStep, WithDeeplyNestedBracketsNamesTheLine)
{
    const std::string text = "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\n#1=A(" +
                             std::string(200000, '(') + std::string(200000, ')') +
                             ");\nENDSEC;\nEND-ISO-10303-21;\n";

    const ReadResult read = ReadCadText(text, "a.step");

    EXPECT_NE(read.error.find(L": line 5: brackets are nested more than 100 deep"),
              std::wstring::npos);
}

TEST(HostileStep, WithEntitiesThatHoldOthersNamesTheLine)
{
    const std::string head = "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\n/* & */#1=A('&');\n";
    const std::string tail = "ENDSEC;\nEND-ISO-10303-21;\n";

    EXPECT_NE(ReadCadText(head + "#2=&SCOPE\n#3=A();\nENDSCOPE B();\n" + tail, "a.step")
                  .error.find(L": line 6: entities that hold others (\"&SCOPE\") are not read"),
              std::wstring::npos);
    EXPECT_EQ(ReadCadText(head + tail, "a.step").error.find(L"SCOPE"), std::wstring::npos);
}

TEST(HostileStep, WithANumberTwiceOrTooLargeNamesTheLine)
{
    const std::string head = "ISO-10303-21;\nHEADER;\nENDSEC;\nDATA;\n#1=A();\n#3=A(#1);\n";
    const std::string tail = "ENDSEC;\nEND-ISO-10303-21;\n";

    EXPECT_NE(ReadCadText(head + "#2=A();\n#3=B();\n" + tail, "a.step")
                  .error.find(L": line 8: the entity #3 is defined a second time"),
              std::wstring::npos);
    EXPECT_NE(ReadCadText(head + "#2147483648=A();\n" + tail, "a.step")
                  .error.find(L": line 7: an entity has a number beyond 2147483647"),
              std::wstring::npos);
}

TEST(HostileStep, CutOffInTheDataKeepsWhatIsWhole)
{
    std::string text = TestModelText("assembly_ap214.step");
    text.resize(text.size() - 60);

    const ReadResult read = ReadCadText(text, "a.step");

    EXPECT_TRUE(read.isRead);
    EXPECT_TRUE(read.WarnsOf(L"the file ends before \"END-ISO-10303-21;\""));
}

TEST(HostileStep, CountsEntitiesOfUnknownTypes)
{
    std::string text = TestModelText("hole_plate.step");
    const std::size_t data = text.find("DATA;") + 5;
    text.insert(data, "\n#90001=NO_SUCH_THING('',#90002);\n#90002=NO_SUCH_THING('',$);\n");

    const ReadResult read = ReadCadText(text, "a.step");

    EXPECT_TRUE(read.isRead);
    ASSERT_FALSE(read.warnings.empty());
    EXPECT_TRUE(read.WarnsOf(
        L": #90001: entities of types that are not known, left out: 2, the first of type "
        L"NO_SUCH_THING"));
}

TEST(HostileStep, WithBrokenTopologyKeepsTheRest)
{
    std::string text = TestModelText("hole_plate.step");
    const std::size_t edge = text.find("EDGE_LOOP('',(");
    ASSERT_NE(edge, std::string::npos);
    text.replace(edge, 14, "EDGE_LOOP('',(#999999,");

    const ReadResult read = ReadCadText(text, "a.step");

    ASSERT_TRUE(read.isRead);
    EXPECT_FALSE(read.warnings.empty());
    EXPECT_GT(read.model.nodes[0]->shape->Present()->TriangleCount(), 0u);
}

TEST(HostileStep, WithAPlaceBeyondAllNumbersNamesTheBody)
{
    std::string text = TestModelText("hole_plate.step");
    const std::string origin = "CARTESIAN_POINT('',(0.,0.,0.))";
    text.replace(text.find(origin), origin.size(), "CARTESIAN_POINT('',(1.E400,0.,0.))");

    const ReadResult read = ReadCadText(text, "far.step");

    EXPECT_EQ(read.error, L"");
    ASSERT_EQ(read.warnings.size(), 1u);
    EXPECT_NE(read.warnings[0].find(L": the place of \"hole plate\" is not made of numbers that "
                                    L"place anything and was left out"),
              std::wstring::npos)
        << OrvikOs::WideToUtf8(read.warnings[0]);
}

TEST(HostileStep, WithoutANumberWhereOneBelongsNamesTheEntity)
{
    std::string text = TestModelText("hole_plate.step");
    const std::size_t point = text.find("CARTESIAN_POINT('',(") + 20;
    text.replace(point, text.find(')', point) - point, "NaN,1.,1.");

    expectAnswer(ReadCadText(text, "a.step"), "NaN");
}

TEST(HostileBrep, InBinaryFormIsRefusedByName)
{
    const ScopedTempDir folder;
    const std::wstring file = folder.Write("binary.brep", "");
    ASSERT_TRUE(
        BinTools::Write(BRepPrimAPI_MakeBox(1, 2, 3).Solid(), OrvikOs::WideToUtf8(file).c_str()));

    const ReadResult read = ReadCad(file);

    EXPECT_EQ(read.error, file + L": this is a binary BREP file, of which only the text form is "
                                 L"read");
}

TEST(HostileBrep, WithCountsBeyondTheFileIsRefused)
{
    for (const char* count : {"4294967295", "2147483647", "9223372036854775807", "99999999"}) {
        std::string text = TestModelText("solids.brep");
        const std::size_t curves = text.find("Curves ");
        ASSERT_NE(curves, std::string::npos);
        text.replace(curves, text.find('\n', curves) - curves, std::string("Curves ") + count);

        expectAnswer(ReadCadText(text, "a.brep"), count);
    }
}

} // namespace
} // namespace OrvikCad
