#ifndef TAMBVIZCORE_NODE_H
#define TAMBVIZCORE_NODE_H

#include "TambVizCore/EntityId.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/RGBAColor.h"
#include "TambVizCore/RenderId.h"
#include "TambVizCore/VizBox.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace TambVizCore {

class GeoNode;

/// When each side of a node changed last. Stamps come from one counter of the process, so a later
/// change always has the larger stamp; 0 means never since it was made.
struct NodeStamps
{
    /// Children added or removed, or another geometry set. A child that was not there before is
    /// new with all below, whatever its own stamps say.
    std::uint64_t structure = 0;
    std::uint64_t transform = 0; ///< Transform or displacement set.
    /// Visible, highlighted, selected, picked, colour or opacity changed.
    std::uint64_t appearance = 0;
    std::uint64_t parts = 0;   ///< State of a part changed.
    std::uint64_t subtree = 0; ///< The largest stamp of this node and all below.
};

/// A named, placed group of the scene: the meeting point of content renderers and views.
///
/// A node owns its children and lives until its parent deletes it. A view that remembers the
/// subtree stamp of the root learns with one comparison that nothing changed, and otherwise walks
/// only into children whose subtree stamp is larger than the one it remembers.
///
/// Visibility, highlight, selection, pick and colour of a node hold for everything below it: below
/// a hidden node nothing is drawn or picked, and the colour nearest above a part wins.
///
/// @thread The main thread once it hangs below a view's root. A subtree without parent may be
///         built on any one thread and added later.
class TAMBVIZCORE_API Node
{
public:
    /// @param id    unique among its siblings, not 0.
    /// @param name  UTF-8.
    explicit Node(std::uint64_t id, std::string name = {});
    virtual ~Node();
    Node(const Node&) = delete;
    Node& operator=(const Node&) = delete;
    Node(Node&&) = delete;
    Node& operator=(Node&&) = delete;

    std::uint64_t Id() const { return m_id; }
    const std::string& Name() const { return m_name; }
    /// UTF-8; counts as no change of appearance.
    void SetName(const std::string& name) { m_name = name; }

    /// @return this as GeoNode, or null. Not owned.
    virtual GeoNode* AsGeoNode();
    virtual const GeoNode* AsGeoNode() const;

    /// The entity that the node draws; empty when none was set. Not inherited.
    const EntityId& Entity() const { return m_entity; }
    void SetEntity(const EntityId& entity) { m_entity = entity; }

    /// @return not owned; null for a root.
    Node* Parent() const { return m_parent; }
    std::size_t ChildCount() const { return m_children.size(); }
    /// @return the child at that position, not owned, valid until removed; null out of range.
    Node* ChildAt(std::size_t position) const;
    /// @return the child with that id, not owned, valid until removed; null when there is none.
    Node* FindChild(std::uint64_t id) const;

    /// Makes a child and appends it.
    /// @return the child, owned by this node.
    /// @throws std::invalid_argument "Node: a child with this id exists already." for a taken id.
    Node* CreateChildNode(std::uint64_t id, const std::string& name = {});
    /// Makes a child that draws, and appends it; otherwise the same.
    GeoNode* CreateChildGeoNode(std::uint64_t id, const std::string& name = {});
    /// Appends a subtree (transferred in).
    /// @return the child. @throws std::invalid_argument as above, also "Node: null child.".
    Node* AddChild(std::unique_ptr<Node> child);
    /// Takes a child out of the tree (transferred out); null when there is none with that id.
    std::unique_ptr<Node> TakeChild(std::uint64_t id);
    /// Deletes a child with all below. @return false when there is none with that id.
    bool RemoveChild(std::uint64_t id);
    void RemoveAllChildren();

    /// Writes the path from the root's children to this node, with origin 1; empty for a root.
    RenderId GetRenderId() const;

    /// double[16] column-major; places this node and all below in its parent where they are shown,
    /// displacement included. Identity at start.
    const double* Transform() const { return m_transform; }
    /// Copies double[16]: where the node belongs. Its displacement comes on top.
    void SetTransform(const double* matrix);
    /// Writes where the node belongs in its parent, double[16]: the transform as it was set.
    void GetHomeTransform(double* matrix) const;

    /// double[3], units of the parent: how far from where it belongs the node is shown with all
    /// below it, as in an exploded view. 0 at start.
    const double* Displacement() const { return m_displacement; }
    /// Copies double[3]. What is not finite is ignored.
    void SetDisplacement(const double* displacement);
    bool IsDisplaced() const;
    /// Writes the product of the transforms from the root down to this node, double[16].
    void GetWorldTransform(double* matrix) const;

