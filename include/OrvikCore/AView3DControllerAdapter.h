#ifndef ORVIKCORE_AVIEW3DCONTROLLERADAPTER_H
#define ORVIKCORE_AVIEW3DCONTROLLERADAPTER_H

#include "OrvikCore/Export.h"

namespace TambVizCore {
class IView3D;
class Ray;
class RenderId;
} // namespace TambVizCore

namespace OrvikCore {

class ACamera;
class ASession;
class ViewOpDrag;
class ViewOpHighlight;
class ViewOpHitTest;
class ViewOpRayPick;
class ViewOpTargetCamera;

/// Carries out the view operations that ask the model: hover, highlight, pick, re-target, drag.
///
/// Every AView3D is one for itself; a plugin may bring another for a view of its own kind. Acts on
/// the current session. Queries of the document run as jobs, and the caller waits for them while
/// window messages are pumped.
///
/// @thread  The thread that delivers window events.
class ORVIKCORE_API AView3DControllerAdapter
{
public:
    AView3DControllerAdapter(const AView3DControllerAdapter&) = delete;
    AView3DControllerAdapter& operator=(const AView3DControllerAdapter&) = delete;
    virtual ~AView3DControllerAdapter();

    /// Keeps @p view (not owned, may be null) as the view to work on.
    void SetView3D(TambVizCore::IView3D* view);

protected:
    AView3DControllerAdapter();

    // Every operation ignores a null op; all but highlight() need a view.

    /// Highlights or selects what lies under the pointer, or clears the highlight.
    virtual void hitTest(ViewOpHitTest* op);

    /// Highlights the entity of @p op, or clears the highlight.
    virtual void highlight(ViewOpHighlight* op);

    /// Picks along the ray through a pixel and echoes the pick as a script command.
    ///
    /// A std::exception is printed as "Exception thrown in Highlight(): " and its text.
    virtual void rayPick(ViewOpRayPick* op);

    /// Makes the surface point under a pixel, or the model's centre, the centre of rotation.
    /// @throws std::runtime_error "null ICameraProvider*" when the session's view has no camera.
    virtual void targetCamera(ViewOpTargetCamera* op);

    /// Shows, moves or hides the rubber band.
    ///
    /// Deliberate: but for the end of a drag nothing happens unless the job dispatcher is busy.
    /// Held by AView3DControllerAdapterDrag.DoesNothingWhileTheDispatcherIsIdle.
    virtual void drag(ViewOpDrag* op);

    /// @return the camera of the session's view; not owned.
    /// @throws std::runtime_error "null ICameraProvider*" when the view has none.
    ACamera& getCamera(ASession& session);

    /// Moves the origin of @p ray out of the sphere about the view's geometry.
    void moveRayRootOutsideModel(TambVizCore::Ray& ray);

    /// Offers the ray under the pointer, with an aperture of 4 pixels, to the view's objects.
    void callPick(ViewOpDrag* op);

private:
    void pickEntity(ViewOpRayPick& op, ASession& session, const TambVizCore::Ray& ray, bool echo);
    void hitTestEnhanced(ASession& session, const TambVizCore::RenderId& renderId);
    void hitTestPlain(ASession& session, const TambVizCore::RenderId& renderId);

    TambVizCore::IView3D* m_view = nullptr; ///< Not owned.
};

} // namespace OrvikCore

#endif
