#ifndef ORVIKCORE_TESTS_OPTEXT_H
#define ORVIKCORE_TESTS_OPTEXT_H

#include "OrvikCore/IViewOp.h"

#include <string>

/// Writes an operation with all of its fields in short.
///
/// @param op  may be null.
/// @return for example "Drag 1 2 state 3", "Zoom -5 at 1 2", "RayPick 1 2 aperture 4 multiple 0
///         body 0 state 2"; "none" for null.
std::string OpText(const OrvikCore::IViewOp* op);

#endif
