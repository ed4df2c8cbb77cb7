#ifndef APPSCOMMON_HOSTTREEROW_H
#define APPSCOMMON_HOSTTREEROW_H

#include <OrvikCore/ATreeItem.h>
#include <OrvikCore/ATreeItemStyle.h>
#include <OrvikCore/TreeBuilder.h>
#include <TambVizCore/RenderId.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace Pellux {

/// How rows of one kind look.
class RowStyle final : public OrvikCore::ATreeItemStyle
{
public:
    using Kind = OrvikCore::TreeBuilder::TreeItemStyles;

    /// @param word  Names the kind for people and programs: "assembly"; lives for ever.
    RowStyle(Kind kind, const char* word, bool isBold, bool isItalic);

    Kind GetKind() const { return m_kind; }
    const char* Word() const { return m_word; }

private:
    Kind m_kind;
    const char* m_word;
};

/// Registers a RowStyle for every kind of row.
/// @param builder  Owns the styles from now on.
void AddRowStyles(OrvikCore::TreeBuilder& builder);

/// One row of the model tree in memory. Owns the rows below it.
/// @thread Main thread.
class HostTreeRow final : public OrvikCore::ATreeItem
{
public:
    /// @param style  Not owned, outlives the row.
    HostTreeRow(std::uint64_t id, std::wstring text, const OrvikCore::ATreeItemStyle& style);
    ~HostTreeRow() override;

    HostTreeRow(const HostTreeRow&) = delete;
    HostTreeRow& operator=(const HostTreeRow&) = delete;

    /// Unique among its siblings.
    std::uint64_t Id() const { return m_id; }
    const std::wstring& Text() const { return m_text; }

    /// Names the kind of the row; "row" for a style that is none of AddRowStyles.
    const char* KindWord() const;
    /// @return false, with @p kind unchanged, for a style that is none of AddRowStyles.
    bool GetKind(RowStyle::Kind& kind) const;
    bool IsBold() const;
    bool IsItalic() const;

    bool IsEnabled() const { return m_isEnabled; }
    bool IsHighlighted() const { return m_isHighlighted; }

    /// Tells whether the rows below it were asked for; until then there may be more than
    /// ChildCount() says.
    bool IsFilled() const { return m_isFilled; }

    /// @return null for the root, which is no row of the tree; not owned.
    const HostTreeRow* Parent() const { return m_parent; }
    std::size_t ChildCount() const { return m_children.size(); }
    /// How many of them the observer of the tree was told of; ChildCount() outside a construction.
    std::size_t AnnouncedCount() const { return m_announced; }
    /// @param position  Below ChildCount().
    const HostTreeRow& ChildAt(std::size_t position) const { return *m_children[position]; }
    /// @return null when there is none; not owned.
    const HostTreeRow* FindChild(std::uint64_t id) const;
    /// The position among its siblings.
    std::size_t Position() const { return m_position; }

    /// The ids from the top row down, with the origin of the model tree; empty for the root.
    TambVizCore::RenderId Path() const;

protected:
    void applyStyle(const OrvikCore::ATreeItemStyle& style) override;

private:
    friend class HostTree;
    HostTreeRow* findChild(std::uint64_t id) const;
    HostTreeRow& addChild(std::unique_ptr<HostTreeRow> child);
    void removeChildren();

    std::uint64_t m_id;
    std::wstring m_text;
    HostTreeRow* m_parent = nullptr; ///< Not owned; owns this row.
    std::vector<std::unique_ptr<HostTreeRow>> m_children;
    /// By id, from a number of children on; null before.
    std::unique_ptr<std::unordered_map<std::uint64_t, HostTreeRow*>> m_childById;
    std::size_t m_position = 0;
    std::size_t m_announced = 0;
    bool m_isEnabled = true;
    bool m_isHighlighted = false;
    bool m_isFilled = false;
};

} // namespace Pellux

#endif
