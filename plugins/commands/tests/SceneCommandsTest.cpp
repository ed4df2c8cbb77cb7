#include "CommandFixture.h"
#include "EntityObject.h"

#include <OrvikCore/IViewObjectProvider.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/ViewDoUndoStrategy.h>

namespace {

using OrvikCommands::ToValue;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::Geometry;
using TambVizCore::GeometryBuilder;
using TambVizCore::GeoNode;
using TambVizCore::MakePartId;
using TambVizCore::Node;
using TambVizCore::PartKind;
using TambVizCore::PartState;
using TambVizCore::SharedArray;

EntityId bodyId(std::uint64_t number)
{
    return EntityId(number, 1, EntityType::Body);
}

EntityId faceId(std::uint64_t number)
{
    EntityId id = bodyId(number);
    id.SetSubEntity(PartKind::Face, 0);
    return id;
}

/// An assembly of two bodies and a third body beside it, each of one face.
class SceneCommands : public CommandFixture
{
protected:
    SceneCommands()
    {
        m_view.m_adapter.m_strategy = &m_strategy;
        m_view.GetSelectionHolder()->SetSceneRoot(&m_view.m_root);
        m_assembly = m_view.m_root.CreateChildNode(1);
        m_assembly->SetEntity(EntityId(1, 1, EntityType::Assembly));
        m_first = addBody(*m_assembly, 2);
        m_second = addBody(*m_assembly, 3);
        m_third = addBody(m_view.m_root, 4);
    }

    GeoNode* addBody(Node& parent, std::uint64_t number)
    {
        std::string error;
        GeometryBuilder builder;
        builder.SetPositions(SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0}))
            .SetTriangles(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}))
            .AddPart({PartKind::Face, 0, 1, MakePartId(PartKind::Face, 0)});
        GeoNode* const node = parent.CreateChildGeoNode(number);
        node->SetGeometry(builder.Build(error));
        node->SetEntity(bodyId(number));
        return node;
    }

    std::string shown() const
    {
        std::string text;
        for (const Node* node :
             {static_cast<const Node*>(m_first), static_cast<const Node*>(m_second),
              static_cast<const Node*>(m_third)})
            text += node->IsVisibleInScene() ? '+' : '-';
        return text;
    }

    TambVizCore::ViewDoUndoStrategy m_strategy{m_view.m_root};
    Node* m_assembly = nullptr;
    GeoNode* m_first = nullptr;
    GeoNode* m_second = nullptr;
    GeoNode* m_third = nullptr;
};

TEST_F(SceneCommands, HidingIsUndoneAndDoneAgain)
{
    EXPECT_EQ(run("view:hide", {ToValue(bodyId(2))}), Value(true));
    EXPECT_EQ(shown(), "-++");
    EXPECT_EQ(run("view:undo"), Value(true));
    EXPECT_EQ(shown(), "+++");
    EXPECT_EQ(run("view:redo"), Value(true));
    EXPECT_EQ(shown(), "-++");
    EXPECT_EQ(run("view:show", {ToValue(bodyId(2))}), Value(true));
    EXPECT_EQ(shown(), "+++");
}

TEST_F(SceneCommands, SeveralAreHiddenInOneStep)
{
    run("view:hide", {List{ToValue(bodyId(2)), ToValue(bodyId(4))}, Value(false)});
    EXPECT_EQ(shown(), "-+-");
    run("view:undo");
    EXPECT_EQ(shown(), "+++");
}

TEST_F(SceneCommands, FaceIsHiddenByItself)
{
    run("view:hide", {ToValue(faceId(2))});
    EXPECT_EQ(shown(), "+++");
    EXPECT_FALSE(m_first->PartStates()[0].Has(PartState::kShown));
}

TEST_F(SceneCommands, WhatIsNotDrawnGivesFalseAndNoStep)
{
    EXPECT_EQ(run("view:hide", {ToValue(bodyId(99))}), Value(false));
    EXPECT_EQ(run("view:isolate", {Value(false)}), Value(false));
    EXPECT_EQ(shown(), "+++");
    EXPECT_EQ(run("view:undo"), Value(false));
    EXPECT_EQ(run("view:redo"), Value(false));
}

