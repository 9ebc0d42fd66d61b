#pragma once

#include <QRect>

#include <optional>
#include <vector>

namespace numbrela {

// What it is a pity to cover, and how much. One whose middle is covered counts twice: there a hand would press it.
struct Obstacle {
    QRect Place;
    int Weight = 1;
};

// Where in a room something of a size can lie: off `box`, and over as little of the obstacles as possible; of several
// such places the one nearest to the middle of the right edge. Nothing where it does not fit beside the box.
std::optional<QPoint> FreePlace(
    const QRect& room, QSize size, const QRect& box, const std::vector<Obstacle>& obstacles);

// Whether something fits there, in the room and off the box.
bool IsFree(const QRect& place, const QRect& room, const QRect& box);

} // namespace numbrela
