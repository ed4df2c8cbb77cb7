#ifndef ORVIKCAD_KERNEL_READCONTEXT_H
#define ORVIKCAD_KERNEL_READCONTEXT_H

#include "interface/CadMessages.h"
#include "kernel/CadDocument.h"
#include "kernel/NodeIndex.h"
#include "kernel/ShapeCatalog.h"

#include <OrvikModel/Model.h>

namespace OrvikCad {

/// What the steps of reading one file share. Nothing is owned; all of it lives until the file has
/// been read.
///
/// The steps, in order: the file into the document; nodes of the structure (ModelBuilder); PMI
/// (AddPmi); triangles of all shapes of the catalog; numbers of the nodes; saved views and captures
/// (AddSavedViews), whose nodes come last so that numbers given before stay; validation properties
/// (CheckValidation).
struct ReadContext
{
    const CadDocument& document;
    OrvikModel::Model& model;
    ShapeCatalog& shapes;
    NodeIndex& nodes;
    CadMessages& messages;
};

} // namespace OrvikCad

#endif
