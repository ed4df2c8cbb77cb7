#include "RecordingServices.h"
#include "TestSupport.h"

#include <TambCommandsInfra/CallGate.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

using TambCommandsInfra::CallGate;
using TambCommandsInfra::Color24;
using TambCommandsInfra::Int8;
using testing::ElementsAre;

namespace {

/// Gives the place of a virtual operation in the table of its class: the common C++ ABI stores
/// one more than its offset in bytes in the first word of a member pointer.
template <typename Member> std::size_t SlotOf(Member member)
{
    std::size_t word = 0;
    static_assert(sizeof member >= sizeof word);
    std::memcpy(&word, &member, sizeof word);
    return (word - 1) / sizeof(void*);
}

/// Two slots of the destructor come first.
std::vector<std::size_t> slotsFromTwo(std::size_t count)
{
    std::vector<std::size_t> slots(count);
    std::iota(slots.begin(), slots.end(), std::size_t{2});
    return slots;
}

/// The three recording sets and what they were asked for.
class Services : public testing::Test
{
protected:
    /// Calls on a worker, drains what was posted, and checks that everything ran on this thread.
    template <typename Body> std::vector<std::string> linesOf(Body body)
    {
        CallGate gate;
        RunOnWorker(body);
        gate.Drain();
        const auto isMain = [](std::thread::id id) { return id == std::this_thread::get_id(); };
        EXPECT_TRUE(std::all_of(m_record.threads.begin(), m_record.threads.end(), isMain));
        return m_record.lines;
    }

    ServiceRecord m_record;
    RecordingCoreServices m_core{m_record};
    RecordingDocumentServices m_document{m_record};
    RecordingViewServices m_view{m_record};
};

} // namespace

TEST_F(Services, CoreSlotsAreInTheirFixedOrder)
{
    const std::vector<std::size_t> slots{
        SlotOf(&RecordingCoreServices::PrintMessageImpl),
        SlotOf(&RecordingCoreServices::PrintWarningMessageImpl),
        SlotOf(&RecordingCoreServices::PrintErrorMessageImpl),
        SlotOf(&RecordingCoreServices::SetTooltipImpl),
        SlotOf(&RecordingCoreServices::AddExtensionInfoImpl),
        SlotOf(&RecordingCoreServices::AddObjectInfoImpl),
        SlotOf(&RecordingCoreServices::PauseImpl),
        SlotOf(&RecordingCoreServices::GetDefaultFaceColorImpl),
        SlotOf(&RecordingCoreServices::GetDefaultEdgeColorImpl),
        SlotOf(&RecordingCoreServices::GetDefaultVertexColorImpl),
        SlotOf(&RecordingCoreServices::GetDefaultTessEdgeColorImpl),
        SlotOf(&RecordingCoreServices::SetDefaultFaceColorImpl),
        SlotOf(&RecordingCoreServices::SetDefaultEdgeColorImpl),
        SlotOf(&RecordingCoreServices::SetDefaultVertexColorImpl),
        SlotOf(&RecordingCoreServices::SetDefaultTessEdgeColorImpl),
        SlotOf(&RecordingCoreServices::GetDefaultFaceAlphaImpl),
        SlotOf(&RecordingCoreServices::GetDefaultEdgeAlphaImpl),
        SlotOf(&RecordingCoreServices::GetDefaultVertexAlphaImpl),
        SlotOf(&RecordingCoreServices::SetDefaultFaceAlphaImpl),
        SlotOf(&RecordingCoreServices::SetDefaultEdgeAlphaImpl),
        SlotOf(&RecordingCoreServices::SetDefaultVertexAlphaImpl),
        SlotOf(&RecordingCoreServices::GetBackgroundColorImpl),
        SlotOf(&RecordingCoreServices::SetBackgroundColorImpl),
        SlotOf(&RecordingCoreServices::GetDefaultInputDirectoryImpl),
        SlotOf(&RecordingCoreServices::GetDefaultOutputDirectoryImpl),
        SlotOf(&RecordingCoreServices::SetDefaultInputDirectoryImpl),
        SlotOf(&RecordingCoreServices::SetDefaultOutputDirectoryImpl)};

    EXPECT_EQ(slots, slotsFromTwo(27));
}

TEST_F(Services, DocumentSlotsAreInTheirFixedOrder)
{
    EXPECT_EQ(SlotOf(&RecordingDocumentServices::GetBoundingBoxImpl), 2u);
}

