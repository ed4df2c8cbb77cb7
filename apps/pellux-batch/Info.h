#ifndef PELLUXBATCH_INFO_H
#define PELLUXBATCH_INFO_H

#include <string>

namespace PelluxBatch {

/// Describes what the current session shows: contents, boxes, bodies, triangles.
///
/// @return UTF-8; lines for people, or one JSON object with the keys "model", "contents" (each
///         "name", "path", "type", "box"), "bodies", "kinds" (numbers of solids,
///         surfaces, wires, point sets, annotations, empty bodies), "triangles", "segments",
///         "points", "vertices", "bytes", each followed by a line end.
/// @thread Main thread, between jobs.
std::string DescribeSessionText();
std::string DescribeSessionJson();

} // namespace PelluxBatch

#endif
