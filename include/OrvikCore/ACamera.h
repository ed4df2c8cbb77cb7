#ifndef ORVIKCORE_ACAMERA_H
#define ORVIKCORE_ACAMERA_H

#include "OrvikCore/Export.h"

namespace TambVizCore {
class IView3D;
class Ray;
} // namespace TambVizCore

namespace OrvikCore {

class ACameraFactory;
class ACameraMoveStrategy;
class ACameraRotateStrategy;
class ViewOpPan;
class ViewOpRotate;
class ViewOpZoom;

/// The camera of one 3D view: the viewing triple (eye, target, up) and the field of view.
///
/// SetCamera validates every new triple and moves to it at once or by an animation of 20 steps of
/// 30 ms, which repaints the current session after every step. Mouse rotation and panning go to two
/// strategies that the camera owns. Vectors are float[3] in world units; angles are degrees at this
/// boundary and radians inside.
///
/// A triple that came through SetCamera is finite, its eye at least 0.0001 from its target, and its
/// up vector of unit length and not along the viewing direction. Zoom(), moveCamera() and the steps
/// of an animation write the triple without these checks.
///
/// @thread  The thread that owns the view. There is no lock.
class ORVIKCORE_API ACamera
{
public:
    /// Looks from (0, 0, 100) at the origin with up (0, 1, 0), 45 degrees, orthographic, animated.
    /// @param view  the view served; not owned, null for a prototype.
    explicit ACamera(TambVizCore::IView3D* view);

    ACamera& operator=(const ACamera&) = delete;

    // Virtual operations in slot order; append only.

    /// Deletes the pan strategy, then the rotate strategy; the view is left alone.
    virtual ~ACamera();

    /// @return the name of the camera's class, zero-terminated; valid for the whole run.
    virtual char* GetName() = 0;

    /// Copies the viewing triple out.
    /// @param eye, target, up  float[3] each; written.
    virtual void GetCamera(float* eye, float* target, float* up);

    /// Moves the camera to a new viewing triple, animated when GetAnimate() is true.
    ///
    /// A triple that is not finite, whose eye is closer than 0.0001 to the target, or whose up
    /// vector runs along the viewing direction (dot product beyond 0.999) is ignored. An up vector
    /// that leans back against the viewing direction (below -0.1) is straightened; one that leans
    /// forward is kept.
    ///
    /// @param eye     float[3], world units; read only.
    /// @param target  float[3], world units; read only.
    /// @param up      float[3]; normalised and straightened in place, also when the triple is then
    ///                ignored.
    /// @thread        The thread that owns the view. Blocks for 20 steps of 30 ms when animated, or
    ///                as many as TambVizCore::Settings::GetAnimationSteps() says.
    virtual void SetCamera(float* eye, float* target, float* up);

    /// @return true for parallel projection, as every camera starts.
    virtual bool IsOrthographic() const;

    /// Sets the vertical opening angle in degrees.
    virtual void SetFieldOfView(float degrees);
    /// Sets the vertical opening angle in radians.
    virtual void SetFieldOfViewRadians(float radians);
    /// @return the vertical opening angle in degrees.
    virtual float GetFieldOfView();
    /// @return the vertical opening angle in radians.
    virtual float GetFieldOfViewRadians();

    /// Writes the centre of rotation; nothing without rotate strategy.
    /// @param center  float[3], world units; null is ignored.
    virtual void GetRotationCenter(float* center);
    /// Sets the centre of rotation; nothing without rotate strategy.
    /// @param center  float[3], world units; null is ignored.
    virtual void SetRotationCenter(const float* center);

    /// Writes the front view of a model at the origin; moves nothing.
    ///
    /// The eye stands at radius / tan(field of view / 2) * 1.5 from the origin, with the radius of
    /// the view's geometry, or 10 when that is exactly 0.
    /// @param eye, target, up  float[3] each; written.
    virtual void SetStandardPosition(float* eye, float* target, float* up) = 0;

    // The named views look at the centre of the view's geometry from the present distance, and
    // animate when GetAnimate() is true.
    virtual void Top() = 0;
    virtual void Bottom() = 0;
    virtual void Front() = 0;
    virtual void Back() = 0;
    virtual void Right() = 0;
    virtual void Left() = 0;
    virtual void Isometric() = 0;

    /// Fits the view's geometry into the window, from the present direction; the centre of the
    /// geometry becomes the centre of rotation. Nothing for an empty window or an empty model.
    virtual void ZoomAll();

    /// Fits a box into the window, from the present direction; its middle becomes the centre of
    /// rotation. Two equal corners put the eye one unit from them. Nothing for an empty window.
    ///
    /// @param x1, y1, z1  a corner, world units.
    /// @param x2, y2, z2  the opposite corner.
    virtual void ZoomToBox(float x1, float y1, float z1, float x2, float y2, float z2);

    /// Turns the camera by a mouse drag, without animation.
    /// @param op  null is ignored.
    virtual void Rotate(ViewOpRotate* op);

    /// Slides the camera by a mouse drag, without animation.
    /// @param op  null is ignored.
    virtual void Pan(ViewOpPan* op);

