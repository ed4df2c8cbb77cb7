#ifndef TESTS_REPLAY_TREEWALKCOMMAND_H
#define TESTS_REPLAY_TREEWALKCOMMAND_H

namespace TambCommandsInfra {
class CommandTable;
}

/// Registers test:walk-tree, which opens every row of a model tree of its own, and converts each:
/// tree path, entity, id of the 3D view, entity, tree path.
///
/// It gives a list of four: the number of rows, of those with an id in the 3D view, the kinds of
/// those without (sorted, each once), and what went wrong (texts; the empty list when every row
/// comes back).
void RegisterTreeWalkCommand(TambCommandsInfra::CommandTable& table);

#endif
