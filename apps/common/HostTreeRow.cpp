#include "HostTreeRow.h"

#include <algorithm>
#include <utility>

namespace Pellux {
namespace {

using OrvikCore::ATreeItemStyle;
using OrvikCore::TreeBuilder;
using Kind = TreeBuilder::TreeItemStyles;

/// With fewer children a walk finds one as fast as a table does.
constexpr std::size_t kTableFrom = 32;

enum class Look
{
    Plain,
    Bold,
    Italic,
};

struct KindEntry
{
    Kind kind;
    const char* word;
    Look look;
};

constexpr KindEntry kKinds[] = {
    {Kind::Scene, "scene", Look::Bold},
    {Kind::Container, "container", Look::Bold},
    {Kind::Body, "body", Look::Plain},
    {Kind::Assembly, "assembly", Look::Bold},
    {Kind::AssemblyReference, "assembly-reference", Look::Plain},
    {Kind::PointCloud, "point-cloud", Look::Plain},
    {Kind::PMI, "pmi", Look::Italic},
    {Kind::PMIType, "pmi-type", Look::Italic},
    {Kind::PolyBody, "mesh", Look::Plain},
    {Kind::Geometry, "geometry", Look::Plain},
    {Kind::Wire, "wire", Look::Plain},
    {Kind::PMIType10101, "dimensions", Look::Italic},
    {Kind::PMIType10102, "geometric-tolerances", Look::Italic},
    {Kind::PMIType10103, "datums", Look::Italic},
    {Kind::PMIType10104, "notes", Look::Italic},
    {Kind::PMIType10105, "surface-finishes", Look::Italic},
    {Kind::Views, "views", Look::Italic},
    {Kind::View, "view", Look::Plain},
    {Kind::Captures, "captures", Look::Italic},
    {Kind::Capture, "capture", Look::Plain},
    {Kind::FTAGeometry, "annotation", Look::Plain},
    {Kind::PointSet, "point-set", Look::Plain},
};

} // namespace

RowStyle::RowStyle(Kind kind, const char* word, bool isBold, bool isItalic)
    : ATreeItemStyle(isBold, isItalic), m_kind(kind), m_word(word)
{
}

void AddRowStyles(TreeBuilder& builder)
{
    for (const KindEntry& entry : kKinds)
        builder.AddStyle(entry.kind, new RowStyle(entry.kind, entry.word, entry.look == Look::Bold,
                                                  entry.look == Look::Italic));
}

HostTreeRow::HostTreeRow(std::uint64_t id, std::wstring text, const ATreeItemStyle& style)
    : ATreeItem(style), m_id(id), m_text(std::move(text))
{
}

HostTreeRow::~HostTreeRow() = default;

const char* HostTreeRow::KindWord() const
{
    const auto* const style = dynamic_cast<const RowStyle*>(defaultStyle);
    return style == nullptr ? "row" : style->Word();
}

bool HostTreeRow::GetKind(RowStyle::Kind& kind) const
{
    const auto* const style = dynamic_cast<const RowStyle*>(defaultStyle);
    if (style != nullptr)
        kind = style->GetKind();
    return style != nullptr;
}

bool HostTreeRow::IsBold() const
{
    return currentStyle->IsFontBold();
}

bool HostTreeRow::IsItalic() const
{
    return currentStyle->IsFontItalic();
}

const HostTreeRow* HostTreeRow::FindChild(std::uint64_t id) const
{
    return findChild(id);
}

TambVizCore::RenderId HostTreeRow::Path() const
{
    std::vector<std::uint64_t> ids;
    for (const HostTreeRow* row = this; row->m_parent != nullptr; row = row->m_parent)
        ids.push_back(row->m_id);
    TambVizCore::RenderId path(TambVizCore::RenderId::kOriginTree);
    for (auto id = ids.rbegin(); id != ids.rend(); ++id)
        path.AddValue(*id);
    return path;
}

void HostTreeRow::applyStyle(const ATreeItemStyle& /*style*/)
{
    // The looks are read from the current style.
}

HostTreeRow* HostTreeRow::findChild(std::uint64_t id) const
{
    if (m_childById) {
        const auto found = m_childById->find(id);
        return found == m_childById->end() ? nullptr : found->second;
    }
    const auto found = std::find_if(m_children.begin(), m_children.end(),
                                    [id](const auto& child) { return child->m_id == id; });
    return found == m_children.end() ? nullptr : found->get();
}

HostTreeRow& HostTreeRow::addChild(std::unique_ptr<HostTreeRow> child)
{
    child->m_parent = this;
    child->m_position = m_children.size();
    m_children.push_back(std::move(child));
    if (m_childById) {
        m_childById->emplace(m_children.back()->m_id, m_children.back().get());
    } else if (m_children.size() == kTableFrom) {
        m_childById = std::make_unique<std::unordered_map<std::uint64_t, HostTreeRow*>>();
        for (const auto& present : m_children)
            m_childById->emplace(present->m_id, present.get());
    }
    return *m_children.back();
}

void HostTreeRow::removeChildren()
{
    m_childById.reset();
    m_children.clear();
    m_announced = 0;
}

} // namespace Pellux