TEST_F(SceneCommands, IsolateLeavesWhatIsAboveAndBelow)
{
    run("view:isolate", {ToValue(faceId(3))});
    EXPECT_EQ(shown(), "-+-");
    EXPECT_TRUE(m_assembly->IsVisible());
    run("view:show-all");
    EXPECT_EQ(shown(), "+++");

    run("view:isolate", {ToValue(EntityId(1, 1, EntityType::Assembly))});
    EXPECT_EQ(shown(), "++-");
}

TEST_F(SceneCommands, IsolateShowsWhatWasHidden)
{
    run("view:hide", {ToValue(bodyId(4))});
    run("view:isolate", {ToValue(bodyId(4))});

    EXPECT_EQ(shown(), "--+");
    run("view:undo");
    EXPECT_EQ(shown(), "++-");
    run("view:redo");
    EXPECT_EQ(shown(), "--+");
}

TEST_F(SceneCommands, ShowAllShowsFacesToo)
{
    run("view:hide", {ToValue(faceId(2)), ToValue(bodyId(4))});
    run("view:show-all");

    EXPECT_EQ(shown(), "+++");
    EXPECT_TRUE(m_first->PartStates()[0].Has(PartState::kShown));
}

TEST_F(SceneCommands, TransparencyThinsTheBodyOfAFaceUndoably)
{
    EXPECT_EQ(run("view:transparency", {Value(0.75), ToValue(faceId(2))}), Value(true));
    EXPECT_FLOAT_EQ(m_first->Opacity(), 0.25f);
    run("view:undo");
    EXPECT_FLOAT_EQ(m_first->Opacity(), 1.0f);
    EXPECT_NE(errorOf("view:transparency", {Value(1.5)}).find("share"), std::string::npos);
}

TEST_F(SceneCommands, XRayIsSwitched)
{
    run("view:xray");
    EXPECT_TRUE(m_view.m_adapter.m_options.GetXRay());
    run("view:xray", {Value(false)});
    EXPECT_FALSE(m_view.m_adapter.m_options.GetXRay());
}

TEST_F(SceneCommands, SectionCutsAwayWhatItsNormalPointsTo)
{
    run("view:section", {List{0, 0, 5}, List{0, 0, 2}});
    const auto& planes = m_view.m_adapter.m_options.GetClipPlanes();
    ASSERT_EQ(planes.size(), 1u);
    const float below[3] = {7, 7, 4.9f};
    const float above[3] = {7, 7, 5.1f};
    EXPECT_TRUE(planes[0].Keeps(below));
    EXPECT_FALSE(planes[0].Keeps(above));
    EXPECT_EQ(run("view:sections"), Value(List{List{List{0.0, 0.0, 5.0}, List{0.0, 0.0, 1.0}}}));
}

TEST_F(SceneCommands, SectionsAreNumberedMovedAndTakenAway)
{
    run("view:section", {List{1, 0, 0}, List{1, 0, 0}, Value(1)});
    run("view:section", {List{0, 2, 0}, List{0, 1, 0}, Value(2)});
    run("view:section", {List{0, 0, 3}, List{0, 0, 1}, Value(3)});
    run("view:section", {List{9, 0, 0}, List{1, 0, 0}, Value(1)});
    const auto& planes = m_view.m_adapter.m_options.GetClipPlanes();
    ASSERT_EQ(planes.size(), 3u);
    EXPECT_EQ(planes[0].offset, 9.0f);

    run("view:section-off", {Value(2)});
    ASSERT_EQ(planes.size(), 2u);
    EXPECT_EQ(planes[1].offset, 3.0f);
    run("view:section-off");
    EXPECT_TRUE(planes.empty());
}

