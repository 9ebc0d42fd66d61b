#pragma once

#include <QColor>

#include <optional>

class QWidget;

namespace numbrela {

// The colours of a text box: they show whether it takes typing and, for a verdict, whether it is a right one. Text and
// background are always set together. The text and its highlight are up to the box.
class BoxColours {
public:
    explicit BoxColours(QWidget& box)
        : box_(box)
    {
    }

    // A box that takes typing is white, any other one pale grey.
    void SetTakesTyping(bool takesTyping);
    bool TakesTyping() const { return takesTyping_; }

    // A right verdict is on green, a wrong one on red, in addition to its words: the highlight has that colour if the
    // verdict is highlighted, otherwise the background.
    void ShowVerdict(bool right);
    void ShowNoVerdict();
    void SetHighlighted(bool highlighted);

private:
    void apply();

    QWidget& box_;
    bool takesTyping_ = true;
    bool highlighted_ = false;
    std::optional<QColor> verdict_;
};

} // namespace numbrela
