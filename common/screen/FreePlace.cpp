#include "common/screen/FreePlace.h"

#include <algorithm>
#include <utility>

namespace numbrela {

namespace {

long areaOf(const QRect& rect)
{
    return rect.isEmpty() ? 0 : static_cast<long>(rect.width()) * rect.height();
}

// From one edge to the other in even steps that a hand would not tell apart, both ends among them.
std::vector<int> stepsBetween(int first, int last)
{
    constexpr int most = 40;
    const int count = std::clamp(last - first, 0, most);
    std::vector<int> steps { first };
    for (int step = 1; step <= count; ++step) {
        steps.push_back(first + (last - first) * step / count);
    }
    return steps;
}

// What is just beside the box is among the places, too: a step could leave it out.
void addBesideBox(std::vector<int>& steps, int before, int after, int first, int last)
{
    for (const int place : { before, after }) {
        if (place >= first && place <= last) {
            steps.push_back(place);
        }
    }
}

} // namespace

std::optional<QPoint> FreePlace(const QRect& room, QSize size, const QRect& box, const std::vector<Obstacle>& obstacles)
{
    const QPoint last(room.x() + room.width() - size.width(), room.y() + room.height() - size.height());
    if (last.x() < room.x() || last.y() < room.y()) {
        return std::nullopt;
    }
    std::vector<int> columns = stepsBetween(room.x(), last.x());
    std::vector<int> rows = stepsBetween(room.y(), last.y());
    addBesideBox(columns, box.x() - size.width(), box.x() + box.width(), room.x(), last.x());
    addBesideBox(rows, box.y() - size.height(), box.y() + box.height(), room.y(), last.y());

    const QPoint favourite(last.x(), (room.y() + last.y()) / 2);
    std::optional<QPoint> best;
    std::pair<long, int> least;
    for (const int x : columns) {
        for (const int y : rows) {
            const QRect place(QPoint(x, y), size);
            if (place.intersects(box)) {
                continue;
            }
            long covered = 0;
            for (const Obstacle& obstacle : obstacles) {
                const long lost = place.contains(obstacle.Place.center()) ? areaOf(obstacle.Place) : 0;
                covered += (areaOf(place & obstacle.Place) + lost) * obstacle.Weight;
            }
            const std::pair cost(covered, (QPoint(x, y) - favourite).manhattanLength());
            if (!best || cost < least) {
                best = place.topLeft();
                least = cost;
            }
        }
    }
    return best;
}

bool IsFree(const QRect& place, const QRect& room, const QRect& box)
{
    return room.contains(place) && !place.intersects(box);
}

} // namespace numbrela
