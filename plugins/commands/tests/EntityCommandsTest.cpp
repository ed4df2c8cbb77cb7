#include "ModelFixture.h"

namespace {

using OrvikCore::EntityMeasure;

class EntityCommands : public ModelFixture
{
};

TEST_F(EntityCommands, NameIsThatOfTheEntity)
{
    EXPECT_EQ(run("entity:name", {entity(m_firstReference)}), Value(L"bolt 1"));
    EXPECT_EQ(run("entity:name", {entity(m_plate)}), Value(L"plate"));
    EXPECT_EQ(run("entity:name", {entity(m_file)}), Value(L"bolts.step"));
}

TEST_F(EntityCommands, WhatHasNoNameGivesFalse)
{
    EXPECT_EQ(run("entity:name", {entity(m_face)}), Value(false));
}

TEST_F(EntityCommands, WhatNoContentKnowsGivesFalseOrNone)
{
    const Value stranger = entity(node(9, EntityType::Body, 77));

    for (const char* word :
         {"name", "color", "body", "parent", "box", "area", "length", "volume", "center", "normal",
          "direction", "origin", "surface", "curve", "radius"})
        EXPECT_EQ(run(std::string("entity:") + word, {stranger}), Value(false)) << word;
    EXPECT_EQ(run("entity:layer", {stranger}), Value(List{}));
    EXPECT_EQ(run("entity:children", {stranger}), Value(List{}));
    EXPECT_EQ(run("entity:measure", {stranger, L"area"}), Value(false));
    EXPECT_EQ(run("entity:exact?", {stranger, L"area"}), Value(false));
}

TEST_F(EntityCommands, ColorHasFourComponents)
{
    m_bolts.m_entities[m_face].color = TambVizCore::RGBAColor(1, 2, 3, 128);

    EXPECT_EQ(run("entity:color", {entity(m_face)}), Value(List{1, 2, 3, 128}));
    EXPECT_EQ(run("entity:color", {entity(m_edge)}), Value(false));
}

TEST_F(EntityCommands, LayersAreAList)
{
    m_bolts.m_entities[m_firstBody].layers = {L"fasteners", L"visible"};

    EXPECT_EQ(run("entity:layer", {entity(m_firstBody)}), Value(List{L"fasteners", L"visible"}));
    EXPECT_EQ(run("entity:layer", {entity(m_secondBody)}), Value(List{}));
}

TEST_F(EntityCommands, BodyIsWhatAPartBelongsTo)
{
    EXPECT_EQ(run("entity:body", {entity(m_face)}), entity(m_firstBody));
    EXPECT_EQ(run("entity:body", {entity(m_firstBody)}), entity(m_firstBody));
    EXPECT_EQ(run("entity:body", {entity(m_assembly)}), Value(false));
}

TEST_F(EntityCommands, ParentLeadsUpToTheFile)
{
    EXPECT_EQ(run("entity:parent", {entity(m_face)}), entity(m_firstBody));
    EXPECT_EQ(run("entity:parent", {entity(m_firstBody)}), entity(m_firstReference));
    EXPECT_EQ(run("entity:parent", {entity(m_assembly)}), entity(m_file));
    EXPECT_EQ(run("entity:parent", {entity(m_file)}), Value(false));
}

TEST_F(EntityCommands, ChildrenAreDirectlyBelow)
{
    EXPECT_EQ(idsIn(run("entity:children", {entity(m_assembly)})),
              (std::vector<EntityId>{m_firstReference, m_secondReference}));
    EXPECT_EQ(run("entity:children", {entity(m_firstBody)}).AsList().size(), 4u);
}

TEST_F(EntityCommands, BoxHasSixNumbers)
{
    EXPECT_EQ(run("entity:box", {entity(m_secondBody)}),
              Value(List{100.0, 0.0, 0.0, 110.0, 10.0, 40.0}));
    EXPECT_EQ(run("entity:box", {entity(m_edge)}), Value(false));
}

TEST_F(EntityCommands, MeasuresAreNumbersTriplesAndWords)
{
    auto& measures = m_bolts.m_entities[m_face].measures;
    measures[EntityMeasure::Radius] = number(4.0, true);
    measures[EntityMeasure::Center] = vector(1, 2, 3, true);
    measures[EntityMeasure::Surface].word = "cylinder";

    EXPECT_EQ(run("entity:radius", {entity(m_face)}), Value(4.0));
    EXPECT_EQ(run("entity:center", {entity(m_face)}), Value(List{1.0, 2.0, 3.0}));
    EXPECT_EQ(run("entity:surface", {entity(m_face)}), Value(L"cylinder"));
    EXPECT_EQ(run("entity:area", {entity(m_face)}), Value(false));
}

TEST_F(EntityCommands, EachMeasureIsOneOfItsOwn)
{
    auto& measures = m_bolts.m_entities[m_face].measures;
    measures[EntityMeasure::Area] = number(1, false);
    measures[EntityMeasure::Length] = number(2, false);
    measures[EntityMeasure::Volume] = number(3, false);
    measures[EntityMeasure::Radius] = number(4, false);
    measures[EntityMeasure::Normal] = vector(5, 0, 0, false);
    measures[EntityMeasure::Direction] = vector(6, 0, 0, false);
    measures[EntityMeasure::Origin] = vector(7, 0, 0, false);
    measures[EntityMeasure::Curve].word = "circle";

    const Value face = entity(m_face);

    EXPECT_EQ(run("entity:area", {face}), Value(1.0));
    EXPECT_EQ(run("entity:length", {face}), Value(2.0));
    EXPECT_EQ(run("entity:volume", {face}), Value(3.0));
    EXPECT_EQ(run("entity:radius", {face}), Value(4.0));
    EXPECT_EQ(run("entity:normal", {face}), Value(List{5.0, 0.0, 0.0}));
    EXPECT_EQ(run("entity:direction", {face}), Value(List{6.0, 0.0, 0.0}));
    EXPECT_EQ(run("entity:origin", {face}), Value(List{7.0, 0.0, 0.0}));
    EXPECT_EQ(run("entity:curve", {face}), Value(L"circle"));
}

TEST_F(EntityCommands, AMeasureSaysHowItIsKnown)
{
    m_bolts.m_entities[m_face].measures[EntityMeasure::Area] = number(12.5, true);
    m_plates.m_entities[m_plate].measures[EntityMeasure::Area] = number(7.5, false);

    EXPECT_EQ(run("entity:measure", {entity(m_face), L"area"}), Value(List{12.5, L"exact"}));
    EXPECT_EQ(run("entity:measure", {entity(m_plate), L"area"}), Value(List{7.5, L"triangles"}));
    EXPECT_EQ(run("entity:exact?", {entity(m_face), L"area"}), Value(true));
    EXPECT_EQ(run("entity:exact?", {entity(m_plate), L"area"}), Value(false));
}

TEST_F(EntityCommands, WhatCannotBeMeasuredIsRefused)
{
    EXPECT_EQ(errorOf("entity:measure", {entity(m_face), L"weight"}),
              "entity:measure: parameter \"what\": expected one of area, length, volume, center, "
              "normal, direction, origin, radius, surface, curve, got the string \"weight\".");
}

TEST_F(EntityCommands, AnEntityOfAClosedDocumentIsRefused)
{
    const Value face = entity(m_face);

    run("doc:clear");

    for (const char* word : {"type", "name", "color", "layer", "body", "parent", "children", "box",
                             "area", "radius"}) {
        const std::string name = std::string("entity:") + word;
        EXPECT_EQ(errorOf(name, {face}),
                  name + ": parameter \"entity\": expected an entity of what is loaded, got one of "
                         "a document that was closed.");
    }
    EXPECT_EQ(errorOf("sel:set", {face}),
              "sel:set: parameter \"entities\": expected an entity of what is loaded, got one of a "
              "document that was closed.");
    EXPECT_EQ(errorOf("measure:distance", {face, face}),
              "measure:distance: parameter \"from\": expected an entity of what is loaded, got one "
              "of a document that was closed.");
}

TEST_F(EntityCommands, TheSameIdInALaterDocumentIsAnotherEntity)
{
    const Value before = entity(m_face);

    run("doc:clear");

    EXPECT_FALSE(entity(m_face) == before);
    EXPECT_EQ(entity(m_face), entity(m_face));
}

} // namespace
