#ifndef ORVIKCORE_TEXTDIRECTION_H
#define ORVIKCORE_TEXTDIRECTION_H

#include <cstdint>

namespace OrvikCore {

/// A direction along an axis of the model in which a 3D text runs or stands.
enum class TextDirection : std::int32_t
{
    PositiveX,
    NegativeX,
    PositiveY,
    NegativeY,
    PositiveZ,
    NegativeZ
};

} // namespace OrvikCore

#endif
