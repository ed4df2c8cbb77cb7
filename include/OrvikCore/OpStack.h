#ifndef ORVIKCORE_OPSTACK_H
#define ORVIKCORE_OPSTACK_H

#include "OrvikCore/Export.h"

#include <vector>

namespace OrvikCore {

class IViewOp;

/// The view operations made from window events and not yet replaced by later ones.
///
/// Between events it holds at most the operation delivered last, which the strategies look at. An
/// operation in delivery is pinned: a nested event may pop, discard or clear it, and it is freed
/// only when its delivery has ended.
///
/// Copying copies the pointers; only one of the copies may delete them.
///
/// @thread  The thread that delivers window events.
class ORVIKCORE_API OpStack
{
public:
    OpStack() = default;
    OpStack(const OpStack&) = default;
    OpStack& operator=(const OpStack&) = default;

    /// Leaves the remaining operations alone; Clear() deletes them.
    virtual ~OpStack();

    /// Puts @p op (transferred in; may be null) on the top.
    void Push(IViewOp* op);

    /// Removes the top. @return it (transferred out), or null when the stack is empty.
    IViewOp* Pop();

    /// @return the top; not owned, null when the stack is empty, valid until removed.
    IViewOp* Top() const;

    bool IsEmpty() const;

    /// Discards every operation.
    void Clear();

    /// Deletes @p op (transferred in; may be null), which is not on the stack any more; an
    /// operation in delivery is deleted when it is unpinned.
    void Discard(IViewOp* op);

    /// Keeps @p op (not owned, not null) from deletion until Unpin().
    void Pin(IViewOp* op);

    /// Ends the innermost Pin() of @p op and deletes it if it was discarded meanwhile.
    ///
    /// @return true when @p op was discarded: it is gone, or goes with the pins outside this one.
    bool Unpin(IViewOp* op);

private:
    struct PinnedOp
    {
        IViewOp* op;    ///< Not owned until discarded.
        bool discarded; ///< Owned from then on.
    };

    std::vector<IViewOp*> m_ops; ///< Owned by Clear() and Discard() only; the top is the last.
    int top = -1;                ///< Index of the top, -1 when empty.
    std::vector<PinnedOp> m_pinned;
};

} // namespace OrvikCore

#endif
