#include "CommandFixture.h"

namespace {

class ViewCommands : public CommandFixture
{
};

TEST_F(ViewCommands, ZoomAllAsksTheSession)
{
    run("view:zoom-all");

    EXPECT_EQ(m_session.m_calls, std::vector<std::string>{"ZoomAll"});
}

TEST_F(ViewCommands, AViewWithoutCameraSaysSo)
{
    EXPECT_EQ(errorOf("view:camera"), "Camera is missing");
    EXPECT_EQ(errorOf("view:set-camera!", {List{0, 0, 9}, List{0, 0, 0}, List{0, 1, 0}}),
              "Camera is missing");
}

TEST_F(ViewCommands, StandardViewsTakeNoArguments)
{
    for (const char* word : {"iso", "front", "back", "top", "bottom", "right", "left"})
        EXPECT_EQ(errorOf(std::string("view:") + word, {1}),
                  std::string("view:") + word + ": expected no arguments, got 1.");
}

TEST_F(ViewCommands, APointOfTwoNumbersIsRefused)
{
    EXPECT_EQ(errorOf("view:draw-arrow", {List{1, 2}, List{0, 0, 0}}),
              "view:draw-arrow: parameter \"from\": expected a point (three numbers) in mm, got a "
              "list of 2 elements.");
}

TEST_F(ViewCommands, AMissingArgumentIsNamed)
{
    EXPECT_EQ(errorOf("view:zoom-to-box", {0, 0, 0, 1, 1}),
              "view:zoom-to-box: expected 6 arguments, got 5. Missing: \"z-max\" (number).");
}

TEST_F(ViewCommands, ANumberThatIsNotFiniteIsRefused)
{
    EXPECT_NE(errorOf("view:zoom-to-box", {0, 0, 0, 1, 1, std::numeric_limits<double>::infinity()})
                  .find("view:zoom-to-box: parameter \"z-max\": expected "),
              std::string::npos);
}

TEST_F(ViewCommands, ASwitchTakesOnlyBooleans)
{
    for (const char* word : {"faces", "edges", "vertices", "tessellation", "clouds", "pmi", "axes"})
        EXPECT_EQ(errorOf(std::string("view:display-") + word, {1}),
                  std::string("view:display-") + word +
                      ": parameter \"show\": expected true or false, got the integer 1.");
}

TEST_F(ViewCommands, APictureHasAtLeastOnePixel)
{
    EXPECT_EQ(errorOf("view:save-image", {L"a.png", 0}),
              "view:save-image: parameter \"width\": expected an integer from 1 to 1000000 in "
              "pixels, got the integer 0.");
}

TEST_F(ViewCommands, APictureIsNotNamedAsOneOfAnotherKind)
{
    for (const wchar_t* const name : {L"a.jpg", L"folder.png/a.JPEG", L"a.bmp", L"a.tiff"})
        for (const char* const command : {"view:save-image", "view:id-picture"})
            EXPECT_NE(errorOf(command, {name}).find("expected the name of a PNG file, got"),
                      std::string::npos)
                << command;
    for (const wchar_t* const name : {L"a.png", L"a.PNG", L"a", L"1.2"})
        EXPECT_EQ(errorOf("view:save-image", {name}), "The program makes no pictures.");
}

TEST_F(ViewCommands, WithoutAPictureMakerThereIsNoSize)
{
    EXPECT_EQ(errorOf("view:size"), "The program makes no pictures.");
}

TEST_F(ViewCommands, TrianglesNeedPointsThatAreThere)
{
    const Value points = List{List{0, 0, 0}, List{1, 0, 0}, List{0, 1, 0}};

    EXPECT_EQ(errorOf("view:draw-mesh", {points, List{List{0, 1, 3}}}),
              "view:draw-mesh: parameter \"triangles\": expected numbers of points, counted "
              "from 0, below 3, got the integer 3.");
    EXPECT_EQ(errorOf("view:draw-mesh", {points, List{List{0, 1}}}),
              "view:draw-mesh: parameter \"triangles\": expected a list of lists of three "
              "integers, got a list of 2 elements.");
}

TEST_F(ViewCommands, NormalsBelongToPoints)
{
    const Value points = List{List{0, 0, 0}, List{1, 0, 0}, List{0, 1, 0}};

    EXPECT_EQ(errorOf("view:draw-mesh", {points, List{List{0, 1, 2}}, List{List{0, 0, 1}}}),
              "view:draw-mesh: parameter \"normals\": expected one for each point, or none, "
              "got a list of 1 element.");
}

TEST_F(ViewCommands, TrianglesWithoutNormalsAndColorsAreTaken)
{
    const Value points = List{List{0, 0, 0}, List{1, 0, 0}, List{0, 1, 0}};

    EXPECT_TRUE(run("view:draw-mesh", {points, List{List{0, 1, 2}}}).IsNil());
}

TEST_F(ViewCommands, WithoutContentThereAreNoTessellationParameters)
{
    EXPECT_EQ(run("view:tessellation"), Value(false));
    EXPECT_EQ(run("view:set-tessellation!", {0.1, 0, 15}), Value(false));
}

TEST_F(ViewCommands, IncrementalRenderingIsSetAndRead)
{
    run("view:set-incremental-rendering!", {false});
    EXPECT_EQ(run("view:incremental-rendering?"), Value(false));
    run("view:set-incremental-rendering!");
    EXPECT_EQ(run("view:incremental-rendering?"), Value(true));
}

TEST_F(ViewCommands, UpdateAndRenderAgainAskTheSession)
{
    run("view:update");
    run("view:render-again");

    EXPECT_EQ(m_session.m_calls, (std::vector<std::string>{"UpdateDisplay", "Rerender"}));
}

} // namespace
