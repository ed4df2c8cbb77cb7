#include "TreeReport.h"

#include "JsonText.h"

#include <TambVizCore/Utils.h>

#include <HostTree.h>

namespace PelluxBatch {
namespace {

using Pellux::HostTreeRow;

/// The name on one line.
std::string nameOf(const HostTreeRow& row)
{
    std::wstring name = row.Text();
    for (wchar_t& c : name)
        if (c < 0x20 || c == 0x7F)
            c = L' ';
    return TambVizCore::Utils::WstringToString(name);
}

void addText(std::string& text, const HostTreeRow& parent, std::size_t level)
{
    for (std::size_t i = 0; i < parent.ChildCount(); ++i) {
        const HostTreeRow& row = parent.ChildAt(i);
        text += std::string(2 * level, ' ') + row.KindWord() + " " + nameOf(row) + "\n";
        addText(text, row, level + 1);
    }
}

std::string pathOf(const HostTreeRow& row)
{
    const TambVizCore::RenderId path = row.Path();
    std::string text;
    for (int i = 0; i < path.Length(); ++i)
        text += (i == 0 ? "" : ", ") + std::to_string(path[i]);
    return "[" + text + "]";
}

void addJson(std::string& text, const HostTreeRow& parent)
{
    text += "[";
    for (std::size_t i = 0; i < parent.ChildCount(); ++i) {
        const HostTreeRow& row = parent.ChildAt(i);
        text += i == 0 ? "" : ", ";
        text += "{\"path\": " + pathOf(row) + ", \"kind\": \"" + row.KindWord() +
                "\", \"name\": " + JsonQuoted(row.Text());
        if (row.IsHighlighted())
            text += ", \"highlighted\": true";
        text += ", \"children\": ";
        addJson(text, row);
        text += "}";
    }
    text += "]";
}

} // namespace

std::string DescribeTreeText(const Pellux::HostTree& tree)
{
    std::string text;
    addText(text, tree.Root(), 0);
    return text;
}

std::string DescribeTreeJson(const Pellux::HostTree& tree)
{
    std::string text = "{\"tree\": ";
    addJson(text, tree.Root());
    return text + "}\n";
}

} // namespace PelluxBatch
