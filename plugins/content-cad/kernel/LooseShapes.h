#ifndef ORVIKCAD_KERNEL_LOOSESHAPES_H
#define ORVIKCAD_KERNEL_LOOSESHAPES_H

#include "kernel/CadDocument.h"

namespace OrvikCad {

/// Joins faces that stand alone at the top of a document and have no name into one shape
/// "Surfaces", edges and wires into "Curves", vertices into "Points", in the order of the document.
/// Those on other layers, or hidden, become shapes of their own. Colours stay with each.
///
/// Files of surfaces have thousands of them, and nobody looks for a body of one face. They are not
/// sewn: edges that two of them have in common stay two.
void JoinLooseShapes(CadDocument& document);

} // namespace OrvikCad

#endif
