#include "OrvikCore/OpStack.h"

#include "OrvikCore/IViewOp.h"

#include <algorithm>
#include <cstddef>

namespace OrvikCore {

OpStack::~OpStack() = default;

void OpStack::Push(IViewOp* op)
{
    m_ops.push_back(op);
    ++top;
}

IViewOp* OpStack::Pop()
{
    if (top < 0) {
        return nullptr;
    }
    IViewOp* op = m_ops.back();
    m_ops.pop_back();
    --top;
    return op;
}

IViewOp* OpStack::Top() const
{
    return IsEmpty() ? nullptr : m_ops[static_cast<std::size_t>(top)];
}

bool OpStack::IsEmpty() const
{
    return top < 0;
}

void OpStack::Clear()
{
    for (IViewOp* op : m_ops) {
        Discard(op);
    }
    m_ops.clear();
    top = -1;
}

void OpStack::Discard(IViewOp* op)
{
    const auto pin = std::find_if(m_pinned.begin(), m_pinned.end(),
                                  [op](const PinnedOp& pinned) { return pinned.op == op; });
    if (pin != m_pinned.end()) {
        pin->discarded = true; // The outermost pin; the inner ones end before it.
        return;
    }
    delete op;
}

void OpStack::Pin(IViewOp* op)
{
    m_pinned.push_back({op, false});
}

bool OpStack::Unpin(IViewOp* op)
{
    const auto isOp = [op](const PinnedOp& pinned) { return pinned.op == op; };
    const auto outermost = std::find_if(m_pinned.begin(), m_pinned.end(), isOp);
    if (outermost == m_pinned.end()) {
        return false;
    }
    const bool discarded = outermost->discarded;
    const auto innermost = std::find_if(m_pinned.rbegin(), m_pinned.rend(), isOp);
    const bool wasOutermost = &*innermost == &*outermost;
    m_pinned.erase(std::next(innermost).base());
    if (discarded && wasOutermost) {
        delete op;
    }
    return discarded;
}

} // namespace OrvikCore
