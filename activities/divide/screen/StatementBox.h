#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// Shows a line of text in the middle of the box. What is too long for one line goes on in a second one, which can be
// read where one line would have to be tiny; a little smaller, if two lines need it. What is longer still scrolls.
class StatementBox : public TextArea {
public:
    explicit StatementBox(QWidget* parent = nullptr);

    void SetText(const std::string& text);

    // How large it writes at present, in pixels.
    int WrittenPixelSize() const;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fitText();
    void setRoomAbove(int pixels);
};

} // namespace numbrela
