#ifndef ORVIKCORE_INTERACTION_MAKEOP_H
#define ORVIKCORE_INTERACTION_MAKEOP_H

#include "OrvikCore/IViewOp.h"

#include <new>

namespace OrvikCore {

/// @return a new operation (transferred out); null when there is no memory for it.
template <typename Op, typename... Arguments> IViewOp* MakeOp(const Arguments&... arguments)
{
    return new (std::nothrow) Op(arguments...);
}

/// @return true when @p op is an operation of type @p type; false for null.
inline bool IsOfType(const IViewOp* op, ViewOpType type)
{
    return op != nullptr && op->Type() == type;
}

} // namespace OrvikCore

#endif
