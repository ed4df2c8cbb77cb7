#ifndef VIEWOPENGL_OBJECTS_NODEOBJECT_H
#define VIEWOPENGL_OBJECTS_NODEOBJECT_H

#include <OrvikCore/AViewObject.h>
#include <TambVizCore/Node.h>

#include <utility>

namespace ViewOpenGl {

/// A view object that is one node of the scene beside the model: shown and hidden by the node's
/// visibility, removed with it. Derived classes fill the node in build().
///
/// @tparam Base  OrvikCore::AViewObject or a class derived from it.
/// @thread  Main thread.
template <class Base> class NodeObject : public Base
{
public:
    ~NodeObject() override { doClear(); }

    NodeObject(const NodeObject&) = delete;
    NodeObject& operator=(const NodeObject&) = delete;

    void SetIsVisible(bool const& isVisible) override
    {
        Base::SetIsVisible(isVisible);
        if (this->m_node != nullptr)
            this->m_node->SetVisible(isVisible);
    }

protected:
    /// @param parent  Gets the node while the object is rendered; not owned, outlives the object.
    template <class... Arguments>
    explicit NodeObject(TambVizCore::Node& parent, Arguments&&... arguments)
        : Base(std::forward<Arguments>(arguments)...)
    {
        this->m_parentNode = &parent;
    }

    /// Makes the node below the parent, with the object's id; null when there is nothing to draw.
    virtual TambVizCore::Node* build(TambVizCore::Node& parent) = 0;

    void doRender() override
    {
        this->m_node = build(*this->m_parentNode);
        this->rendered = this->m_node != nullptr;
        if (this->m_node != nullptr)
            this->m_node->SetVisible(this->visible);
    }

    void doClear() override
    {
        if (this->m_node != nullptr)
            this->m_parentNode->RemoveChild(this->Id());
        this->m_node = nullptr;
    }

    void doDisplay() override { this->m_node->SetVisible(true); }
};

} // namespace ViewOpenGl

#endif
