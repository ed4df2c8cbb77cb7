#ifndef ORVIKCAD_KERNEL_PMIDRAWINGS_H
#define ORVIKCAD_KERNEL_PMIDRAWINGS_H

#include "kernel/CadDocument.h"
#include "kernel/PmiRecords.h"

#include <map>
#include <string_view>

namespace OrvikCad {

/// Labels of dimensions and tolerances by the numbers of the entities that they were made of.
using LabelsByEntity = std::map<int, TDF_Label>;

/// Adds the curves of annotations that the kernel cannot read: those of callouts that are drawn in
/// a plane of their own ("REPOSITIONED_TESSELLATED_ITEM").
///
/// The curves become the presentation of the dimension or tolerance that the callout shows, or an
/// annotation that is only drawn where it shows neither. Filled areas, of which letters are made,
/// become their outlines.
///
/// @param unit  The file's length unit in millimetres.
void AddDrawings(const StepRecords& records, double unit, const LabelsByEntity& labels,
                 CadDocument& document);

/// @return whether a file holds such curves; a quick look.
bool HasDrawings(std::string_view text);

} // namespace OrvikCad

#endif
