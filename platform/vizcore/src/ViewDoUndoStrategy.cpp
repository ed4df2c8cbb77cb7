#include "TambVizCore/ViewDoUndoStrategy.h"

#include "TambVizCore/Node.h"

#include <utility>

namespace TambVizCore {

ViewDoUndoStrategy::ViewDoUndoStrategy(Node& root) : m_root(root) {}

ViewDoUndoStrategy::~ViewDoUndoStrategy() = default;

bool ViewDoUndoStrategy::Apply(const RenderId& id, const IViewAttribute& attribute)
{
    return ApplyToAll({id}, attribute);
}

bool ViewDoUndoStrategy::ApplyToAll(const std::vector<RenderId>& ids,
                                    const IViewAttribute& attribute)
{
    Step step;
    for (const RenderId& id : ids) {
        if (auto former = attribute.ApplyTo(m_root, id)) {
            step.push_back({id, std::move(former)});
        }
    }
    if (step.empty()) {
        return false;
    }
    m_redo.clear();
    m_undo.push_back(std::move(step));
    if (m_undo.size() > kMaxSteps) {
        m_undo.erase(m_undo.begin());
    }
    return true;
}

bool ViewDoUndoStrategy::Undo()
{
    return moveStep(m_undo, m_redo);
}

bool ViewDoUndoStrategy::Redo()
{
    return moveStep(m_redo, m_undo);
}

bool ViewDoUndoStrategy::moveStep(std::vector<Step>& from, std::vector<Step>& to)
{
    while (!from.empty()) {
        const Step step = std::move(from.back());
        from.pop_back();
        Step reverse;
        for (auto change = step.rbegin(); change != step.rend(); ++change) {
            if (auto former = change->attribute->ApplyTo(m_root, change->id)) {
                reverse.push_back({change->id, std::move(former)});
            }
        }
        if (!reverse.empty()) {
            to.push_back(std::move(reverse));
            return true;
        }
    }
    return false;
}

} // namespace TambVizCore
