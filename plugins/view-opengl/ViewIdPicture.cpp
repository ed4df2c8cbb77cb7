// What the view draws where, by name instead of colour.
#include "IdTarget.h"
#include "View3dOpenGlSG.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>

#include <string>
#include <unordered_map>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::IdPicture;
using TambVizCore::RenderId;

RenderId nameOf(const GeoNode& node, std::uint32_t partIndex)
{
    RenderId id = node.GetRenderId();
    const auto& parts = node.GetGeometry()->Parts();
    if (partIndex < parts.size())
        id.AddValue(parts[partIndex].id);
    return id;
}

/// Replaces pairs of a node's number and a part index by positions in a list of names.
void nameItems(const std::vector<std::uint32_t>& items, const std::vector<const GeoNode*>& nodes,
               IdPicture& picture)
{
    std::unordered_map<std::uint64_t, std::uint32_t> numbers;
    picture.pixels.reserve(items.size() / 2);
    for (std::size_t i = 0; i + 1 < items.size(); i += 2) {
        if (items[i] == 0) {
            picture.pixels.push_back(0);
            continue;
        }
        const auto [known, isNew] =
            numbers.try_emplace(std::uint64_t{items[i]} << 32 | items[i + 1],
                                static_cast<std::uint32_t>(picture.items.size() + 1));
        if (isNew)
            picture.items.push_back(nameOf(*nodes[items[i] - 1], items[i + 1]));
        picture.pixels.push_back(known->second);
    }
}

} // namespace

bool View3dOpenGlSG::ReadIdPicture(int width, int height, IdPicture& picture)
{
    return preparePicture(width, height) && drawIdPicture(width, height, picture);
}

bool View3dOpenGlSG::drawIdPicture(int width, int height, IdPicture& picture)
{
    if (std::string reason = m_context->Limits().Refusal(width, height); !reason.empty())
        return refusePicture(std::move(reason));
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return refusePicture("the OpenGL context cannot be made current");
    IdTarget target(width, height);
    if (const FramebufferAnswer answer = target.Bind(); !answer.IsGood())
        return refusePicture(answer.Refusal(width, height, 1));
    // A frame that is half drawn begins anew.
    m_progress = StageProgress::None;
    std::vector<const GeoNode*> nodes;
    m_renderer.DrawIds(*m_root, *GetRenderingOptions(), projectionOf(width, height), nodes);
    IdTarget::Pixels pixels = target.Read();
    m_renderer.EndFrame();
    if (const GLenum error = glGetError(); error != GL_NO_ERROR)
        return refusePicture("OpenGL error " + std::to_string(error) + " while drawing ids");
    picture = {};
    picture.width = width;
    picture.height = height;
    picture.depths = std::move(pixels.depths);
    nameItems(pixels.items, nodes, picture);
    return true;
}

} // namespace ViewOpenGl
