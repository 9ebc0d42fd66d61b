#pragma once

#include "common/screen/FreePlace.h"
#include "common/screen/OfferedKeypad.h"

#include <QPointF>

#include <optional>
#include <vector>

class QInputDialog;
class QMenuBar;

namespace numbrela {

// Pixels that stay free between the keypad of a window and the calculation beside it or the box that is written in.
inline constexpr int AroundKeypad = 6;

// The keypad of a window of the program, whose button is at the right end of the menu bar. It stands beside the
// calculation, where the window has room; otherwise it floats over the window in the shape and at the place where it
// covers least, and a hand can drag it. It never lies over the box that is written in. It is there as long as it is
// chosen, some box takes typing and it fits in; who presses the button while no box takes typing gets it too, because
// an input box may be about to open. While an input box is open, the window's own keypad is away: the box has one.
class WindowKeypad : public OfferedKeypad {
public:
    WindowKeypad(FormWindow& window, QMenuBar& menuBar, KeypadKeys keys);

    // To be called after the window has handled an event of its own.
    void FollowWindow(QEvent::Type event);

    // Gives a box with a line to type into a keypad, too.
    void ServeBox(QInputDialog& box);

private:
    // What a place was chosen for. Pixels.
    struct Surroundings {
        QRect Room;
        int KeptBeside = 0;
        std::vector<Obstacle> Covered;

        bool operator==(const Surroundings&) const = default;
    };

    // Where a hand has brought the keypad.
    struct Dragged {
        QPointF Share; // 0 to 1 of what the window leaves free
        std::size_t Shape = 0;
        bool KeepsRoom = false; // the calculation stays aside
    };

    void OnChoice(bool shown) override;
    void placeSwitch();
    void update();
    void ensurePad();
    void place();
    static std::size_t shapeOf(QSize size, const std::vector<QSize>& sizes);
    int roomToKeep(const std::vector<QSize>& sizes) const;
    std::optional<QRect> bestPlace(const std::vector<QSize>& sizes, const std::vector<Obstacle>& others) const;
    void drag(QPoint to);
    void drop();
    std::optional<QRect> freeDraggedPlace(const std::vector<QSize>& sizes) const;
    bool anyBoxTakesTyping() const;
    QRect room() const;
    QRect boxInUse() const;
    QRect placeOf(const QWidget& control) const;
    bool isInSight(const QWidget& control) const;
    std::vector<Obstacle> otherControls() const;

    FormWindow& window_;
    QMenuBar& menuBar_;
    bool wantedAnyway_ = false; // although no box takes typing
    bool servesBox_ = false; // one is open
    Surroundings placedIn_;
    std::optional<Dragged> dragged_;
};

} // namespace numbrela
