#include "objects/RotationMark.h"

#include "objects/ObjectGeometry.h"

#include <TambVizCore/GeoNode.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace ViewOpenGl {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::RGBAColor;

namespace {

constexpr RGBAColor kColor{230, 126, 34};
constexpr RGBAColor kRimColor{255, 255, 255};

// Pixels of the window.
constexpr double kRadiusPixels = 11.0;
constexpr float kLinePixels = 2.0f;
constexpr float kRimPixels = 5.0f;

constexpr int kAround = 32; ///< Corners of a circle.

/// Children of the node; the rim comes first, so that lines are drawn over it.
enum ChildId : std::uint64_t
{
    kRim = 1,
    kLine
};

/// Three circles with the radius 1 around the origin, as segments.
std::vector<float> circles()
{
    std::vector<float> points;
    for (int axis = 0; axis < 3; ++axis)
        for (int i = 0; i < kAround; ++i)
            for (const int corner : {i, (i + 1) % kAround}) {
                const float angle = 2.0f * std::numbers::pi_v<float> * static_cast<float>(corner) /
                                    static_cast<float>(kAround);
                float point[3] = {};
                point[(axis + 1) % 3] = std::cos(angle);
                point[(axis + 2) % 3] = std::sin(angle);
                points.insert(points.end(), point, point + 3);
            }
    return points;
}

} // namespace

RotationMark::RotationMark(Node& parent) : NodeObject(parent)
{
    name = kRotationMarkName;
    visible = false;
}

Node* RotationMark::build(Node& parent)
{
    const auto lines = MakeSegments(circles());
    Node* const node = parent.CreateChildNode(Id(), kRotationMarkName);
    for (const std::uint64_t child : {kRim, kLine}) {
        GeoNode* const drawn = node->CreateChildGeoNode(child);
        drawn->SetGeometry(lines);
        drawn->SetColor(child == kRim ? kRimColor : kColor);
    }
    return node;
}

void RotationMark::Adapt(const PictureScale& scale, const double* center, bool isTurning)
{
    const bool isShown = IsVisible() || isTurning;
    if (isShown)
        Render();
    if (m_node == nullptr)
        return;
    m_node->SetVisible(isShown);
    if (!isShown)
        return;
    const double radius = kRadiusPixels * scale.PixelAt(center);
    const double place[16] = {radius, 0, 0,      0, 0,         radius,    0,         0,
                              0,      0, radius, 0, center[0], center[1], center[2], 1};
    m_node->SetTransform(place);
    const auto width = static_cast<float>(scale.pixelScale);
    m_node->FindChild(kRim)->AsGeoNode()->SetLineWidthPixels(kRimPixels * width);
    m_node->FindChild(kLine)->AsGeoNode()->SetLineWidthPixels(kLinePixels * width);
}

} // namespace ViewOpenGl
