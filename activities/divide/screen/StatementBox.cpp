#include "activities/divide/screen/StatementBox.h"

#include <QTextDocument>
#include <QTextFrame>

#include <algorithm>
#include <cmath>

namespace numbrela {

StatementBox::StatementBox(QWidget* parent)
    : TextArea(parent)
{
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(0);
    QTextOption centred = document()->defaultTextOption();
    centred.setAlignment(Qt::AlignHCenter);
    document()->setDefaultTextOption(centred);
}

int StatementBox::WrittenPixelSize() const
{
    return document()->defaultFont().pixelSize();
}

// The font of the box stays what its window gave it: only that of the text in it changes.
void StatementBox::LayOutText()
{
    constexpr double smallestShare = 0.85; // 11 pixels of 13
    const int smallest = static_cast<int>(std::lround(font().pixelSize() * smallestShare));
    const auto height = [this] { return static_cast<int>(std::ceil(document()->size().height())); };
    const int room = viewport()->height();
    setRoomAbove(0);
    QFont fitted = font();
    document()->setDefaultFont(fitted);
    while (fitted.pixelSize() > smallest && height() > room) {
        fitted.setPixelSize(fitted.pixelSize() - 1);
        document()->setDefaultFont(fitted);
    }
    setRoomAbove(std::max(room - height(), 0) / 2);
}

void StatementBox::setRoomAbove(int pixels)
{
    QTextFrameFormat place = document()->rootFrame()->frameFormat();
    place.setTopMargin(pixels);
    document()->rootFrame()->setFrameFormat(place);
}

} // namespace numbrela
