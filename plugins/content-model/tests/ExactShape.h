#ifndef ORVIKMODEL_TESTS_EXACTSHAPE_H
#define ORVIKMODEL_TESTS_EXACTSHAPE_H

#include "TestModels.h"

/// A box that answers as a kernel would, with numbers that triangles would not give.
class ExactShape : public TestShape
{
public:
    using TestShape::TestShape;

    bool MeasureExact(std::uint64_t partId, OrvikCore::EntityMeasure what,
                      OrvikCore::MeasureResult& result) const override
    {
        using OrvikCore::EntityMeasure;
        if (what == EntityMeasure::Surface && partId != 0)
            result.word = "torus";
        else if (what == EntityMeasure::Area || what == EntityMeasure::Volume ||
                 what == EntityMeasure::Length || what == EntityMeasure::Radius)
            result.value = 10.0;
        else if (what == EntityMeasure::Normal || what == EntityMeasure::Center)
            result.vector[0] = 1.0;
        else
            return false;
        return true;
    }
    bool MeasureDistanceExact(const OrvikModel::PlacedPart& from, const OrvikModel::PlacedPart& to,
                              OrvikCore::DistanceResult& result) const override
    {
        if (!dynamic_cast<const ExactShape*>(to.shape))
            return false;
        ++m_distances;
        result.distance = 0.25;
        result.from[0] = from.world[12];
        return true;
    }
    bool Refine(const OrvikModel::FacetHit& facet, OrvikModel::RefinedHit& hit) const override
    {
        hit.parameter = facet.parameter - 0.125;
        for (int i = 0; i < 3; ++i)
            hit.position[i] = facet.origin[i] + hit.parameter * facet.direction[i];
        hit.normal[2] = 1.0;
        return true;
    }

    mutable int m_distances = 0; ///< How often a distance was asked.
};

#endif
