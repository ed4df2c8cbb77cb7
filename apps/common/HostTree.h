#ifndef APPSCOMMON_HOSTTREE_H
#define APPSCOMMON_HOSTTREE_H

#include "HostTreeRow.h"

#include <OrvikCore/AViewTree.h>
#include <TambVizCore/RenderId.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace Pellux {

/// Told what becomes of a HostTree; a window keeps its widget in step with it. Main thread.
class IHostTreeObserver
{
public:
    virtual ~IHostTreeObserver() = default;

    /// Rows were added, changed or removed; called once at the end of a construction.
    virtual void RowsChanged() = 0;
    virtual void HighlightChanged() = 0;
    /// Asks to open what lies above a row and to scroll to it.
    virtual void ShowRow(const HostTreeRow& row) = 0;

    /// New rows, with all below them, are about to be counted by HostTreeRow::AnnouncedCount() of
    /// @p parent, whose other rows stay where they are. RowsAnnounced() follows when they are.
    ///
    /// @param first, last  The positions of the first and the last new row.
    virtual void RowsAboutToBeAnnounced(const HostTreeRow& parent, std::size_t first,
                                        std::size_t last);
    virtual void RowsAnnounced();

    /// All rows are about to go; RowsCleared() follows when they are gone.
    virtual void RowsAboutToBeCleared();
    virtual void RowsCleared();
};

/// The model tree in memory, for every host: one without windows prints it, one with windows shows
/// it.
///
/// A row that is opened again with an id that is there keeps its place and the rows below it; it
/// takes the new text unless the construction is incremental. Rows below an unfilled row come on
/// Fill(), and on EnsureNodeVisible(). What is highlighted is remembered by
/// its path: while its row is not built yet, the nearest row above that is unfilled stands for it.
///
/// Owns its builder, which has a style for every kind of row. @thread Main thread.
class HostTree final : public OrvikCore::AViewTree
{
public:
    /// Builds the rows below one row; false when there are none.
    using FillRows = std::function<bool(const TambVizCore::RenderId& path)>;

    /// @param fillRows  Asked once for each row that is filled; may be empty.
    explicit HostTree(FillRows fillRows);
    ~HostTree() override;

    HostTree(const HostTree&) = delete;
    HostTree& operator=(const HostTree&) = delete;

    void ConstructionBegin(bool incremental) override;
    void ConstructionEnd() override;
    bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                    OrvikCore::ATreeItemStyle const* style) override;
    bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                  OrvikCore::ATreeItemStyle const* style) override;
    void CloseNode() override;
    /// What is highlighted stays so, once its row is there again.
    void ClearAll() override;
    void SetCurrentNodeEnabled(bool const& enabled) override;
    void HighlightNode(TambVizCore::RenderId const& path) override;
    void ClearHighlight() override;
    OrvikCore::TreeBuilder* GetTreeBuilder() override;
    void EnsureNodeVisible(TambVizCore::RenderId const& path) override;
    /// Counts the rows that are built; see Fill().
    int GetChildrenCountForNode(TambVizCore::RenderId const& path) override;

    /// @return what holds the top rows; no row itself.
    const HostTreeRow& Root() const { return *m_root; }

    /// @return the row; null when it is not there or not built. Not owned, valid until the rows
    ///         change.
    const HostTreeRow* Find(const TambVizCore::RenderId& path) const;

    /// @return the rows that show what is highlighted, in no order. Not owned, valid until the rows
    ///         or the highlight change.
    std::vector<const HostTreeRow*> HighlightedRows() const;

    /// Builds the rows below a row; nothing when it is filled already or not there.
    void Fill(const TambVizCore::RenderId& path);

    /// Fills every row.
    void FillAll();

    /// Keeps @p observer (not owned, may be null).
    void SetObserver(IHostTreeObserver* observer);

private:
    struct Construction
    {
        std::size_t firstOpen = 0; ///< How many rows were open when it began.
        bool isIncremental = false;
    };

    HostTreeRow* find(const TambVizCore::RenderId& path) const;
    HostTreeRow* findHighlightRow(const TambVizCore::RenderId& path) const;
    std::size_t firstOpen() const;
    HostTreeRow& enterRow(std::uint64_t id, const std::wstring& name,
                          const OrvikCore::ATreeItemStyle* style);
    void fill(HostTreeRow& row);
    bool askForRows(const HostTreeRow& row);
    void fillBelow(HostTreeRow& row);
    void showHighlight(const TambVizCore::RenderId& path);
    void showAllHighlights();
    void notifyRows();
    void announceRows();

    FillRows m_fillRows;
    OrvikCore::ATreeItemStyle m_plainStyle;
    std::unique_ptr<OrvikCore::TreeBuilder> m_builder;
    std::unique_ptr<HostTreeRow> m_root;
    std::vector<HostTreeRow*> m_open;                   ///< Not owned; the innermost last.
    std::vector<Construction> m_constructions;          ///< Those that go on, the innermost last.
    HostTreeRow* m_current = nullptr;                   ///< Not owned; entered last and not closed.
    std::unordered_set<TambVizCore::RenderId> m_wanted; ///< Paths of what is highlighted.
    /// The rows that show what is highlighted (not owned), with the paths that each stands for.
    std::unordered_map<HostTreeRow*, std::vector<TambVizCore::RenderId>> m_highlighted;
    /// Rows that have got new rows below them since the last announcement (not owned).
    std::vector<HostTreeRow*> m_grown;
    bool m_isFilling = false;
    IHostTreeObserver* m_observer = nullptr; ///< Not owned.
};

} // namespace Pellux

#endif
