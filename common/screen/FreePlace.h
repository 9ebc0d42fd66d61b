#pragma once

#include <QRect>

#include <optional>
#include <vector>

namespace numbrela {

// Something that is better left uncovered, and how much that matters. What is covered in its middle is lost, and counts
// in full once more.
struct Obstacle {
    QRect Place;
    int Weight = 1;

    bool operator==(const Obstacle&) const = default;
};

// Where in a room something of one of these sizes can lie: off `box`, and over as little of the obstacles as possible.
// If that leaves several places, it is the one of the first size, as near with its middle to `favourite` as can be; but
// what is broader than half the room stands as near as can be to the middle between left and right. Nothing where none
// of the sizes fits beside the box.
std::optional<QRect> FreePlace(const QRect& room, const std::vector<QSize>& sizes, QPoint favourite, const QRect& box,
    const std::vector<Obstacle>& obstacles);

// Whether something fits there, in the room and off the box.
bool IsFree(const QRect& place, const QRect& room, const QRect& box);

} // namespace numbrela
