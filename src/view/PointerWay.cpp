#include "PointerWay.h"

#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRotate.h"

namespace OrvikCore {

namespace {

template <typename Op> PointerWay wayOf(const Op& op)
{
    return {op.MouseX() - op.PrevX(), op.MouseY() - op.PrevY()};
}

} // namespace

bool ReadPointerWay(const IViewOp* op, PointerWay& way)
{
    if (const auto* rotation = dynamic_cast<const ViewOpRotate*>(op)) {
        way = wayOf(*rotation);
        return true;
    }
    if (const auto* pan = dynamic_cast<const ViewOpPan*>(op)) {
        way = wayOf(*pan);
        return true;
    }
    return false;
}

} // namespace OrvikCore
