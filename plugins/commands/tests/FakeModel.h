#ifndef PLUGINCOMMANDS_TESTS_FAKEMODEL_H
#define PLUGINCOMMANDS_TESTS_FAKEMODEL_H

#include "FakeContent.h"

#include <OrvikCore/IEntityProperties.h>
#include <TambVizCore/VizBox.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// What a FakeModel knows of one entity.
struct FakeEntity
{
    std::vector<TambVizCore::EntityId> children;
    TambVizCore::EntityId parent; ///< None while empty.
    std::wstring name;            ///< None while empty.
    std::optional<TambVizCore::RGBAColor> color;
    std::vector<std::wstring> layers;
    TambVizCore::VizBox box; ///< None while empty.
    std::map<OrvikCore::EntityMeasure, OrvikCore::MeasureResult> measures;
};

/// A content that tells of its entities what a test has entered.
class FakeModel : public FakeContent, public OrvikCore::IEntityProperties
{
public:
    FakeModel(OrvikCore::Document& owner, std::uint64_t number, CallLog& log)
        : FakeContent(owner, "model", log), m_number(number)
    {
    }

    /// Enters an entity below another one, or below the content for an empty one.
    FakeEntity& Add(const TambVizCore::EntityId& parent, const TambVizCore::EntityId& entity,
                    const std::wstring& name)
    {
        m_entities[parent].children.push_back(entity);
        FakeEntity& added = m_entities[entity];
        added.parent = parent;
        added.name = name;
        return added;
    }

    std::uint64_t GetContentNumber() const override { return m_number; }
    bool GetChildren(const TambVizCore::EntityId& entity,
                     std::vector<TambVizCore::EntityId>& children) const override
    {
        m_childrenAsked.push_back(entity);
        const FakeEntity* const known = find(entity);
        if (known == nullptr)
            return false;
        children = known->children;
        return true;
    }
    bool GetParent(const TambVizCore::EntityId& entity,
                   TambVizCore::EntityId& parent) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr || known->parent.IsEmpty())
            return false;
        parent = known->parent;
        return true;
    }
    bool GetName(const TambVizCore::EntityId& entity, std::wstring& name) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr || known->name.empty())
            return false;
        name = known->name;
        return true;
    }
    bool GetColor(const TambVizCore::EntityId& entity, TambVizCore::RGBAColor& color) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr || !known->color)
            return false;
        color = *known->color;
        return true;
    }
    bool GetLayers(const TambVizCore::EntityId& entity,
                   std::vector<std::wstring>& layers) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr)
            return false;
        layers = known->layers;
        return true;
    }
    bool GetBox(const TambVizCore::EntityId& entity, TambVizCore::VizBox& box) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr || known->box.IsEmpty())
            return false;
        box = known->box;
        return true;
    }
    bool Measure(const TambVizCore::EntityId& entity, OrvikCore::EntityMeasure what,
                 OrvikCore::MeasureResult& result) const override
    {
        const FakeEntity* const known = find(entity);
        if (known == nullptr || !known->measures.contains(what))
            return false;
        result = known->measures.at(what);
        return true;
    }
    bool MeasureDistance(const TambVizCore::EntityId& from, const TambVizCore::EntityId& to,
                         OrvikCore::DistanceResult& result) const override
    {
        if (find(from) == nullptr || find(to) == nullptr || !m_distance)
            return false;
        result = *m_distance;
        return true;
    }
    bool MeasureDistanceToShapes(const TambVizCore::EntityId&,
                                 const std::vector<OrvikCore::PlacedShape>& to,
                                 OrvikCore::DistanceResult& result) const override
    {
        result = OrvikCore::DistanceResult();
        result.distance = static_cast<double>(to.size());
        return true;
    }
    bool IntersectLine(const double* origin, const double* direction, bool visibleOnly,
                       std::vector<OrvikCore::LineHit>& hits) const override
    {
        if (!m_intersect)
            return false;
        m_askedForVisible = visibleOnly;
        hits = m_intersect(origin, direction);
        return !hits.empty();
    }
    bool GetShapes(const TambVizCore::EntityId& entity,
                   std::vector<OrvikCore::PlacedShape>& shapes) const override
    {
        shapes.assign(2, OrvikCore::PlacedShape());
        return find(entity) != nullptr;
    }

    std::map<TambVizCore::EntityId, FakeEntity> m_entities;
    std::optional<OrvikCore::DistanceResult> m_distance;
    std::function<std::vector<OrvikCore::LineHit>(const double* origin, const double* direction)>
        m_intersect;
    mutable std::vector<TambVizCore::EntityId> m_childrenAsked;
    mutable bool m_askedForVisible = false; ///< By the last line.

private:
    const FakeEntity* find(const TambVizCore::EntityId& entity) const
    {
        const auto found = m_entities.find(entity);
        return found == m_entities.end() ? nullptr : &found->second;
    }

    std::uint64_t m_number;
};

#endif
