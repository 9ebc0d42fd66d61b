#include "common/screen/FirstFinger.h"

#include <QTouchEvent>

#include <algorithm>

namespace numbrela {

const QEventPoint* FirstFinger::PointIn(const QTouchEvent& event)
{
    const QList<QEventPoint>& points = event.points();
    if (event.type() == QEvent::TouchBegin) {
        id_ = points.front().id();
    }
    const auto point
        = std::find_if(points.begin(), points.end(), [this](const QEventPoint& each) { return each.id() == id_; });
    if (point == points.end()) {
        return nullptr;
    }
    if (point->state() == QEventPoint::Released) {
        Forget();
    }
    return &*point;
}

} // namespace numbrela
