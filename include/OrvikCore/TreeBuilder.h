#ifndef ORVIKCORE_TREEBUILDER_H
#define ORVIKCORE_TREEBUILDER_H

#include "OrvikCore/Export.h"

#include <TambVizCore/RenderId.h>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace TambVizCore {
class EntityId;
} // namespace TambVizCore

namespace OrvikCore {

class ATreeItemStyle;
class AViewTree;

/// Fills the model tree from a traversal of a content, and translates tree paths into entities.
///
/// A construction is ConstructionBegin(), properly nested Begin and End calls, ConstructionEnd();
/// constructions nest. Each Begin opens a row in the style registered for its kind. Without a view
/// every forwarding operation does nothing. The builder owns its styles and keeps them for life.
///
/// @thread Main thread.
class ORVIKCORE_API TreeBuilder
{
public:
    /// The kind of a row: keys its style and the context-menu items offered for it.
    enum class TreeItemStyles : std::int32_t
    {
        Scene = 1,
        Container = 2,
        Body = 4,
        Assembly = 13,
        AssemblyReference = 14,
        PointCloud = 15,
        PMI = 16,
        PMIType = 17,  ///< Every PMI type without a style of its own.
        PolyBody = 18, ///< Polygon bodies and meshes alike.
        Geometry = 19,
        Wire = 20,
        PMIType10101 = 21,
        PMIType10103 = 23,
        PMIType10105 = 28,
        PMIType10102 = 30,
        PMIType10104 = 32,
        Views = 34,
        View = 35,
        Captures = 36,
        Capture = 37,
        FTAGeometry = 39,
        // Deliberate: far from its neighbours.
        // Held by TreeBuilderPairs.BeginOpensARowInItsStyleAndEndClosesIt.
        PointSet = 74
    };

    /// Makes a builder (transferred out).
    /// @param view  the tree to fill; not owned, may be null.
    static TreeBuilder* CreateTreeBuilder(AViewTree* view);

    TreeBuilder(const TreeBuilder&) = delete;
    TreeBuilder& operator=(const TreeBuilder&) = delete;

    // Virtual operations in slot order; append only.

    /// Deletes every style.
    virtual ~TreeBuilder();

    /// Forgets the root path and the open rows, and begins a construction in the view.
    virtual void ConstructionBegin();
    virtual void ConstructionEnd();

    // Each Begin opens a row with an id among its siblings and a text; each End closes it.
    // SceneBegin and ContainerBegin also lengthen the root path, which no End shortens.
    virtual void SceneBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void SceneEnd();
    virtual void ContainerBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void ContainerEnd();
    virtual void BodyBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void BodyEnd();
    virtual void AssemblyBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void AssemblyEnd();
    virtual void AssemblyReferenceBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void AssemblyReferenceEnd();
    virtual void PointCloudBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void PointCloudEnd();
    virtual void PMIBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void PMIEnd();

    /// Opens a row for one type of PMI.
    /// @param id  the type's number; 10101 to 10105 have styles of their own.
    virtual void PMITypeBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void PMITypeEnd();
    virtual void PolyBodyBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void PolyBodyEnd();
    virtual void ViewsBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void ViewsEnd();
    virtual void ViewBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void ViewEnd();
    virtual void CapturesBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void CapturesEnd();
    virtual void CaptureBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void CaptureEnd();
    virtual void FTAGeometryBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void FTAGeometryEnd();
    virtual void GeometryBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void GeometryEnd();
    virtual void MeshBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void MeshEnd();
    virtual void WireBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void WireEnd();
    virtual void PointSetBegin(std::uint64_t const& id, std::wstring const& name);
    virtual void PointSetEnd();

    /// Opens a row in the style registered for @p kind; an unregistered kind gives a null style.
    virtual void AnyTypeBegin(std::uint64_t const& id, std::wstring const& name,
                              TreeItemStyles const& kind);
    virtual void AnyTypeEnd();

    /// Adds a row below the open row.
    ///
    /// Deliberate: with exactly one row open, id 1 is suppressed: the view sees nothing and the
    /// result is false. Otherwise the id counts as open from now on, whatever the view answers.
    /// Held by TreeBuilder.CreateNodeSuppressesIdOneUnderOneOpenNode.
    ///
    /// @param style  not owned; null for the host's default.
    /// @return       the view's answer; false without a view.
    virtual bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                            ATreeItemStyle const* style);

    /// Adds a row below the open row and opens it.
    /// @return the view's answer; false without a view.
    virtual bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                          ATreeItemStyle const* style);

    /// Closes the row opened last; with none open only the view is told.
    virtual void CloseNode();

    /// Removes every row and forgets the open rows and constructions.
    virtual void ClearAll();

    virtual void SetCurrentNodeEnabled(bool const& enabled);

    /// Writes the path of the row that shows an entity: the root path and then the entity's owner.
    virtual void BuildRenderId(TambVizCore::RenderId& path,
                               TambVizCore::EntityId const& entity) const;

    /// Finds the entity that a row shows; @p entity stays cleared when there is none, as for an
    /// empty path. Asks the current session's tree renderer where the path alone does not tell.
    virtual void ExtractEntityId(TambVizCore::RenderId const& path,
                                 TambVizCore::EntityId& entity) const;

    /// Writes the path of the open row, with the origin of the model tree.
    /// @return false without a view or an open row; @p path is then left alone.
    virtual bool GetCurrentRenderId(TambVizCore::RenderId& path);

    /// Returns the view's answer; -1 without a view.
    virtual int GetChildrenCountForNode(TambVizCore::RenderId const& path);

    /// Registers a style (transferred in) for a kind. An entry that the kind has already, be it
    /// null, is kept, and @p style then stays the caller's.
    void AddStyle(TreeItemStyles kind, ATreeItemStyle* style);

    /// Returns the tree that is filled; not owned, may be null.
    AViewTree* GetView();

protected:
    explicit TreeBuilder(AViewTree* view);

private:
    void appendToRootPath(std::uint64_t id);
    bool extractViewOrCapture(TambVizCore::RenderId const& path,
                              TambVizCore::EntityId& entity) const;

    AViewTree* view;                                  ///< Not owned.
    TambVizCore::RenderId rootPath;                   ///< Scenes and containers met so far.
    std::map<TreeItemStyles, ATreeItemStyle*> styles; ///< Owned.
    std::vector<std::uint64_t> m_openIds;             ///< Ids of the open rows, innermost last.
    int constructionDepth = 0;
};

} // namespace OrvikCore

#endif
