#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

/// Each expression as an --eval of its own behind the file.
std::vector<std::string> evals(const std::string& file, const std::vector<std::string>& forms)
{
    std::vector<std::string> arguments = {file};
    for (const std::string& form : forms) {
        arguments.emplace_back("--eval");
        arguments.push_back(form);
    }
    return arguments;
}

/// A box of 10 x 20 x 30 in a file of the test's folder.
class Entities : public testing::Test
{
protected:
    /// The pixels of a picture without its texts; empty for what is no picture.
    std::string pixelsOf(const char* name) const
    {
        png_image reader = {};
        reader.version = PNG_IMAGE_VERSION;
        const std::string file = (m_process.Folder() / name).string();
        if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
            return {};
        reader.format = PNG_FORMAT_RGBA;
        std::string pixels(PNG_IMAGE_SIZE(reader), '\0');
        png_image_finish_read(&reader, nullptr, pixels.data(), 0, nullptr);
        return pixels;
    }

    Entities() { m_process.Write("box.stl", BoxStl(10, 20, 30)); }

    Outcome run(const std::vector<std::string>& forms) const
    {
        return m_process.Run(evals("box.stl", forms));
    }

    /// Gives names to three faces and an edge of the box.
    std::vector<std::string> withNames(std::vector<std::string> forms) const
    {
        std::vector<std::string> all = {"(define top (app:pick-face 5 5 100 0 0 -1 0))",
                                        "(define bottom (app:pick-face 5 5 -100 0 0 1 0))",
                                        "(define side (app:pick-face 100 5 5 -1 0 0 0))",
                                        "(define edge (app:pick-edge 10 5 100 0 0 -1 1))",
                                        "(define box (entity:body top))"};
        all.insert(all.end(), forms.begin(), forms.end());
        return all;
    }

    BatchProcess m_process;
};

TEST_F(Entities, TellTheirStructure)
{
    m_process.ExpectGolden(
        "entity-structure",
        run(withNames({"(entity:type top)", "(entity:name box)", "(entity:name top)",
                       "(entity:color top)", "(entity:layer top)",
                       "(equal? box (entity:parent top))", "(entity:parent box)",
                       "(entity:name (entity:parent box))", "(entity:parent (entity:parent box))",
                       "(entity:box top)", "(entity:box box)", "(length (entity:children box))",
                       "(map entity:type (entity:children box))", "(doc:tree)",
                       "(length (cadddr (car (cadddr (car (doc:tree #t))))))"})));
}

TEST_F(Entities, OfAClosedDocumentAreRefused)
{
    m_process.ExpectGolden("entity-closed",
                           run(withNames({"(doc:load \"box.stl\")", "(entity:name top)"})));
}

TEST_F(Entities, AreSelectedByNameKindAndBox)
{
    m_process.ExpectGolden(
        "entity-selection",
        run({"(sel:get)", "(sel:by-name \"b?x\")", "(sel:get)", "(sel:by-name \"nothing*\")",
             "(sel:get)", "(length (sel:by-kind 'face))", "(length (sel:by-kind 'vertex))",
             "(sel:by-kind 'body)",
             "(map entity:box (sel:by-box '(-1 -1 -1) '(20 30 1) "
             "'enclosed 'face))",
             "(length (sel:by-box '(-1 -1 -1) '(20 30 1) 'touching 'face))",
             "(sel:set (app:pick-face 5 5 100 0 0 -1 0) (app:pick-face 500 0 0 0 0 1 0))",
             "(length (sel:get))", "(sel:add (entity:body (car (sel:get))))", "(length (sel:get))",
             "(sel:clear)", "(sel:get)", "(sel:by-kind \"fase\")"}));
}

TEST_F(Entities, HaveNoMeasureThatDoesNotFit)
{
    m_process.ExpectGolden(
        "entity-no-measure",
        run(withNames({"(entity:radius top)", "(entity:curve top)", "(entity:surface edge)",
                       "(entity:area edge)", "(entity:measure top 'radius)",
                       "(entity:exact? top 'radius)"})));
}

TEST_F(Entities, OfAMeshAreMeasuredByTheirTriangles)
{
    m_process.ExpectGolden(
        "entity-mesh",
        run(withNames({"(entity:measure top 'area)", "(entity:measure box 'area)",
                       "(entity:measure box 'volume)", "(entity:measure box 'center)",
                       "(entity:measure top 'normal)", "(entity:measure top 'surface)",
                       "(entity:measure edge 'length)", "(entity:measure edge 'curve)",
                       "(entity:measure edge 'direction)", "(entity:measure edge 'center)",
                       "(entity:exact? box 'volume)", "(measure:distance top bottom)",
                       "(measure:angle top side)", "(measure:angle top bottom)",
                       "(measure:angle top edge)", "(measure:angle top box)"})));
}

TEST_F(Entities, OfAMeshHaveBoresToo)
{
    const Outcome outcome = m_process.Run(
        {SourceFile("examples/gear.stl"), "--script", SourceFile("examples/hole-diameter.scm")});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find(" of diameter 15.9999999"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find(" mm, triangles\n> (app:print \"bores: \""), std::string::npos)
        << outcome.output;
}

