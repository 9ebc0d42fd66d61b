#pragma once

#include "common/screen/TwipsLayout.h"

#include <QWidget>

namespace numbrela {

// A place in an area, in twips.
struct TwipsPoint {
    int X = 0;
    int Y = 0;

    bool operator==(const TwipsPoint&) const = default;
};

// A horizontal or vertical rule of a written calculation, between two points of an area.
class Line : public QWidget {
public:
    Line(TwipsLayout& area, const QString& name, TwipsPoint from, TwipsPoint to);

    void SetEnds(TwipsPoint from, TwipsPoint to);
    TwipsPoint From() const { return from_; }
    TwipsPoint To() const { return to_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TwipsLayout& area_;
    TwipsPoint from_;
    TwipsPoint to_;
};

} // namespace numbrela
