#ifndef ORVIKCORE_AVIEWMANIPULATOR_H
#define ORVIKCORE_AVIEWMANIPULATOR_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// Switches the kinds of drawing of the host's view on and off.
///
/// The host derives from it and hands one object to AppController, which owns it from then on and
/// deletes it through this class. The view services call one operation per kind. Main thread.
class ORVIKCORE_API AViewManipulator
{
public:
    virtual ~AViewManipulator();

    // Virtual operations in slot order; append only.

    /// Shows (@p show true) or hides the faces of every body.
    virtual void DisplayFaces(bool show) = 0;

    /// Shows or hides the edges of every body.
    virtual void DisplayEdges(bool show) = 0;

    /// Shows or hides the vertices of every body.
    virtual void DisplayVertices(bool show) = 0;

    /// Shows or hides the triangles that the faces are drawn with.
    virtual void DisplayTessellation(bool show) = 0;

    /// Shows or hides point clouds.
    virtual void DisplayClouds(bool show) = 0;

    /// Shows or hides product manufacturing information.
    virtual void DisplayPMI(bool show) = 0;
};

} // namespace OrvikCore

#endif
