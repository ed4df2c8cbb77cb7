#ifndef ORVIKCORE_IVIEWOP_H
#define ORVIKCORE_IVIEWOP_H

#include "OrvikCore/Export.h"

#include <cstdint>
#include <string>

namespace OrvikCore {

/// Where in a gesture an operation stands; 0 means not started and is used by no operation.
enum class IViewOpState : std::int32_t
{
    Start = 1,
    Processing = 2, ///< Also the state of every operation made from a single event.
    End = 3,
    Reset = 4 ///< Takes back what earlier operations of the kind did.
};

/// The classes of view operations.
enum class ViewOpType : std::int32_t
{
    HitTest = 0,
    Highlight = 1,
    Pan = 2,
    Rotate = 3,
    Zoom = 4,
    RayPick = 5,
    TargetCamera = 6,
    MouseMove = 7,
    Drag = 8
};

/// What the user's input means for the 3D view: a small value object.
///
/// Made by the input strategies, kept on the OpStack, delivered to the listeners of a Controller.
/// Whoever makes an operation deletes it; a receiver keeps none beyond the call.
///
/// @thread  The thread that delivers window events.
class ORVIKCORE_API IViewOp
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IViewOp();

    /// @return the class of the operation.
    virtual ViewOpType Type() const = 0;

    /// @return the operation as one line for traces.
    virtual std::string ToString() const = 0;

    /// @return where in its gesture the operation stands.
    IViewOpState State() const { return m_state; }

protected:
    explicit IViewOp(const IViewOpState& state);
    IViewOp(const IViewOp&) = default;
    IViewOp& operator=(const IViewOp&) = default;

private:
    IViewOpState m_state;
};

} // namespace OrvikCore

#endif
