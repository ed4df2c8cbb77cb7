#ifndef ORVIKCORE_VIEW_POINTERWAY_H
#define ORVIKCORE_VIEW_POINTERWAY_H

namespace OrvikCore {

class IViewOp;

/// The way of the pointer between two events, in window pixels.
struct PointerWay
{
    int x; ///< To the right.
    int y; ///< Downwards.
};

/// Reads the way from a rotation or a pan.
///
/// @param op   may be null.
/// @param way  written on true.
/// @return false for null and for operations of every other class.
bool ReadPointerWay(const IViewOp* op, PointerWay& way);

} // namespace OrvikCore

#endif
