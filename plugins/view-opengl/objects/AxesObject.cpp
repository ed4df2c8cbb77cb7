#include "objects/AxesObject.h"

#include "objects/DrawingObjects.h"
#include "objects/ObjectGeometry.h"

#include <TambVizCore/GeoNode.h>

#include <algorithm>
#include <array>
#include <vector>

namespace ViewOpenGl {

using TambVizCore::Node;
using TambVizCore::RGBAColor;

namespace {

constexpr std::array<RGBAColor, 3> kColors = {RGBAColor(214, 48, 49), RGBAColor(46, 160, 67),
                                              RGBAColor(45, 108, 223)};
constexpr double kLetterPlace = 1.2; ///< Of the middle of a letter along its axis.
constexpr double kLetterSize = 0.26; ///< Height of a letter.
constexpr std::uint64_t kFirstLetterId = 4;

/// The strokes of a letter in the square from -0.5 to 0.5.
std::vector<float> letterStrokes(int axis)
{
    constexpr float kSide = 0.36f;
    constexpr float kTop = 0.5f;
    switch (axis) {
    case 0:
        return {-kSide, -kTop, 0, kSide, kTop, 0, -kSide, kTop, 0, kSide, -kTop, 0};
    case 1:
        return {-kSide, kTop, 0, 0, 0, 0, kSide, kTop, 0, 0, 0, 0, 0, 0, 0, 0, -kTop, 0};
    default:
        return {-kSide, kTop,  0, kSide,  kTop,  0, kSide, kTop,  0,
                -kSide, -kTop, 0, -kSide, -kTop, 0, kSide, -kTop, 0};
    }
}

} // namespace

AxesObject::AxesObject(Node& parent) : NodeObject(parent)
{
    name = kAxesName;
    visible = false;
}

double AxesObject::Reach()
{
    return kLetterPlace + kLetterSize;
}

Node* AxesObject::build(Node& parent)
{
    const auto arrow = MakeArrow();
    if (arrow == nullptr)
        return nullptr;
    Node* const node = parent.CreateChildNode(Id(), kAxesName);
    const double origin[3] = {0.0, 0.0, 0.0};
    for (int axis = 0; axis < 3; ++axis) {
        const auto number = static_cast<std::uint64_t>(axis);
        TambVizCore::GeoNode* const shaft = node->CreateChildGeoNode(1 + number);
        double to[3] = {0.0, 0.0, 0.0};
        to[axis] = 1.0;
        double place[16];
        PlaceArrow(origin, to, place);
        // In the corner an arrow is small: it is drawn thicker than others.
        for (int i = 0; i < 8; ++i)
            place[i] *= 2.0;
        shaft->SetTransform(place);
        shaft->SetGeometry(arrow);
        shaft->SetColor(kColors[static_cast<std::size_t>(axis)]);
        TambVizCore::GeoNode* const letter = node->CreateChildGeoNode(kFirstLetterId + number);
        letter->SetGeometry(MakeSegments(letterStrokes(axis)));
        letter->SetColor(kColors[static_cast<std::size_t>(axis)]);
        letter->SetLineWidthPixels(2.0f);
    }
    return node;
}

void AxesObject::Turn(const double* view)
{
    if (m_node == nullptr)
        return;
    for (int axis = 0; axis < 3; ++axis) {
        Node* const letter = m_node->FindChild(kFirstLetterId + static_cast<std::uint64_t>(axis));
        double place[16] = {};
        for (int row = 0; row < 3; ++row)
            for (int column = 0; column < 3; ++column)
                place[4 * column + row] = kLetterSize * view[4 * row + column];
        place[12 + axis] = kLetterPlace;
        place[15] = 1.0;
        letter->SetTransform(place);
    }
}

} // namespace ViewOpenGl
