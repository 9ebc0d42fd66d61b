#pragma once

#include <QColor>

#include <optional>

class QWidget;

namespace numbrela {

// Tells by the colours of a text box who may write in it, and of a verdict in it whether it is a right one. Text and
// ground are always coloured together. What stands in the box, and which of it is highlighted, is the box's.
class BoxColours {
public:
    explicit BoxColours(QWidget& box)
        : box_(box)
    {
    }

    // A box that takes typing is white, any other one pale grey.
    void SetTakesTyping(bool takesTyping);

    // A right verdict stands on green, a wrong one on red, whatever the box says in words: on the highlight where it is
    // highlighted, elsewhere on the ground.
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
