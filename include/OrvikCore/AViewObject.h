#ifndef ORVIKCORE_AVIEWOBJECT_H
#define ORVIKCORE_AVIEWOBJECT_H

#include "OrvikCore/Export.h"

#include <cstdint>
#include <string>

namespace TambVizCore {
class Node;
class RenderingOptions;
} // namespace TambVizCore

namespace OrvikCore {

/// Something drawn in the 3D view beside the model: axes, a rubber band, markup, text.
///
/// The life of an object: made (visible, not rendered), Render(), Display() any number of times,
/// Clear(), and again. Hiding keeps its geometry; showing one that was never rendered renders it.
/// Derived classes supply the three steps. A ViewObjectManager owns the objects added to it.
///
/// @thread Render(), Clear() and Display() on the main thread, under the manager's lock.
class ORVIKCORE_API AViewObject
{
public:
    // Virtual operations in slot order; append only.
    virtual ~AViewObject();

    /// Shows or hides the object; an object that is not rendered yet is then rendered, also when it
    /// is being hidden.
    virtual void SetIsVisible(bool const& isVisible);

    /// Builds the geometry unless it is built.
    void Render();

    /// Removes the geometry where it is built; the object is then not rendered.
    void Clear();

    /// Shows the geometry of a visible and rendered object.
    void Display();

    /// Hands changed options to the object; null does nothing.
    void RenderOptionsUpdated(TambVizCore::RenderingOptions const* options);

    /// Returns the number drawn at construction, unique in the process.
    std::uint64_t Id() const;

    /// Returns the name given by the derived class; empty until then.
    std::string Name() const;

    bool IsVisible() const;

protected:
    /// Draws a new id from ViewObjectManager.
    AViewObject();

    /// A copy has the same id and refers to the same scene data.
    AViewObject(const AViewObject&) = default;
    AViewObject& operator=(const AViewObject&) = default;

    // Slots three to six of the table.

    /// Builds the geometry, and sets #rendered once there is any.
    virtual void doRender() = 0;

    /// Removes the geometry.
    virtual void doClear() = 0;

    /// Shows the geometry.
    virtual void doDisplay() = 0;

    /// Takes over changed options; does nothing by default.
    virtual void doUpdateRenderOptions(TambVizCore::RenderingOptions const& options);

    std::uint64_t id;                          ///< Unique in the process.
    std::string name;                          ///< Set by the derived class.
    bool visible = true;                       ///< Whether Display() shows it.
    bool rendered = false;                     ///< Set by doRender(); cleared by Clear().
    TambVizCore::Node* m_parentNode = nullptr; ///< Not owned; for the derived class.
    TambVizCore::Node* m_node = nullptr;       ///< Not owned; for the derived class.
};

} // namespace OrvikCore

#endif
