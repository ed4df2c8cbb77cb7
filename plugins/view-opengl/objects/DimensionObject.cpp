#include "objects/DimensionObject.h"

#include "objects/DrawingObjects.h"
#include "objects/ObjectGeometry.h"
#include "text/TextLabels.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <cmath>

namespace ViewOpenGl {

using OrvikCore::Dimension;
using OrvikCore::TextDirection;
using OrvikCore::TextItem3D;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::RGBAColor;

namespace {

constexpr RGBAColor kColor{178, 34, 94};
constexpr RGBAColor kRimColor{255, 255, 255};
constexpr RGBAColor kTextBackground{255, 255, 255, 230};

// Pixels of the window.
constexpr float kLinePixels = 2.0f;
constexpr float kRimPixels = 5.0f;
constexpr double kHeadPixels = 13.0;
constexpr float kTextPixels = 12.0f;   ///< Height of a capital letter.
constexpr double kTextGapPixels = 7.0; ///< Between line and text.
constexpr double kLetterShare = 0.85;  ///< Width of a letter, as a share of that height.
constexpr double kRoomForHeads = 3.0;  ///< Lengths of a head that a line has at least.

/// Two ways that differ by less, as a share of their lengths, are the same.
constexpr double kRounding = 1e-9;

/// Children of the node; the rim comes first, so that lines are drawn over it.
enum ChildId : std::uint64_t
{
    kRim = 1,
    kLine,
    kFirstHead,
    kLastHead
};

bool isFinite(const Dimension::Point& point)
{
    return std::all_of(point.begin(), point.end(), [](double v) { return std::isfinite(v); });
}

double distanceBetween(const Dimension::Point& a, const Dimension::Point& b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

bool isFinite(const Dimension& dimension)
{
    const auto allFinite = [](const std::vector<Dimension::Point>& points) {
        return std::all_of(points.begin(), points.end(),
                           [](const Dimension::Point& point) { return isFinite(point); });
    };
    return allFinite(dimension.line) &&
           std::all_of(dimension.legs.begin(), dimension.legs.end(), allFinite);
}

void moveBy(const Dimension::Point& shift, std::vector<Dimension::Point>& points)
{
    for (Dimension::Point& point : points)
        for (std::size_t i = 0; i < 3; ++i)
            point[i] += shift[i];
}

/// @return how far a node is shown from where it belongs, world units; 0 for null.
Dimension::Point shiftOf(const Node* node)
{
    double home[16];
    double shown[16];
    TambVizCore::SetIdentity(home);
    TambVizCore::SetIdentity(shown);
    for (; node != nullptr; node = node->Parent()) {
        double own[16];
        double product[16];
        node->GetHomeTransform(own);
        TambVizCore::MultiplyMatrices(own, home, product);
        std::copy_n(product, 16, home);
        TambVizCore::MultiplyMatrices(node->Transform(), shown, product);
        std::copy_n(product, 16, shown);
    }
    return {shown[12] - home[12], shown[13] - home[13], shown[14] - home[14]};
}

bool isSame(const Dimension::Point& a, const Dimension::Point& b)
{
    const double size = std::hypot(a[0], a[1], a[2]) + std::hypot(b[0], b[1], b[2]);
    return distanceBetween(a, b) <= kRounding * size;
}

} // namespace

DimensionObject::DimensionObject(Node& parent, TextLabels& labels, const Dimension& dimension)
    : NodeObject(parent), m_labels(labels), m_home(dimension), m_dimension(dimension)
{
    name = "Dimension";
    findMiddle();
}

DimensionObject::~DimensionObject()
{
    m_labels.Remove(Id());
}

void DimensionObject::SetIsVisible(bool const& isVisible)
{
    NodeObject::SetIsVisible(isVisible);
    show();
}

void DimensionObject::doDisplay()
{
    show();
}

void DimensionObject::show()
{
    const bool isShown = visible && m_isTogether;
    if (m_node != nullptr)
        m_node->SetVisible(isShown);
    m_labels.SetVisible(Id(), isShown);
}

void DimensionObject::Follow(Node& model)
{
    if (m_modelStamp == model.Stamps().subtree)
        return;
    m_modelStamp = model.Stamps().subtree;
    Point shift{};
    m_isTogether = true;
    for (std::size_t i = 0; i < m_home.measured.size(); ++i) {
        const Point moved = shiftOf(model.FindEntity(m_home.measured[i]));
        if (i == 0)
            shift = moved;
        m_isTogether &= isSame(moved, shift);
    }
    moveTo(shift);
    show();
}

void DimensionObject::moveTo(const Point& shift)
{
    if (shift == m_shift)
        return;
    m_shift = shift;
    m_dimension = m_home;
    moveBy(shift, m_dimension.line);
    for (std::vector<Point>& leg : m_dimension.legs)
        moveBy(shift, leg);
    findMiddle();
    if (m_node == nullptr)
        return;
    doClear();
    doRender();
}

void DimensionObject::findMiddle()
{
    const std::vector<Point>& line = m_dimension.line;
    m_length = 0.0;
    for (std::size_t i = 1; i < line.size(); ++i)
        m_length += distanceBetween(line[i - 1], line[i]);
    if (!line.empty())
        m_middle = line.front();
    double left = 0.5 * m_length;
    for (std::size_t i = 1; i < line.size() && m_length > 0.0; ++i) {
        const double step = distanceBetween(line[i - 1], line[i]);
        if (step > 0.0 && left <= step) {
            for (std::size_t k = 0; k < 3; ++k) {
                m_along[k] = (line[i][k] - line[i - 1][k]) / step;
                m_middle[k] = line[i - 1][k] + left * m_along[k];
            }
            return;
        }
        left -= step;
    }
}

/// @return the ends of all segments, from the first point of the line.
std::vector<float> DimensionObject::segments() const
{
    std::vector<float> points;
    const Point& origin = m_dimension.line.front();
    const auto add = [&](const std::vector<Point>& polyline) {
        for (std::size_t i = 1; i < polyline.size(); ++i)
            for (const Point& end : {polyline[i - 1], polyline[i]})
                for (std::size_t k = 0; k < 3; ++k)
                    points.push_back(static_cast<float>(end[k] - origin[k]));
    };
    add(m_dimension.line);
    for (const std::vector<Point>& leg : m_dimension.legs)
        add(leg);
    return points;
}

Node* DimensionObject::build(Node& parent)
{
    if (m_dimension.line.empty() || !isFinite(m_dimension))
        return nullptr;
    Node* const node = parent.CreateChildNode(Id(), "Dimension");
    double place[16];
    TambVizCore::SetIdentity(place);
    std::copy_n(m_dimension.line.front().data(), 3, place + 12);
    const auto lines = MakeSegments(segments());
    for (const std::uint64_t child : {kRim, kLine}) {
        GeoNode* const drawn = node->CreateChildGeoNode(child);
        drawn->SetTransform(place);
        drawn->SetGeometry(lines);
        drawn->SetColor(child == kRim ? kRimColor : kColor);
    }
    if (m_length > 0.0) {
        const auto head = MakeHead();
        for (const std::uint64_t child : {kFirstHead, kLastHead}) {
            if (child == kFirstHead && !m_dimension.startsWithHead)
                continue;
            GeoNode* const drawn = node->CreateChildGeoNode(child);
            drawn->SetGeometry(head);
            drawn->SetColor(kColor);
        }
    }
    return node;
}

void DimensionObject::doRender()
{
    NodeObject::doRender();
    if (m_node == nullptr)
        return;
    m_labels.Add(Id(),
                 TextItem3D(m_dimension.text, /*facesCamera=*/true, L"",
                            static_cast<float>(m_middle[0]), static_cast<float>(m_middle[1]),
                            static_cast<float>(m_middle[2]), TextDirection::PositiveX,
                            TextDirection::PositiveY, /*bold=*/false, /*italic=*/false, kTextPixels,
                            0.0f, 0.0f, L"", kColor, kTextBackground),
                 LabelStart::MiddleAtAnchor);
    show();
}

void DimensionObject::doClear()
{
    NodeObject::doClear();
    m_labels.Remove(Id());
}

void DimensionObject::Adapt(const PictureScale& scale)
{
    if (m_node == nullptr)
        return;
    const auto width = static_cast<float>(scale.pixelScale);
    m_node->FindChild(kRim)->AsGeoNode()->SetLineWidthPixels(kRimPixels * width);
    m_node->FindChild(kLine)->AsGeoNode()->SetLineWidthPixels(kLinePixels * width);
    if (m_length > 0.0) {
        const std::vector<Point>& line = m_dimension.line;
        if (m_dimension.startsWithHead)
            placeHead(kFirstHead, line.front(), line[1], scale);
        placeHead(kLastHead, line.back(), line[line.size() - 2], scale);
    }
    placeText(scale);
}

void DimensionObject::placeHead(std::uint64_t childId, const Point& tip, const Point& before,
                                const PictureScale& scale)
{
    const double step = distanceBetween(tip, before);
    const double size = kHeadPixels * scale.PixelAt(tip.data());
    const double side = m_length < kRoomForHeads * size ? -1.0 : 1.0;
    Node* const head = m_node->FindChild(childId);
    double base[3];
    for (std::size_t i = 0; i < 3; ++i)
        base[i] = tip[i] - (step > 0.0 ? side * size * (tip[i] - before[i]) / step : 0.0);
    double place[16];
    const bool isPlaced = PlaceArrow(base, tip.data(), place);
    head->SetVisible(isPlaced);
    if (isPlaced)
        head->SetTransform(place);
}

/// Beside the line as it is seen, above it or right of it.
void DimensionObject::placeText(const PictureScale& scale)
{
    Point ahead = m_middle;
    const double step = scale.PixelAt(m_middle.data());
    for (std::size_t i = 0; i < 3; ++i)
        ahead[i] += step * m_along[i];
    const auto from = scale.PlaceOf(m_middle.data());
    const auto to = scale.PlaceOf(ahead.data());
    double across[2] = {from[1] - to[1], to[0] - from[0]};
    const double length = std::hypot(across[0], across[1]);
    if (!(length > 1e-3)) {
        across[0] = 0.0;
        across[1] = 1.0;
    } else {
        const double sign = across[1] < 0.0 ? -1.0 : 1.0;
        across[0] *= sign / length;
        across[1] *= sign / length;
    }
    const double halfWidth = 0.5 * kLetterShare * static_cast<double>(kTextPixels) *
                             static_cast<double>(m_dimension.text.size());
    const double halfHeight = 0.5 * static_cast<double>(kTextPixels);
    const double away = kTextGapPixels + std::abs(across[0]) * halfWidth + across[1] * halfHeight;
    m_labels.SetOffset(Id(), static_cast<float>(std::round(away * across[0])),
                       static_cast<float>(std::round(away * across[1] - halfHeight)));
}

} // namespace ViewOpenGl
