#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// Shows a line of text in the middle of the box. What is too long for one line goes on in a second one, which can be
// read where one line would have to be tiny; a little smaller, if two lines need it. What is longer still scrolls.
class StatementBox : public TextArea {
public:
    explicit StatementBox(QWidget* parent = nullptr);

    // How large it writes at present, in pixels.
    int WrittenPixelSize() const;

protected:
    void LayOutText() override;

private:
    void setRoomAbove(int pixels);
};

} // namespace numbrela