TEST_F(Services, ViewSlotsAreInTheirFixedOrder)
{
    const std::vector<std::size_t> slots{
        SlotOf(&RecordingViewServices::ZoomToBoxImpl),
        SlotOf(&RecordingViewServices::UpdateDisplayImpl),
        SlotOf(&RecordingViewServices::RerenderImpl),
        SlotOf(&RecordingViewServices::IsoImpl),
        SlotOf(&RecordingViewServices::FrontImpl),
        SlotOf(&RecordingViewServices::BackImpl),
        SlotOf(&RecordingViewServices::TopImpl),
        SlotOf(&RecordingViewServices::BottomImpl),
        SlotOf(&RecordingViewServices::RightImpl),
        SlotOf(&RecordingViewServices::LeftImpl),
        SlotOf(&RecordingViewServices::DisplayFacesImpl),
        SlotOf(&RecordingViewServices::DisplayEdgesImpl),
        SlotOf(&RecordingViewServices::DisplayVerticesImpl),
        SlotOf(&RecordingViewServices::DisplayTessellationImpl),
        SlotOf(&RecordingViewServices::DisplayCloudsImpl),
        SlotOf(&RecordingViewServices::DisplayPMIImpl),
        SlotOf(&RecordingViewServices::DisplayAxesImpl),
        SlotOf(&RecordingViewServices::GetCameraImpl),
        SlotOf(&RecordingViewServices::SetCameraImpl),
        SlotOf(&RecordingViewServices::SetTessellationParametersImpl),
        SlotOf(&RecordingViewServices::GetTessellationParametersImpl),
        SlotOf(&RecordingViewServices::SetUseIncrementalRenderingImpl),
        SlotOf(&RecordingViewServices::GetUseIncrementalRenderingImpl),
        SlotOf(&RecordingViewServices::DrawArrowImpl),
        SlotOf(&RecordingViewServices::DrawTessellationDataImpl),
        SlotOf(&RecordingViewServices::ClearDrawingObjectsImpl)};

    EXPECT_EQ(slots, slotsFromTwo(26));
}

TEST_F(Services, KindsAreFixedByTheInterfaces)
{
    EXPECT_EQ(m_core.GetServiceKind(), TambServiceKind::ApplicationCore);
    EXPECT_EQ(m_document.GetServiceKind(), TambServiceKind::Document);
    EXPECT_EQ(m_view.GetServiceKind(), TambServiceKind::View);
}

TEST_F(Services, PrintsAndToolTipsReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    m_core.PrintMessage(L"a");
                    m_core.PrintWarningMessage(L"b");
                    m_core.PrintErrorMessage(L"c");
                    m_core.SetTooltip(L"d");
                }),
                ElementsAre("PrintMessage(a)", "PrintWarningMessage(b)", "PrintErrorMessage(c)",
                            "SetTooltip(d)"));
}

TEST_F(Services, PrintsDoNotWaitForTheMainThread)
{
    CallGate gate;
    RunOnThread([&] { m_core.PrintMessage(L"a"); });
    EXPECT_TRUE(m_record.lines.empty());

    gate.Drain();

    EXPECT_THAT(m_record.lines, ElementsAre("PrintMessage(a)"));
}

TEST_F(Services, PrintsStayInOrderWithOtherCalls)
{
    EXPECT_THAT(linesOf([&] {
                    m_core.PrintMessage(L"before");
                    m_view.Iso();
                    m_core.PrintMessage(L"after");
                    m_core.Pause(true);
                }),
                ElementsAre("PrintMessage(before)", "Iso()", "PrintMessage(after)", "Pause(true)"));
}

TEST_F(Services, CompletionTextsReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    m_core.AddExtensionInfo({L"a", L"b"}, {L"x"}, L"help");
                    m_core.AddObjectInfo({L"o"}, L"help");
                }),
                ElementsAre("AddExtensionInfo([a,b],[x],help)", "AddObjectInfo([o],help)"));
}

