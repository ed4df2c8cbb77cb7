#include "tree/KindIcons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace Pellux {
namespace {

using Kind = RowStyle::Kind;
using TambVizCore::PartKind;

/// Pictures are drawn on a square of this side.
constexpr double kSide = 16.0;

const QColor kBlue(0x4a, 0x8f, 0xd8);
const QColor kOrange(0xe0, 0x8a, 0x2c);
const QColor kGreen(0x4f, 0xa8, 0x5b);
const QColor kGrey(0x8c, 0x92, 0x9a);
const QColor kViolet(0x9a, 0x74, 0xc9);

void setLine(QPainter& painter, const QColor& color, double width = 1.4)
{
    painter.setPen(QPen(color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

QPolygonF hexagon(double x, double y, double r)
{
    return QPolygonF({{x, y - r},
                      {x + r * 0.87, y - r / 2},
                      {x + r * 0.87, y + r / 2},
                      {x, y + r},
                      {x - r * 0.87, y + r / 2},
                      {x - r * 0.87, y - r / 2}});
}

/// A cube seen from a corner.
void drawCube(QPainter& painter, const QColor& color, double x, double y, double r)
{
    QColor pale = color;
    pale.setAlpha(70);
    setLine(painter, color);
    painter.setBrush(pale);
    painter.drawPolygon(hexagon(x, y, r));
    for (const QPointF& corner :
         {QPointF(x, y + r), QPointF(x + r * 0.87, y - r / 2), QPointF(x - r * 0.87, y - r / 2)})
        painter.drawLine(QPointF(x, y), corner);
}

void drawPaper(QPainter& painter, const QColor& color)
{
    setLine(painter, color);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(
        QPolygonF({{3.5, 1.5}, {9.5, 1.5}, {12.5, 4.5}, {12.5, 14.5}, {3.5, 14.5}}));
    painter.drawPolyline(QPolygonF({{9.5, 1.5}, {9.5, 4.5}, {12.5, 4.5}}));
}

void drawTriangles(QPainter& painter)
{
    setLine(painter, kGreen, 1.2);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(QPolygonF({{8, 1.5}, {14.5, 13.5}, {1.5, 13.5}}));
    painter.drawPolygon(QPolygonF({{8, 13.5}, {4.75, 7.5}, {11.25, 7.5}}));
}

void drawDots(QPainter& painter, const QColor& color)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    for (const QPointF& at : {QPointF(4, 4), QPointF(9, 2.5), QPointF(13, 6), QPointF(6, 9),
                              QPointF(11.5, 11), QPointF(3, 13), QPointF(8, 14)})
        painter.drawEllipse(at, 1.3, 1.3);
}

void drawCurve(QPainter& painter)
{
    setLine(painter, kGreen, 1.6);
    painter.setBrush(Qt::NoBrush);
    QPainterPath path(QPointF(2, 13));
    path.cubicTo(5, 0, 10, 16, 14, 3);
    painter.drawPath(path);
}

void drawEdge(QPainter& painter)
{
    setLine(painter, kOrange, 1.8);
    painter.drawLine(QPointF(3, 12.5), QPointF(13, 3.5));
}

void drawVertex(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(kOrange);
    painter.drawEllipse(QPointF(8, 8), 2.6, 2.6);
}

void drawFace(QPainter& painter)
{
    QColor pale = kOrange;
    pale.setAlpha(80);
    setLine(painter, kOrange);
    painter.setBrush(pale);
    painter.drawPolygon(QPolygonF({{2, 10.5}, {8, 4}, {14, 7}, {8.5, 13.5}}));
}

/// A dimension between two lines.
void drawDimension(QPainter& painter)
{
    setLine(painter, kViolet, 1.3);
    painter.drawLine(QPointF(2.5, 3), QPointF(2.5, 13));
    painter.drawLine(QPointF(13.5, 3), QPointF(13.5, 13));
    painter.drawLine(QPointF(3.5, 8), QPointF(12.5, 8));
    painter.drawPolyline(QPolygonF({{6, 6}, {3.5, 8}, {6, 10}}));
    painter.drawPolyline(QPolygonF({{10, 6}, {12.5, 8}, {10, 10}}));
}

void drawCamera(QPainter& painter, const QColor& color)
{
    setLine(painter, color);
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(1.5, 4.5, 13, 9), 1.5, 1.5);
    painter.drawEllipse(QPointF(8, 9), 2.6, 2.6);
    painter.drawPolyline(QPolygonF({{5.5, 4.5}, {6.5, 2.5}, {9.5, 2.5}, {10.5, 4.5}}));
}

void drawScene(QPainter& painter)
{
    setLine(painter, kGrey);
    painter.setBrush(Qt::NoBrush);
    painter.drawPolygon(
        QPolygonF({{1.5, 13.5}, {1.5, 3.5}, {6, 3.5}, {7.5, 5.5}, {14.5, 5.5}, {14.5, 13.5}}));
}

void drawPart(QPainter& painter, PartKind part)
{
    if (part == PartKind::Edge)
        drawEdge(painter);
    else if (part == PartKind::Vertex)
        drawVertex(painter);
    else
        drawFace(painter);
}

void drawKind(QPainter& painter, Kind kind, PartKind part)
{
    switch (kind) {
    case Kind::Scene:
        return drawScene(painter);
    case Kind::Container:
        return drawPaper(painter, kGrey);
    case Kind::Body:
        return drawCube(painter, kBlue, 8, 8, 6.5);
    case Kind::Assembly:
        drawCube(painter, kOrange, 5.5, 5.5, 4.2);
        return drawCube(painter, kOrange, 10.5, 10.5, 4.2);
    case Kind::AssemblyReference:
        drawCube(painter, kBlue, 9, 7, 5.5);
        setLine(painter, kGrey, 1.6);
        return painter.drawPolyline(QPolygonF({{2, 9.5}, {2, 14}, {6.5, 14}}));
    case Kind::PolyBody:
        return drawTriangles(painter);
    case Kind::Wire:
        return drawCurve(painter);
    case Kind::PointCloud:
    case Kind::PointSet:
        return drawDots(painter, kGreen);
    case Kind::Geometry:
        return drawPart(painter, part);
    case Kind::Views:
    case Kind::View:
        return drawCamera(painter, kBlue);
    case Kind::Captures:
    case Kind::Capture:
        return drawCamera(painter, kViolet);
    case Kind::PMI:
    case Kind::PMIType:
    case Kind::PMIType10101:
    case Kind::PMIType10102:
    case Kind::PMIType10103:
    case Kind::PMIType10104:
    case Kind::PMIType10105:
    case Kind::FTAGeometry:
        return drawDimension(painter);
    }
}

/// Of the ground behind what is selected, pixels.
constexpr double kCorner = 3.0;

/// Draws one kind at any size.
class KindEngine final : public QIconEngine
{
public:
    KindEngine(Kind kind, PartKind part) : m_kind(kind), m_part(part) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setOpacity(mode == QIcon::Disabled ? 0.4 : 1.0);
        // The colour of what is selected may be that of the lines.
        if (mode == QIcon::Selected) {
            painter->setPen(Qt::NoPen);
            painter->setBrush(QGuiApplication::palette().base());
            painter->drawRoundedRect(rect, kCorner, kCorner);
        }
        const double scale = std::min(rect.width(), rect.height()) / kSide;
        painter->translate(rect.center() + QPointF(0.5, 0.5));
        painter->scale(scale, scale);
        painter->translate(-kSide / 2, -kSide / 2);
        drawKind(*painter, m_kind, m_part);
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new KindEngine(m_kind, m_part); }

private:
    Kind m_kind;
    PartKind m_part;
};

} // namespace

const QIcon& KindIcons::Of(Kind kind, PartKind part)
{
    const std::pair key(kind, part);
    auto found = m_icons.find(key);
    if (found == m_icons.end())
        found = m_icons.emplace(key, QIcon(new KindEngine(kind, part))).first;
    return found->second;
}

} // namespace Pellux
