#ifndef PLUGINCOMMANDS_TESTS_MODELFIXTURE_H
#define PLUGINCOMMANDS_TESTS_MODELFIXTURE_H

#include "../EntityObject.h"
#include "CommandFixture.h"
#include "FakeModel.h"

#include <OrvikCore/Document.h>

#include <memory>
#include <string>
#include <vector>

/// Two loaded files: an assembly of two bolts, each a reference and a body with two faces, an edge
/// and a vertex; and a plate, a mesh.
class ModelFixture : public CommandFixture
{
protected:
    using EntityId = TambVizCore::EntityId;
    using EntityType = TambVizCore::EntityType;
    using PartKind = TambVizCore::PartKind;

    static EntityId node(std::uint64_t value, EntityType type, std::uint64_t owner = 1)
    {
        return EntityId(value, owner, type);
    }
    static EntityId part(EntityId body, PartKind kind, std::int32_t index)
    {
        body.SetSubEntity(kind, index);
        return body;
    }

    ModelFixture()
    {
        m_bolts.m_shortId = L"bolts.step";
        m_bolts.Add(EntityId(), m_assembly, L"pair").parent = m_file;
        m_bolts.m_entities[m_file].name = L"bolts.step";
        addBolt(m_firstReference, m_firstBody, L"bolt 1", 0.0);
        addBolt(m_secondReference, m_secondBody, L"bolt 2", 100.0);
        m_plates.m_shortId = L"plate.stl";
        m_plates.Add(EntityId(), m_plate, L"plate").box = TambVizCore::VizBox(0, 0, 0, 50, 50, 5);
    }

    /// The contents write to the log, which goes with the test.
    ~ModelFixture() override { m_session.Document().ClearContents(); }

    void addBolt(const EntityId& reference, const EntityId& body, const std::wstring& name,
                 double x)
    {
        m_bolts.Add(m_assembly, reference, name);
        m_bolts.Add(reference, body, L"bolt").box = TambVizCore::VizBox(x, 0, 0, x + 10, 10, 40);
        for (const std::int32_t face : {0, 1})
            m_bolts.Add(body, part(body, PartKind::Face, face), L"").box =
                TambVizCore::VizBox(x, 0, 40.0 * face, x + 10, 10, 40.0 * face);
        m_bolts.Add(body, part(body, PartKind::Edge, 0), L"");
        m_bolts.Add(body, part(body, PartKind::Vertex, 0), L"");
    }

    /// A content that the document owns.
    FakeModel& addModel(std::uint64_t number)
    {
        auto model = std::make_unique<FakeModel>(m_session.Document(), number, m_log);
        FakeModel& added = *model;
        m_session.Document().AddContent(*model.release());
        return added;
    }

    static OrvikCore::MeasureResult number(double value, bool isExact)
    {
        OrvikCore::MeasureResult result;
        result.value = value;
        result.exact = isExact;
        return result;
    }
    static OrvikCore::MeasureResult vector(double x, double y, double z, bool isExact)
    {
        OrvikCore::MeasureResult result;
        result.vector[0] = x;
        result.vector[1] = y;
        result.vector[2] = z;
        result.exact = isExact;
        return result;
    }

    static Value entity(const EntityId& id) { return OrvikCommands::ToValue(id); }

    /// The ids in a list of entities.
    static std::vector<EntityId> idsIn(const Value& list)
    {
        std::vector<EntityId> ids;
        for (const Value& value : list.AsList())
            ids.push_back(OrvikCommands::ToEntityId(value));
        return ids;
    }

    const EntityId m_file = EntityId(1, 40000, EntityType::Container);
    const EntityId m_assembly = node(1, EntityType::Assembly);
    const EntityId m_firstReference = node(2, EntityType::AssemblyReference);
    const EntityId m_firstBody = node(3, EntityType::Body);
    const EntityId m_secondReference = node(4, EntityType::AssemblyReference);
    const EntityId m_secondBody = node(5, EntityType::Body);
    const EntityId m_plate = node(1, EntityType::Mesh, 2);
    const EntityId m_face = part(m_firstBody, PartKind::Face, 0);
    const EntityId m_edge = part(m_firstBody, PartKind::Edge, 0);

    CallLog m_log;
    FakeModel& m_bolts = addModel(1);
    FakeModel& m_plates = addModel(2);
};

#endif