    /// Scales the distance of the eye from the target by 1 + delta / 100, at once, unchecked.
    ///
    /// Deliberate: at -100 the eye reaches the target, below it passes through to the other side.
    /// Held by ACamera.ZoomBelowMinusHundredPassesThroughTheTarget.
    /// @param op  null is ignored.
    virtual void Zoom(ViewOpZoom* op);

    /// Sets whether SetCamera animates; true at start.
    virtual void SetAnimate(bool animate);
    virtual bool GetAnimate();

protected:
    /// Makes a camera of the same class and settings for another view.
    /// @param view  the view served by the new camera; not owned, may be null.
    /// @return a new camera (transferred out), with strategies of its own.
    virtual ACamera* cloneTo(TambVizCore::IView3D* view) const = 0;

    /// Writes the front view of the view's geometry and makes its centre the centre of rotation;
    /// does not apply the triple.
    /// @param eye, target, up  float[3] each; written.
    /// @param keepDistance     true to stay at the present distance from the target.
    virtual void setFront(float* const eye, float* const target, float* const up,
                          bool keepDistance) = 0;

public:
    /// Makes the pick ray through a window pixel.
    ///
    /// @param x, y      window pixels.
    /// @param aperture  radius of the pick aperture in pixels.
    /// @return the ray with a direction of unit length and the aperture in world units at the
    ///         distance of the target.
    TambVizCore::Ray Make3DRay(const int& x, const int& y, const int& aperture);

    /// @return the view served; not owned, may be null.
    TambVizCore::IView3D* GetView3D() const;

protected:
    friend class ACameraFactory;

    /// Copies member by member, the strategies' addresses too; copySettingsFrom() must follow.
    ACamera(const ACamera&) = default;

    /// Takes everything of @p other but the view; the strategies are replaced by clones of those
    /// that @p other has.
    void copySettingsFrom(const ACamera& other);

    /// @return true when every component of the three float[3] is a finite number.
    bool isValid(const float* eye, const float* target, const float* up) const;
    /// @return false for NaN.
    bool isANumber(float value) const;
    /// @return true from -3.4028235e38 to 3.4028235e38.
    bool isFinite(float value) const;

    /// Stores a triple of float[3] without check or repaint.
    void moveCamera(const float* eye, const float* target, const float* up);

    /// Moves in a straight line in 20 steps of 30 ms and ends on the accumulated sum; a move that
    /// leaves the eye in place is made at once.
    void animateCameraDirect(const float* newEye, const float* newTarget, const float* newUp);

    /// Turns the camera to a new triple in paced steps and ends exactly on it.
    /// @param newUp  float[3]; normalised in place.
    void animateCamera(float* newEye, float* newTarget, float* newUp);

    /// Finds the axis about which one viewing direction turns into another.
    ///
    /// @param curDir, newDir  float[3], unit length.
    /// @param newUp           float[3], unit length.
    /// @param angle           radians between the two; becomes 0 when it is close to 0.
    /// @param flipped         set when the direction is reversed with an opposite up vector.
    /// @param axis            float[3]; unit length, untouched when the angle is 0.
    void calculateRotationAxis(const float* curDir, const float* newDir, const float* newUp,
                               float& angle, bool& flipped, float* axis);

    /// Finds the turn of the up vector.
    ///
    /// @param curDir   float[3], unit length.
    /// @param curUp    float[3]; normalised in place.
    /// @param newUp    float[3]; normalised in place.
    /// @param upAngle  radians; written.
    /// @param upAxis   float[3]; unit length, untouched when the angle is 0.
    void calculateUpRotation(const float* curDir, float* curUp, float* newUp, float& upAngle,
                             float* upAxis);

    /// Turns eye and up vector in paced steps while the target slides to its new place.
    ///
    /// @param angle      radians that the eye turns about the target along @p axis (float[3]).
    /// @param upAngle    radians that the up vector turns along @p upAxis (float[3]).
    /// @param steps      number of steps; 20 are eased, any other number is linear.
    /// @param msPerStep  least duration of a step, its repaint included, in milliseconds.
    /// @param startDist  distance of the eye from the target before, world units.
    /// @param distStep   change of that distance in one step of uniform speed, world units.
    /// @param newTarget  float[3], world units.
    void animateSteps(float angle, float* axis, float upAngle, float* upAxis, float steps,
                      int msPerStep, float startDist, float distStep, const float* newTarget);

    TambVizCore::IView3D* m_view;            ///< Not owned; null in a prototype.
    ACameraRotateStrategy* m_rotateStrategy; ///< Owned.
    ACameraMoveStrategy* m_panStrategy;      ///< Owned.
    bool m_orthographic = true;
    float m_eye[3] = {0.0f, 0.0f, 100.0f};  ///< World units.
    float m_target[3] = {0.0f, 0.0f, 0.0f}; ///< World units.
    float m_up[3] = {0.0f, 1.0f, 0.0f};     ///< Unit length, unless SetCamera straightened it.
    float m_fieldOfView = 0.0f;             ///< Vertical opening angle, radians.
    bool m_animate = true;
};

} // namespace OrvikCore

#endif
