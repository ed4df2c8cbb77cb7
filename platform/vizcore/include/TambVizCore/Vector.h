#ifndef TAMBVIZCORE_VECTOR_H
#define TAMBVIZCORE_VECTOR_H

#include "TambVizCore/Export.h"

#include <bit>
#include <cstdint>

/// Functions on vectors of float[3], passed as pointers to their first component.
///
/// Everything is right-handed: x cross y is z, and a positive angle turns counter-clockwise for
/// somebody who looks against the axis (from its tip towards its foot). An output may be one of
/// the inputs. No function checks for null or for components that are not finite.
///
/// @thread Any thread; there is no state.
namespace TambVizCore {

/// Deliberate: one unit in the last place below the nearest float to pi; callers compare with it
/// for equality. Held by Vector.PiIsOneUnitBelowTheNearestFloat.
inline constexpr float kPi = 3.1415925f;
static_assert(std::bit_cast<std::uint32_t>(kPi) == 0x40490FDAu);

/// The tolerance of AreClose, AreOpposite and GetAngleRadians, in units of a component.
inline constexpr float kVectorTolerance = 1e-6f;

/// Writes @p a - @p b to @p out.
TAMBVIZCORE_API void Subtract(const float* a, const float* b, float* out);

/// Writes @p a + @p b to @p out.
TAMBVIZCORE_API void Add(const float* a, const float* b, float* out);

/// Scales @p vector in place.
TAMBVIZCORE_API void Multiply(float* vector, float scale);

/// Divides @p vector by its length, in place.
///
/// A zero vector becomes three NaN: the division is not avoided, so that the caller's check for
/// finite components finds it.
TAMBVIZCORE_API void Normalize(float* vector);

/// @return the length, computed in double and rounded once.
TAMBVIZCORE_API float Length(const float* vector);

/// @return the dot product, computed in double and rounded once.
TAMBVIZCORE_API float DotProduct(const float* a, const float* b);

/// Writes @p a x @p b to @p out.
TAMBVIZCORE_API void CrossProduct(const float* a, const float* b, float* out);

/// @return true when the two differ by at most kVectorTolerance; false for NaN.
TAMBVIZCORE_API bool AreClose(float a, float b);

/// @return true when each of the three components is close; lengths count, they are no directions.
TAMBVIZCORE_API bool AreClose(const float* a, const float* b);

/// @return true when the directions of @p a and @p b are anti-parallel within kVectorTolerance in
///         each component of the unit vectors; false when either is a zero vector.
TAMBVIZCORE_API bool AreOpposite(const float* a, const float* b);

/// The unsigned angle between two directions, which need not have unit length.
///
/// @return radians, 0 to kPi: exactly kPi for opposite directions (AreOpposite) and exactly 0 for
///         equal ones (same tolerance); 0 when either is a zero vector.
TAMBVIZCORE_API float GetAngleRadians(const float* a, const float* b);

/// The angle from @p a to @p b as seen about @p axis.
///
/// @return the unsigned angle, negative when @p a x @p b points against @p axis. Opposite
///         directions give +kPi.
TAMBVIZCORE_API float GetAngleRadians(const float* a, const float* b, const float* axis);

/// Turns @p point about the line through @p centre along @p axis.
///
/// @param angle  radians, right-handed.
/// @param axis   any length; a zero vector copies the point.
TAMBVIZCORE_API void RotatePointRadians(const float* point, double angle, const float* centre,
                                        const float* axis, float* out);

/// Does the same with an angle in degrees.
TAMBVIZCORE_API void RotatePoint(const float* point, double angleDegrees, const float* centre,
                                 const float* axis, float* out);

/// Turns @p point about the line through the origin along @p axis by an angle in degrees.
TAMBVIZCORE_API void RotatePointAroundOrigin(const float* point, double angleDegrees,
                                             const float* axis, float* out);

/// Computes the ray through the middle of a window pixel.
///
/// The plane of sight stands at @p target, at right angles to the viewing direction, and shows
/// @p viewWidth x @p viewHeight world units. With s = (x + 0.5) / width - 0.5 to the right and
/// t = 0.5 - (y + 0.5) / height upwards, the point of the plane is target + right * s * viewWidth
/// + trueUp * t * viewHeight. @p up need not stand at right angles to the viewing direction.
///
/// @param x, y           window pixel; (0, 0) is the upper left one, y grows downwards.
/// @param width, height  window size in pixels; a value of 0 or less puts the ray in the middle.
/// @param perspective    true: the ray runs from the eye to the point of the plane; false: it runs
///                       from the same place in the eye's plane, parallel to the viewing direction.
/// @param outOrigin      float[3], world units.
/// @param outDirection   float[3]; not normalised: origin + direction is the point of the plane.
TAMBVIZCORE_API void GetRayVector(int x, int y, int width, int height, const float* eye,
                                  const float* target, const float* up, float viewWidth,
                                  float viewHeight, bool perspective, float* outOrigin,
                                  float* outDirection);

} // namespace TambVizCore

#endif