TEST_F(Services, ColourGettersGiveTheResultBack)
{
    EXPECT_THAT(linesOf([&] {
                    EXPECT_EQ(m_core.GetDefaultFaceColor().Value(), (Color24{1, 2, 3}));
                    EXPECT_EQ(m_core.GetDefaultEdgeColor().Value(), (Color24{1, 2, 3}));
                    EXPECT_EQ(m_core.GetDefaultVertexColor().Value(), (Color24{1, 2, 3}));
                    EXPECT_EQ(m_core.GetDefaultTessEdgeColor().Value(), (Color24{1, 2, 3}));
                    EXPECT_EQ(m_core.GetBackgroundColor(2).Value(), (Color24{1, 2, 3}));
                }),
                ElementsAre("GetDefaultFaceColor()", "GetDefaultEdgeColor()",
                            "GetDefaultVertexColor()", "GetDefaultTessEdgeColor()",
                            "GetBackgroundColor(2)"));
}

TEST_F(Services, ColourSettersHandTheValueOrNothingOn)
{
    EXPECT_THAT(linesOf([&] {
                    m_core.SetDefaultFaceColor(Color24{4, 5, 6});
                    m_core.SetDefaultEdgeColor({});
                    m_core.SetDefaultVertexColor(Color24{7, 8, 9});
                    m_core.SetDefaultTessEdgeColor({});
                    m_core.SetBackgroundColor(Color24{1, 1, 1}, 1);
                }),
                ElementsAre("SetDefaultFaceColor(4/5/6)", "SetDefaultEdgeColor(none)",
                            "SetDefaultVertexColor(7/8/9)", "SetDefaultTessEdgeColor(none)",
                            "SetBackgroundColor(1/1/1,1)"));
}

TEST_F(Services, AlphasReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    EXPECT_EQ(m_core.GetDefaultFaceAlpha().Value(), Int8(9));
                    EXPECT_EQ(m_core.GetDefaultEdgeAlpha().Value(), Int8(9));
                    EXPECT_EQ(m_core.GetDefaultVertexAlpha().Value(), Int8(9));
                    m_core.SetDefaultFaceAlpha(Int8(1));
                    m_core.SetDefaultEdgeAlpha({});
                    m_core.SetDefaultVertexAlpha(Int8(255));
                }),
                ElementsAre("GetDefaultFaceAlpha()", "GetDefaultEdgeAlpha()",
                            "GetDefaultVertexAlpha()", "SetDefaultFaceAlpha(1)",
                            "SetDefaultEdgeAlpha(none)", "SetDefaultVertexAlpha(255)"));
}

TEST_F(Services, FoldersReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    EXPECT_EQ(m_core.GetDefaultInputDirectory().Value(), L"folder");
                    EXPECT_EQ(m_core.GetDefaultOutputDirectory().Value(), L"folder");
                    m_core.SetDefaultInputDirectory(std::wstring(L"in"));
                    m_core.SetDefaultOutputDirectory({});
                }),
                ElementsAre("GetDefaultInputDirectory()", "GetDefaultOutputDirectory()",
                            "SetDefaultInputDirectory(in)", "SetDefaultOutputDirectory(none)"));
}

TEST_F(Services, BoundingBoxComesBackInSixNumbers)
{
    std::vector<double> box(6);

    EXPECT_THAT(linesOf([&] {
                    EXPECT_TRUE(
                        m_document.GetBoundingBox(box[0], box[1], box[2], box[3], box[4], box[5]));
                }),
                ElementsAre("GetBoundingBox()"));

    EXPECT_THAT(box, ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST_F(Services, StandardDirectionsReachTheirOperation)
{
    EXPECT_THAT(
        linesOf([&] {
            m_view.Iso();
            m_view.Front();
            m_view.Back();
            m_view.Top();
            m_view.Bottom();
            m_view.Right();
            m_view.Left();
        }),
        ElementsAre("Iso()", "Front()", "Back()", "Top()", "Bottom()", "Right()", "Left()"));
}

TEST_F(Services, DisplaySwitchesReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    m_view.DisplayFaces(true);
                    m_view.DisplayEdges(false);
                    m_view.DisplayVertices(true);
                    m_view.DisplayTessellation(false);
                    m_view.DisplayClouds(true);
                    m_view.DisplayPMI(false);
                    m_view.DisplayAxes(true);
                }),
                ElementsAre("DisplayFaces(true)", "DisplayEdges(false)", "DisplayVertices(true)",
                            "DisplayTessellation(false)", "DisplayClouds(true)",
                            "DisplayPMI(false)", "DisplayAxes(true)"));
}

