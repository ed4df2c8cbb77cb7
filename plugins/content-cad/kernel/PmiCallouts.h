#ifndef ORVIKCAD_KERNEL_PMICALLOUTS_H
#define ORVIKCAD_KERNEL_PMICALLOUTS_H

#include "kernel/PmiRecords.h"

#include <TopoDS_Compound.hxx>
#include <gp_Pnt.hxx>
#include <gp_Trsf.hxx>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikCad {

/// One callout of a STEP file: its name with the kind of annotation, where the file tells one, and
/// its curves in millimetres.
struct Callout
{
    std::string name;
    TopoDS_Compound curves; ///< Edges.
};

/// Reads callouts that are drawn in planes of their own from the text of a STEP file: lines, and
/// the outlines of filled areas, which are what letters are made of.
class CalloutReader
{
public:
    /// What tells that a file holds such drawings.
    static constexpr std::string_view kKeyword = "REPOSITIONED_TESSELLATED_ITEM";

    /// @param records  Not owned.
    /// @param unit     The file's length unit in millimetres.
    CalloutReader(const StepRecords& records, double unit);

    /// @param record  Of a DRAUGHTING_CALLOUT.
    /// @return        nothing where the callout holds no curves of the kind.
    std::optional<Callout> Read(std::string_view record) const;

private:
    bool addOccurrence(std::string_view item, Callout& callout) const;
    gp_Trsf placeOf(int axes) const;
    gp_XYZ vectorOf(std::string_view reference, std::string_view type) const;
    std::vector<gp_Pnt> pointsOf(std::string_view reference, const gp_Trsf& place) const;

    const StepRecords& m_records;
    double m_unit;
};

} // namespace OrvikCad

#endif
