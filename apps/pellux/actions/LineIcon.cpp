#include "actions/LineIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <algorithm>
#include <iterator>

namespace Pellux {
namespace {

/// A drawing on a square of 24: M x y begins a line, L x y goes on, Z closes it, C x y r is a
/// circle.
struct Drawing
{
    const char* name;
    const char* path;
};

const Drawing kDrawings[] = {
    {"open", "M 3 19 L 3 5 L 9 5 L 11 8 L 19 8 L 19 11 M 3 19 L 7 11 L 22 11 L 18 19 Z"},
    {"import", "M 4 14 L 4 20 L 20 20 L 20 14 M 12 3 L 12 15 M 7 10 L 12 15 L 17 10"},
    {"save", "M 4 4 L 17 4 L 20 7 L 20 20 L 4 20 Z M 8 4 L 8 9 L 15 9 L 15 4 M 7 20 L 7 13 L 17 13 "
             "L 17 20"},
    {"reload", "M 19 8 L 15 5 L 9 5 L 5 9 L 5 15 L 9 19 L 15 19 L 19 15 M 19 3 L 19 8 L 14 8"},
    {"camera", "M 3 7 L 8 7 L 10 4 L 14 4 L 16 7 L 21 7 L 21 19 L 3 19 Z C 12 13 4"},
    {"copy", "M 8 8 L 20 8 L 20 21 L 8 21 Z M 16 8 L 16 3 L 4 3 L 4 16 L 8 16"},
    {"undo", "M 9 5 L 4 10 L 9 15 M 4 10 L 15 10 L 19 14 L 19 19"},
    {"redo", "M 15 5 L 20 10 L 15 15 M 20 10 L 9 10 L 5 14 L 5 19"},
    {"iso", "M 12 3 L 20 7 L 20 16 L 12 21 L 4 16 L 4 7 Z M 4 7 L 12 11 L 20 7 M 12 11 L 12 21"},
    {"front", "M 4 9 L 15 9 L 15 20 L 4 20 Z M 4 9 L 9 4 L 20 4 L 20 15 L 15 20 M 15 9 L 20 4 M 7 "
              "12 L 12 17 M 12 12 L 7 17"},
    {"right", "M 4 9 L 15 9 L 15 20 L 4 20 Z M 4 9 L 9 4 L 20 4 L 20 15 L 15 20 M 15 9 L 20 4 M 16 "
              "11 L 19 13 M 19 8 L 16 16"},
    {"top", "M 4 9 L 15 9 L 15 20 L 4 20 Z M 4 9 L 9 4 L 20 4 L 20 15 L 15 20 M 15 9 L 20 4 M 9 5 "
            "L 15 8 M 17 5 L 7 8"},
    {"fit", "M 3 8 L 3 3 L 8 3 M 16 3 L 21 3 L 21 8 M 21 16 L 21 21 L 16 21 M 8 21 L 3 21 L 3 16 M "
            "8 8 L 16 8 L 16 16 L 8 16 Z"},
    {"fit-selection", "M 3 8 L 3 3 L 8 3 M 16 3 L 21 3 L 21 8 M 21 16 L 21 21 L 16 21 M 8 21 L 3 "
                      "21 L 3 16 C 12 12 4"},
    {"hide", "M 2 12 L 7 7 L 17 7 L 22 12 L 17 17 L 7 17 Z M 4 20 L 20 4"},
    {"show", "M 2 12 L 7 7 L 17 7 L 22 12 L 17 17 L 7 17 Z C 12 12 3"},
    {"isolate", "C 12 12 4 M 3 3 L 6 6 M 21 3 L 18 6 M 3 21 L 6 18 M 21 21 L 18 18"},
    {"xray", "M 4 4 L 20 4 L 20 20 L 4 20 Z M 4 12 L 20 12 M 12 4 L 12 20 C 12 12 4"},
    {"distance", "M 3 6 L 3 18 M 21 6 L 21 18 M 3 12 L 21 12 M 6 9 L 3 12 L 6 15 M 18 9 L 21 12 L "
                 "18 15"},
    {"angle", "M 20 20 L 3 20 L 17 5 M 12 20 L 12 16 L 10 12"},
    {"clear", "M 5 5 L 19 19 M 19 5 L 5 19"},
    {"help", "C 12 12 9 M 9 9 L 12 6 L 15 9 L 12 12 L 12 14 M 12 17 L 12 18"},
};

QPainterPath pathOf(const char* drawing)
{
    QPainterPath path;
    const QStringList words = QString::fromLatin1(drawing).split(u' ');
    for (qsizetype i = 0; i < words.size();) {
        const QString& word = words[i];
        const auto number = [&words, i](qsizetype offset) { return words[i + offset].toDouble(); };
        if (word == u'Z') {
            path.closeSubpath();
            i += 1;
        } else if (word == u'C') {
            path.addEllipse(QPointF(number(1), number(2)), number(3), number(3));
            i += 4;
        } else {
            const QPointF point(number(1), number(2));
            if (word == u'M')
                path.moveTo(point);
            else
                path.lineTo(point);
            i += 3;
        }
    }
    return path;
}

class LineIconEngine final : public QIconEngine
{
public:
    explicit LineIconEngine(QPainterPath path) : m_path(std::move(path)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const QPalette::ColorGroup group =
            mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 24.0, rect.height() / 24.0);
        QPen pen(palette.color(group, QPalette::WindowText), 1.6);
        pen.setJoinStyle(Qt::RoundJoin);
        pen.setCapStyle(Qt::RoundCap);
        painter->setPen(pen);
        painter->drawPath(m_path);
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

    QIconEngine* clone() const override { return new LineIconEngine(m_path); }

private:
    QPainterPath m_path;
};

} // namespace

QIcon LineIcon(const QString& name)
{
    const auto* const found =
        std::find_if(std::begin(kDrawings), std::end(kDrawings), [&name](const Drawing& drawing) {
            return name == QLatin1String(drawing.name);
        });
    return found == std::end(kDrawings) ? QIcon() : QIcon(new LineIconEngine(pathOf(found->path)));
}

} // namespace Pellux
