#ifndef ORVIKMODEL_CONTENT_SAVEDVIEWS_H
#define ORVIKMODEL_CONTENT_SAVEDVIEWS_H

#include "OrvikModel/Model.h"

#include <vector>

namespace TambVizCore {
class IView3D;
} // namespace TambVizCore

namespace OrvikModel {

/// Moves the camera of a view to a saved one, so far away from its target that the whole window of
/// the saved view is seen.
///
/// @return false when the view has no camera, or the saved one looks nowhere.
/// @thread  Main thread.
bool ShowCamera(const SavedCamera& saved, TambVizCore::IView3D& view);

/// Tells which nodes a capture shows: those that it names and all below them.
///
/// @return by position in Model::InOrder(); empty when the capture names none, and so says nothing.
std::vector<bool> ShownByCapture(const Model& model, const ModelNode& capture);

} // namespace OrvikModel

#endif