TEST_F(SceneCommands, SectionsCapsAndXRayAreUndoneStepByStep)
{
    const auto& options = m_view.m_adapter.m_options;
    run("view:section", {List{1, 0, 0}, List{1, 0, 0}});
    run("view:section", {List{9, 0, 0}, List{1, 0, 0}});
    run("view:xray");
    run("view:section-caps", {Value(false)});
    run("view:section-off");

    run("view:undo");
    ASSERT_EQ(options.GetClipPlanes().size(), 1u);
    EXPECT_EQ(options.GetClipPlanes()[0].offset, 9.0f);
    EXPECT_FALSE(options.GetShowCaps());
    run("view:undo");
    EXPECT_TRUE(options.GetShowCaps());
    run("view:undo");
    EXPECT_FALSE(options.GetXRay());
    run("view:undo");
    EXPECT_EQ(options.GetClipPlanes()[0].offset, 1.0f);
    run("view:undo");
    EXPECT_TRUE(options.GetClipPlanes().empty());
    EXPECT_EQ(run("view:undo"), Value(false));
    run("view:redo");
    EXPECT_EQ(options.GetClipPlanes().size(), 1u);
}

TEST_F(SceneCommands, ASectionThatIsThereAlreadyIsNoStep)
{
    run("view:section", {List{1, 0, 0}, List{1, 0, 0}});
    run("view:section", {List{1, 0, 0}, List{1, 0, 0}});
    run("view:xray", {Value(false)});

    EXPECT_EQ(run("view:undo"), Value(true));
    EXPECT_EQ(run("view:section-off"), Value());
    EXPECT_EQ(run("view:undo"), Value(false));
}

TEST_F(SceneCommands, WrongSectionsAreTold)
{
    EXPECT_EQ(errorOf("view:section", {List{0, 0, 0}, List{0, 0, 0}}),
              "view:section: parameter \"normal\": expected a direction other than (0 0 0), got a "
              "list of 3 elements.");
    EXPECT_EQ(errorOf("view:section", {List{0, 0, 0}, List{0, 0, 1}, Value(2)}),
              "view:section: parameter \"number\": expected at most 1, the next that is free, got "
              "the integer 2.");
    EXPECT_EQ(errorOf("view:section-off", {Value(1)}),
              "view:section-off: parameter \"number\": expected a section that is there, got the "
              "integer 1.");
    EXPECT_NE(errorOf("view:section", {List{0, 0, 0}, List{0, 0, 1}, Value(4)}), "no error");
}

TEST_F(SceneCommands, PlacesBeyondSinglePrecisionAreRefused)
{
    const Value far = List{0, 1e300, 0};
    const std::string got = "expected coordinates of at most 1e+30 in amount, got a list of 3 "
                            "elements.";

    EXPECT_EQ(errorOf("view:section", {far, List{0, 0, 1}}),
              "view:section: parameter \"point\": " + got);
    EXPECT_EQ(errorOf("view:draw-text", {L"a", far}),
              "view:draw-text: parameter \"place\": " + got);
    EXPECT_EQ(errorOf("view:draw-arrow", {List{0, 0, 0}, far}),
              "view:draw-arrow: parameter \"to\": " + got);
    EXPECT_EQ(errorOf("view:draw-polyline", {List{List{0, 0, 0}, far}}),
              "view:draw-polyline: parameter \"points\": " + got);
    EXPECT_EQ(errorOf("view:draw-mesh", {List{far}, List{}}),
              "view:draw-mesh: parameter \"points\": " + got);
    EXPECT_EQ(errorOf("view:draw-mesh",
                      {List{List{0, 0, std::numeric_limits<double>::quiet_NaN()}}, List{}}),
              "view:draw-mesh: parameter \"points\": " + got);
}

TEST_F(SceneCommands, PickGivesWhatIsUnderThePixelOrFalse)
{
    EXPECT_EQ(run("view:pick", {Value(1), Value(1)}), Value(false));
    TambVizCore::RenderId id(1);
    id.AddValue(4);
    id.AddValue(MakePartId(PartKind::Face, 0));
    m_view.m_adapter.m_idAtPixel = id;

    const Value found = run("view:pick", {Value(1), Value(1)});
    ASSERT_EQ(found.GetKind(), Value::Kind::Object);
    EXPECT_EQ(OrvikCommands::ToEntityId(found), faceId(4));
}

