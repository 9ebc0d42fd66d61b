#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// Shows a line of text in the middle of the box. A text too long for one line gets a second one, a little smaller if
// necessary, because a single line would be too small to read. A longer text scrolls.
class StatementBox : public TextArea {
public:
    explicit StatementBox(QWidget* parent = nullptr);

    // The present size of the writing, in pixels.
    int WrittenPixelSize() const;

protected:
    void LayOutText() override;

private:
    void setRoomAbove(int pixels);
};

} // namespace numbrela
