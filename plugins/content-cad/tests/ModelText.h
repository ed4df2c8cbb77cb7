#ifndef ORVIKCAD_TESTS_MODELTEXT_H
#define ORVIKCAD_TESTS_MODELTEXT_H

#include <OrvikModel/Model.h>

#include <string>

namespace OrvikCad {

/// What of a model a text tells; formats differ in what they keep.
struct ModelTextOptions
{
    bool names = true;
    bool colors = true;
    bool layers = true;
    bool structure = true; ///< Otherwise only nodes with a shape, with their volume in the world.
};

/// Describes a model, one line for each node, indented: kind, name, place, colour, layers, colours
/// of parts, and the numbers of faces, edges and vertices, volume or area of the shape. Annotations
/// and views are left out. Numbers have four digits.
std::string ModelText(const OrvikModel::Model& model, const ModelTextOptions& options = {});

} // namespace OrvikCad

#endif