TEST_F(Services, CameraGoesInAndOutInNineNumbers)
{
    std::vector<double> camera(9);

    EXPECT_THAT(linesOf([&] {
                    m_view.GetCamera(camera[0], camera[1], camera[2], camera[3], camera[4],
                                     camera[5], camera[6], camera[7], camera[8]);
                    m_view.SetCamera(1, 2, 3, 4, 5, 6, 7, 8, 9);
                }),
                ElementsAre("GetCamera()", "SetCamera(1,2,3,4,5,6,7,8,9)"));

    EXPECT_THAT(camera, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9));
}

TEST_F(Services, ZoomAndRedrawReachTheirOperation)
{
    EXPECT_THAT(linesOf([&] {
                    m_view.ZoomToBox(1, 2, 3, 4, 5, 6);
                    m_view.UpdateDisplay();
                    m_view.Rerender();
                }),
                ElementsAre("ZoomToBox(1,2,3,4,5,6)", "UpdateDisplay()", "Rerender()"));
}

TEST_F(Services, TessellationAndSlicesReachTheirOperation)
{
    std::vector<double> parameters(3);

    EXPECT_THAT(linesOf([&] {
                    EXPECT_TRUE(m_view.SetTessellationParameters(0.5, 2, 15));
                    EXPECT_TRUE(m_view.GetTessellationParameters(parameters[0], parameters[1],
                                                                 parameters[2]));
                    m_view.SetUseIncrementalRendering(false);
                    EXPECT_TRUE(m_view.GetUseIncrementalRendering());
                }),
                ElementsAre("SetTessellationParameters(0.5,2,15)", "GetTessellationParameters()",
                            "SetUseIncrementalRendering(false)", "GetUseIncrementalRendering()"));

    EXPECT_THAT(parameters, ElementsAre(1, 2, 3));
}

TEST_F(Services, DrawingsReachTheirOperation)
{
    std::vector<float> vertices{1.5f};
    std::vector<float> normals{2.0f};
    std::vector<float> colors;
    std::vector<int> indices{3, 4};

    EXPECT_THAT(linesOf([&] {
                    m_view.DrawArrow(1, 2, 3, 4, 5, 6);
                    m_view.DrawTessellationData(vertices, normals, colors, indices);
                    m_view.ClearDrawingObjects();
                }),
                ElementsAre("DrawArrow(1,2,3,4,5,6)", "DrawTessellationData([1.5],[2],[],[3,4])",
                            "ClearDrawingObjects()"));
}

TEST_F(Services, EveryOperationFailsOnceTheGateIsClosed)
{
    CallGate gate;
    gate.Close();
    std::vector<std::string> errors;

    RunOnThread([&] {
        errors.push_back(ErrorOf([&] { m_core.PrintMessage(L"a"); }));
        errors.push_back(ErrorOf([&] { m_core.GetDefaultFaceColor(); }));
        errors.push_back(ErrorOf([&] { m_view.Iso(); }));
    });

    EXPECT_THAT(errors, testing::Each(std::string("The application is closing.")));
    EXPECT_EQ(errors.size(), 3u);
}

TEST_F(Services, CollectionKeepsTheOrderOfRegistration)
{
    const FakeServiceSetCollection collection({&m_core, &m_view, &m_document});

    EXPECT_THAT(collection.GetServiceSets(), ElementsAre(&m_core, &m_view, &m_document));
}

TEST_F(Services, CollectionFindsSetsByKind)
{
    const FakeServiceSetCollection collection({&m_core, &m_view, &m_document});

    EXPECT_EQ(collection.GetApplicationCoreServices(), &m_core);
    EXPECT_EQ(collection.GetDocumentServices(), &m_document);
    EXPECT_EQ(collection.GetViewServices(), &m_view);
    EXPECT_EQ(collection.GetServiceSet(TambServiceKind::View), &m_view);
}

TEST_F(Services, CollectionGivesNullForAKindItDoesNotHave)
{
    const FakeServiceSetCollection collection({&m_core});

    EXPECT_EQ(collection.GetViewServices(), nullptr);
    EXPECT_EQ(collection.GetDocumentServices(), nullptr);
}

TEST_F(Services, SecondSetOfAKindIsRefused)
{
    RecordingViewServices second(m_record);

    EXPECT_EQ(ErrorOf([&] {
                  FakeServiceSetCollection collection({&m_view, &second});
              }),
              "A service set of this kind is registered already.");
}

TEST_F(Services, NullSetIsRefused)
{
    EXPECT_EQ(ErrorOf([] { FakeServiceSetCollection collection({nullptr}); }), "null service set!");
}
