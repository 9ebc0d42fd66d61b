#include "common/screen/Line.h"

#include <QPainter>

namespace numbrela {

Line::Line(TwipsLayout& area, const QString& name, TwipsPoint from, TwipsPoint to)
    : QWidget(area.parentWidget())
    , area_(area)
{
    setObjectName(name);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    SetEnds(from, to);
}

void Line::SetEnds(TwipsPoint from, TwipsPoint to)
{
    constexpr int thickness = 30;
    from_ = from;
    to_ = to;
    area_.Place(
        this, { from.X - thickness / 2, from.Y - thickness / 2, to.X - from.X + thickness, to.Y - from.Y + thickness });
}

void Line::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).fillRect(rect(), palette().windowText());
}

} // namespace numbrela
