#ifndef PELLUXBATCH_TREEREPORT_H
#define PELLUXBATCH_TREEREPORT_H

#include <string>

namespace Pellux {
class HostTree;
} // namespace Pellux

namespace PelluxBatch {

/// Describes the rows of a model tree that are built, in UTF-8. Main thread, between jobs.
///
/// For people: one line for each row, two blanks for each level, the kind and the name; control
/// characters in names become blanks, so that a row stays one line.
std::string DescribeTreeText(const Pellux::HostTree& tree);

/// For programs: one JSON object on one line with the key "tree", a list of rows. A row has "path",
/// the ids from the top row down; "kind"; "name"; "highlighted" and true where it is; "children",
/// a list of rows.
std::string DescribeTreeJson(const Pellux::HostTree& tree);

} // namespace PelluxBatch

#endif