TEST_F(Entities, OfAMeshHaveADiameterOfItsTriangles)
{
    const Outcome outcome = m_process.Run(
        {SourceFile("examples/gear.stl"), "--eval", "(define wall (app:pick-face 0 0 5 1 0 0 0))",
         "--eval", "(app:print (measure:diameter wall))", "--eval",
         "(app:print \"the top: \" (measure:radius (app:pick-face 12 0 50 0 0 -1 0)))"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("(15.9999999"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find(" triangles)\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("the top: #f\n"), std::string::npos) << outcome.output;
}

TEST_F(Entities, ThatAreSelectedLookSo)
{
    run({"(view:iso)", "(view:save-image \"plain.png\" 320 240)", "(sel:by-name \"box\")",
         "(view:save-image \"selected.png\" 320 240)", "(sel:clear)",
         "(view:save-image \"cleared.png\" 320 240)"});

    const std::string plain = pixelsOf("plain.png");
    EXPECT_FALSE(plain.empty());
    EXPECT_TRUE(plain == pixelsOf("cleared.png"));
    EXPECT_FALSE(plain == pixelsOf("selected.png"));
}

TEST_F(Entities, HaveAThicknessBehindAPoint)
{
    m_process.ExpectGolden("thickness", run({"(measure:thickness '(5 5 100) '(0 0 -1))",
                                             "(measure:thickness '(5 5 100) '(0 0 1))",
                                             "(measure:thickness '(105 5 105) '(-1 0 -1) 'normal)",
                                             "(measure:thickness '(5 5 100) '(0 0 0))"}));
}

#ifdef ORVIK_CAD_MODELS

/// A generated model, copied to where its path is the same for everybody.
class EntitiesOfSolids : public testing::Test
{
protected:
    std::string copy(const std::string& model) const
    {
        namespace fs = std::filesystem;
        fs::copy_file(fs::path(ORVIK_CAD_MODELS) / model, m_process.Folder() / model);
        return model;
    }

    BatchProcess m_process;
};

TEST_F(EntitiesOfSolids, AreCountedApartFromSurfacesWiresAndAnnotations)
{
    const Outcome loose = m_process.Run({copy("free_shapes.step"), "--info"});
    const Outcome annotated = m_process.Run({copy("pmi.step"), "--info"});
    const Outcome structure = m_process.Run({"--eval", "(WEND.setForceProductStructureMode #t)",
                                             "--eval", "(doc:load \"pmi.step\")", "--info"});

    EXPECT_NE(loose.output.find("shapes       1 surface, 1 wire, 1 point set\n"),
              std::string::npos);
    EXPECT_NE(annotated.output.find("shapes       1 solid, 7 annotations\n"), std::string::npos);
    EXPECT_NE(structure.output.find("shapes       1 empty body\n"), std::string::npos);
}

TEST_F(EntitiesOfSolids, HaveBoresWithADiameter)
{
    m_process.ExpectGolden("hole-diameter",
                           m_process.Run({copy("assembly_ap242.step"), "--script",
                                          SourceFile("examples/hole-diameter.scm")}));
}

TEST_F(EntitiesOfSolids, AreThoseOfTheExampleToo)
{
    const Outcome outcome = m_process.Run({SourceFile("examples/bored-plate.step"), "--script",
                                           SourceFile("examples/hole-diameter.scm")});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("hole plate: a bore at (50 30 5) of diameter 12 mm, exact\n"),
              std::string::npos)
        << outcome.output;
}

TEST_F(EntitiesOfSolids, ShowRadiusAndDiameter)
{
    m_process.ExpectGolden(
        "entity-round",
        m_process.Run(
            evals(copy("assembly_ap242.step"),
                  {"(define wall (app:pick-face 51 30 20 0.6 0 -1 0))",
                   "(define rim (car (filter (lambda (edge) (equal? (entity:curve edge) "
                   "\"circle\")) (entity:children (entity:body wall)))))",
                   "(measure:diameter wall)", "(measure:radius wall)", "(entity:curve rim)",
                   "(measure:diameter rim)", "(measure:radius (app:pick-face 20 20 50 0 0 -1 0))",
                   "(measure:radius (entity:body wall))", "(measure:radius 5)"})));
}

TEST_F(EntitiesOfSolids, HaveNamesColorsLayersAndExactSizes)
{
    m_process.ExpectGolden(
        "entity-solid",
        m_process.Run(evals(
            copy("assembly_ap242.step"),
            {"(define wall (app:pick-face 51 30 20 0.6 0 -1 0))",
             "(entity:name (entity:parent (entity:body wall)))", "(entity:color wall)",
             "(entity:layer wall)", "(entity:measure wall 'radius)",
             "(entity:measure wall 'origin)", "(entity:exact? wall 'direction)",
             "(measure:distance wall (app:pick-face 20 20 50 0 0 -1 0))",
             "(measure:angle wall (app:pick-face 20 20 50 0 0 -1 0))",
             "(measure:thickness '(20 20 50) '(0 0 -1))", "(length (sel:by-name \"*M6\" 'body))",
             "(view:tessellation 0.01 5)", "(entity:radius wall)"})));
}

#endif

} // namespace
