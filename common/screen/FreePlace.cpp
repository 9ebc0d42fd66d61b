#include "common/screen/FreePlace.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <tuple>

namespace numbrela {

namespace {

std::int64_t areaOf(const QRect& rect)
{
    return rect.isEmpty() ? 0 : static_cast<std::int64_t>(rect.width()) * rect.height();
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

// What a step could leave out is among the places, too: just beside the box, and the favourite.
std::vector<int> placesBetween(int first, int last, std::initializer_list<int> others)
{
    std::vector<int> places = stepsBetween(first, last);
    std::copy_if(others.begin(), others.end(), std::back_inserter(places),
        [=](int place) { return place >= first && place <= last; });
    return places;
}

std::vector<QRect> placesOff(const QRect& box, const QRect& room, QSize size, QPoint wanted)
{
    const QPoint first = room.topLeft();
    const QPoint last = room.bottomRight() - QRect({}, size).bottomRight();
    std::vector<QRect> places;
    if (first.x() > last.x() || first.y() > last.y()) {
        return places;
    }
    const int x0 = std::clamp(wanted.x(), first.x(), last.x());
    const int y0 = std::clamp(wanted.y(), first.y(), last.y());
    for (const int x : placesBetween(first.x(), last.x(), { x0, box.x() - size.width(), box.right() + 1 })) {
        for (const int y : placesBetween(first.y(), last.y(), { y0, box.y() - size.height(), box.bottom() + 1 })) {
            if (const QRect place(QPoint(x, y), size); !place.intersects(box)) {
                places.push_back(place);
            }
        }
    }
    return places;
}

// The middle of something, half as wide and half as high: what is written there, and where a hand would press it.
QRect middleOf(const QRect& rect)
{
    const int x = rect.width() / 4;
    const int y = rect.height() / 4;
    return rect.adjusted(x, y, -x, -y);
}

std::int64_t coveredBy(const QRect& place, const std::vector<Obstacle>& obstacles)
{
    std::int64_t covered = 0;
    for (const Obstacle& obstacle : obstacles) {
        const bool isLost = place.intersects(middleOf(obstacle.Place));
        covered += (areaOf(place & obstacle.Place) + (isLost ? areaOf(obstacle.Place) : 0)) * obstacle.Weight;
    }
    return covered;
}

} // namespace

std::optional<QRect> FreePlace(const QRect& room, const std::vector<QSize>& sizes, QPoint favourite, const QRect& box,
    const std::vector<Obstacle>& obstacles)
{
    std::optional<QRect> best;
    std::tuple<std::int64_t, std::size_t, int> least;
    for (std::size_t size = 0; size < sizes.size(); ++size) {
        const bool isBroad = 2 * sizes[size].width() > room.width();
        const QPoint middle(isBroad ? room.center().x() : favourite.x(), favourite.y());
        const QPoint wanted = middle - QRect({}, sizes[size]).center();
        for (const QRect& place : placesOff(box, room, sizes[size], wanted)) {
            const std::tuple cost(coveredBy(place, obstacles), size, (place.topLeft() - wanted).manhattanLength());
            if (!best || cost < least) {
                best = place;
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
