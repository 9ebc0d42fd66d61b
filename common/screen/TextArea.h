#pragma once

#include "common/core/Verdict.h"
#include "common/screen/BoxColours.h"
#include "common/screen/FingerScroll.h"

#include <QTextEdit>

#include <string>

namespace numbrela {

// A read-only text box of several lines, in the colours of one. A highlight stays, whatever has the focus. A finger
// or a pen scrolls it, and taps as a mouse clicks; only a mouse and keys make a highlight, which nobody drags away.
class TextArea : public QTextEdit {
public:
    explicit TextArea(QWidget* parent = nullptr);

    // The text as UTF-8, lines separated by "\n". Writing it removes any selection.
    std::string Text() const { return toPlainText().toStdString(); }
    void SetText(const std::string& text);

    // Writes and announces a verdict, which keeps its colour until another text is written.
    void ShowVerdict(const Verdict& verdict);

    // Highlights the whole text, scrolled to its beginning.
    void SelectWholeText();

protected:
    // Lays the text out whenever it, the room for it or the font of the box has changed.
    virtual void LayOutText() { }

    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    BoxColours colours_ { *this };
    FingerScroll finger_;
};

} // namespace numbrela