    bool IsVisible() const { return m_visible; }
    void SetVisible(bool visible);
    /// @return true when this node and all above it are visible.
    bool IsVisibleInScene() const;
    bool IsHighlighted() const { return m_highlighted; }
    void SetHighlighted(bool highlighted);
    bool IsSelected() const { return m_selected; }
    void SetSelected(bool selected);
    bool IsPicked() const { return m_picked; }
    void SetPicked(bool picked);
    /// The colour of everything below that has none of its own.
    const std::optional<RGBAColor>& Color() const { return m_color; }
    void SetColor(const std::optional<RGBAColor>& color);

    /// How opaque everything below is, from 0 (unseen, but picked) to 1; multiplied with that of
    /// the nodes above and with the alpha of colours. 1 at start.
    float Opacity() const { return m_opacity; }
    /// Values outside 0 to 1 are clamped; what is no number counts as 1.
    void SetOpacity(float opacity);

    /// An auxiliary subtree (axes, markup, rubber band) counts neither for the bounds of the nodes
    /// above it nor for picks.
    bool IsAuxiliary() const { return m_auxiliary; }
    void SetAuxiliary(bool auxiliary);

    /// @return the box around what is visible below this node, in its own units: hidden and
    ///         auxiliary children do not count, its own flags do. Kept until something changes.
    const VizBox& SubtreeBounds() const;
    /// @return the same in world units.
    VizBox WorldBounds() const;

    const NodeStamps& Stamps() const { return m_stamps; }

    /// Finds the first node below (or this one) that draws an entity, ignoring its sub-entity.
    /// @return not owned; null when there is none. Walks the whole subtree.
    Node* FindEntity(const EntityId& entity);

    /// Writes one line per node, indented by two blanks per level: name, id, kind and counts.
    /// @param withParts  adds the number of faces, edges and vertices of each GeoNode.
    void Print(std::string& out, bool withParts) const;

protected:
    enum class Change
    {
        Structure,
        Transform,
        Appearance,
        Parts
    };
    /// Stamps this node and all above, and drops kept bounds where they may have changed.
    void touch(Change change);
    /// The box of what this node itself draws, in its own units; empty here.
    virtual VizBox ownBounds() const;
    /// Appends " (...)" with what this node itself draws; nothing here.
    virtual void printOwn(std::string& out, bool withParts) const;

private:
    void printLevel(std::string& out, bool withParts, std::size_t depth) const;

    std::uint64_t m_id;
    std::string m_name;
    EntityId m_entity;
    Node* m_parent = nullptr; ///< Not owned; the parent owns this node.
    std::vector<std::unique_ptr<Node>> m_children;
    std::unordered_map<std::uint64_t, Node*> m_childById; ///< Used from a number of children on.
    double m_transform[16];                               ///< With the displacement.
    double m_homePlace[3] = {}; ///< Translation of the transform without it.
    double m_displacement[3] = {};
    bool m_visible = true;
    bool m_highlighted = false;
    bool m_selected = false;
    bool m_picked = false;
    bool m_auxiliary = false;
    std::optional<RGBAColor> m_color;
    float m_opacity = 1.0f;
    NodeStamps m_stamps;
    mutable VizBox m_bounds;
    mutable bool m_boundsKept = false;
};

/// What a RenderId names below a root.
struct NodeMatch
{
    Node* node = nullptr;   ///< Not owned; null when the id names nothing.
    std::int64_t part = -1; ///< Part index in the node's geometry; -1 for the node itself.
};

/// Follows the path of an id from the children of @p root. Where a GeoNode has neither a child nor
/// a part of the next id, or ids are left over, nothing is found; an empty path finds nothing. The
/// origin is not looked at.
TAMBVIZCORE_API NodeMatch FindRenderId(Node& root, const RenderId& id);

/// Computes the box of a node (Node::WorldBounds) or of a part, in world units.
/// @return false, with @p box empty, when the id names nothing or nothing with a box.
TAMBVIZCORE_API bool GetRenderIdBox(Node& root, const RenderId& id, VizBox& box);

/// Finds the entity that an item draws: that of the node, or of the nearest node above that has
/// one. A part whose id is MakePartId(kind, index) becomes the sub-entity of that kind and index.
/// @return false, with @p entity cleared, when the id names nothing, no entity is set, or the part
///         has another id.
TAMBVIZCORE_API bool GetRenderIdEntity(Node& root, const RenderId& id, EntityId& entity);

/// Finds the id of what draws an entity, down to the part when the entity names a sub-entity.
/// @return false, with @p id cleared, when nothing below @p root draws it.
TAMBVIZCORE_API bool FindEntityRenderId(Node& root, const EntityId& entity, RenderId& id);

} // namespace TambVizCore

#endif
