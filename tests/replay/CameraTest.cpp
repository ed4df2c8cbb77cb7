#include "BatchProcess.h"
#include "Pictures.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// A box of 100 x 80 x 50 with a corner in the origin, in a view of 400 x 300 pixels.
class CameraCommands : public testing::Test
{
protected:
    CameraCommands() { m_process.Write("part.stl", BoxStl(100, 80, 50)); }

    /// Runs forms; those that begin with "? " are claims, which hold where they give #t.
    void expectTrue(const std::vector<std::string>& forms) const
    {
        std::string script = "(view:animate #f)\n"
                             "(define (eye) (car (view:camera)))\n"
                             "(define (target) (cadr (view:camera)))\n"
                             "(define (toward) (map - (eye) (target)))\n"
                             "(define (near? a b) (< (apply max (map abs (map - a b))) 0.01))\n"
                             "(define (along? v axis)\n"
                             "  (let ((l (sqrt (apply + (map * v v)))))\n"
                             "    (near? (map (lambda (c) (/ c l)) v) axis)))\n";
        for (const std::string& form : forms)
            script += form.starts_with("? ")
                          ? "(if (not (eq? #t " + form.substr(2) + ")) (app:print \"not so: \" '" +
                                form.substr(2) + "))\n"
                          : form + "\n";
        m_process.Write("camera.scm", script);
        const Outcome outcome =
            m_process.Run({"part.stl", "--size", "400x300", "--script", "camera.scm"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        EXPECT_EQ(outcome.output.find("\nnot so: "), std::string::npos) << outcome.output;
    }

    BatchProcess m_process;
};

TEST_F(CameraCommands, StandardViewsFollowTheUpAxisThatHolds)
{
    expectTrue({"? (equal? (view:up-axis) \"y\")", "(view:front)", "? (along? (toward) '(0 0 1))",
                "(view:top)", "? (along? (toward) '(0 1 0))",
                "? (equal? (view:up-axis \"z\") \"z\")", "(view:front)",
                "? (along? (toward) '(1 0 0))", "? (along? (caddr (view:camera)) '(0 0 1))",
                "(view:top)", "? (along? (toward) '(0 0 1))", "(view:up-axis \"y\")",
                "(view:front)", "? (along? (toward) '(0 0 1))"});
}

TEST_F(CameraCommands, AnotherUpAxisLeavesTheCameraWhereItIs)
{
    expectTrue({"(view:iso)", "(view:projection \"perspective\")", "(define before (view:camera))",
                "(view:up-axis \"z\")", "? (equal? before (view:camera))",
                "? (equal? (view:projection) \"perspective\")"});
}

TEST_F(CameraCommands, ProjectionChangesAndTheCameraStays)
{
    expectTrue({"(view:iso)", "(view:zoom-all)", "? (equal? (view:projection) \"parallel\")",
                "(define before (view:camera))", "(define hit (view:pick 200 150))",
                "(view:save-image \"parallel.png\")", "(view:projection \"perspective\")",
                "(view:save-image \"perspective.png\")", "? (equal? before (view:camera))",
                "? (equal? hit (view:pick 200 150))", "(view:projection \"parallel\")",
                "(view:save-image \"again.png\")"});
    const auto folder = m_process.Folder();
    EXPECT_GT(ComparePictures(folder / "parallel.png", folder / "perspective.png").off, 1000);
    EXPECT_EQ(ComparePictures(folder / "parallel.png", folder / "again.png").off, 0);
}

TEST_F(CameraCommands, NamedCamerasComeBackWithTheirProjection)
{
    expectTrue({"(view:iso)",
                "? (null? (view:cameras))",
                "(view:projection \"perspective\")",
                "(view:save-camera \"mine\")",
                "(define mine (view:camera))",
                "(view:top)",
                "(view:projection \"parallel\")",
                "(view:save-camera \"other\")",
                "(view:left)",
                "? (view:restore-camera \"mine\")",
                "? (equal? mine (view:camera))",
                "? (equal? (view:projection) \"perspective\")",
                "? (not (view:restore-camera \"nobody's\"))",
                "? (equal? mine (view:camera))",
                "? (view:restore-camera \"other\")",
                "? (equal? (view:projection) \"parallel\")",
                "(view:left)",
                "(define left (view:camera))",
                "(view:save-camera \"mine\")",
                "(view:iso)",
                "(view:restore-camera \"mine\")",
                "? (equal? left (view:camera))",
                "? (equal? (view:cameras) '(\"mine\" \"other\"))"});
}

TEST_F(CameraCommands, ZoomToBringsEntitiesIntoTheMiddle)
{
    expectTrue({"(view:front)", "(define top (app:pick-face 50 100 25 0 -1 0 0))",
                "? (view:zoom-to top)", "? (near? (target) '(50 80 25))", "(view:up-axis \"y\")",
                "(view:top)", "(view:zoom-to top)", "? (equal? top (view:pick 200 150))",
                "? (not (view:zoom-to #f))"});
}

TEST_F(CameraCommands, AnimatedMovesEndWhereOthersDo)
{
    expectTrue({"(view:front)", "(view:iso)", "(define plain (view:camera))", "(view:front)",
                "(view:animate #t)", "(view:iso)", "? (near? (eye) (car plain))",
                "? (near? (target) (cadr plain))",
                "? (near? (caddr (view:camera)) (caddr plain))"});
}

} // namespace
