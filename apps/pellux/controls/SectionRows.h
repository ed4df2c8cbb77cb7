#ifndef PELLUX_CONTROLS_SECTIONROWS_H
#define PELLUX_CONTROLS_SECTIONROWS_H

#include "controls/SectionPlane.h"

#include <vector>

namespace Pellux {

/// What a row of the panel has shown so far. A value.
struct SectionRow
{
    int number = 0;     ///< Of its section, as view:section counts; 0 while it is off.
    SectionPlane plane; ///< Of its section, or of the last that it had.
};

/// Finds the row of each section of a view. Sections are numbered without gaps, so those behind one
/// that goes get other numbers: they are known by their planes, and stay in their rows.
///
/// @param rows     As they were before.
/// @param present  The sections, in the order of their numbers.
/// @return for each row the number of its section; 0 for one that is off now.
std::vector<int> NumbersOfRows(const std::vector<SectionRow>& rows,
                               const std::vector<SectionPlane>& present);

} // namespace Pellux

#endif
