#ifndef ORVIKCORE_INPUTSTRATEGYSTATE_H
#define ORVIKCORE_INPUTSTRATEGYSTATE_H

#include <cstdint>

namespace OrvikCore {

/// The kind of an input strategy as a number; nothing in the library reads it.
enum class InputStrategyState : std::int32_t
{
    Select = 0,
    StickySelect = 3
};

} // namespace OrvikCore

#endif