TEST_F(SceneCommands, HighlightPicksWithoutSelecting)
{
    run("sel:set", {ToValue(bodyId(4))});
    run("sel:highlight", {List{ToValue(bodyId(2)), false}, ToValue(faceId(3)), ToValue(bodyId(2))});

    EXPECT_TRUE(m_first->IsHighlighted());
    EXPECT_TRUE(m_second->PartStates()[0].Has(PartState::kHighlighted));
    EXPECT_FALSE(m_first->IsSelected());
    EXPECT_EQ(run("sel:get"), Value(List{ToValue(bodyId(2)), ToValue(faceId(3))}));
    run("sel:highlight");
    EXPECT_FALSE(m_first->IsHighlighted());
    EXPECT_FALSE(m_second->PartStates()[0].Has(PartState::kHighlighted));
    EXPECT_EQ(run("sel:get"), Value(List{}));
}

TEST_F(SceneCommands, HoverHighlightsAndPicksNothing)
{
    run("sel:set", {ToValue(bodyId(4))});
    run("sel:hover", {ToValue(bodyId(2))});
    run("sel:hover", {ToValue(bodyId(3))});

    EXPECT_FALSE(m_first->IsHighlighted());
    EXPECT_TRUE(m_second->IsHighlighted());
    EXPECT_EQ(run("sel:get"), Value(List{ToValue(bodyId(4))}));
    run("sel:hover");
    EXPECT_FALSE(m_second->IsHighlighted());
    EXPECT_EQ(run("sel:get"), Value(List{ToValue(bodyId(4))}));
}

TEST_F(SceneCommands, HighlightRefusesWhatIsNoEntity)
{
    EXPECT_EQ(errorOf("sel:highlight", {Value(L"face")}),
              "sel:highlight: parameter \"entities\": expected entities, lists of entities, or "
              "#f, got the string \"face\".");
    m_session.m_fakeView = nullptr;
    EXPECT_EQ(errorOf("sel:hover"), "There is no view.");
}

TEST_F(SceneCommands, ViewWithoutWhatIsNeededIsTold)
{
    m_view.m_adapter.m_strategy = nullptr;
    EXPECT_EQ(errorOf("view:hide", {ToValue(bodyId(2))}), "The view cannot undo.");
    m_view.m_adapter.m_hasOptions = false;
    EXPECT_EQ(errorOf("view:sections"), "The view has no display options.");
    EXPECT_EQ(errorOf("view:projection"), "The view has no camera of its own.");
    EXPECT_EQ(errorOf("view:draw-text", {Value(L"a"), List{0, 0, 0}}),
              "The view cannot draw beside the model.");
    m_session.m_fakeView = nullptr;
    EXPECT_EQ(errorOf("view:sections"), "There is no view.");
}

TEST_F(SceneCommands, WrongLinesTextsAndWordsAreTold)
{
    EXPECT_EQ(errorOf("view:draw-polyline", {List{List{0, 0, 0}}}).substr(0, 61),
              "view:draw-polyline: parameter \"points\": expected at least two");
    EXPECT_NE(errorOf("view:draw-polyline", {List{List{0, 0}, List{0, 0, 0}}}).find("three"),
              std::string::npos);
    EXPECT_NE(errorOf("view:draw-text", {Value(L"a"), List{0, 0, 0}, Value(14.0), List{0, 0, 255}})
                  .find("from 0 to 1"),
              std::string::npos);
    EXPECT_EQ(errorOf("view:projection", {Value(L"sideways")}),
              "view:projection: parameter \"kind\": expected \"parallel\" or \"perspective\", got "
              "the string \"sideways\".");
    EXPECT_EQ(run("view:restore-camera", {Value(L"never saved")}), Value(false));
}

TEST_F(SceneCommands, WhatCouldNotBeSeenOrFoundAgainIsRefused)
{
    EXPECT_EQ(errorOf("view:draw-arrow", {List{1, 2, 3}, List{1, 2, 3}}),
              "view:draw-arrow: parameter \"to\": expected another point than \"from\", got a list "
              "of 3 elements.");
    EXPECT_EQ(errorOf("view:draw-text", {Value(L""), List{0, 0, 0}}),
              "view:draw-text: parameter \"text\": expected a text with something in it, got the "
              "string \"\".");
    EXPECT_EQ(errorOf("view:save-camera", {Value(L"")}),
              "view:save-camera: parameter \"name\": expected a name with something in it, got the "
              "string \"\".");
}

} // namespace
