#pragma once

#include <QBasicTimer>
#include <QPushButton>

#include <functional>

namespace numbrela {

// The sign of a key that writes no character.
enum class KeySign { None, Blank, Erase, Left, Up, Right, Down };

// A key of the keypad on the screen. It goes down under the mouse, the pen or a finger and up again, several of them at
// a time, repeats itself while it is held as a keyboard's does, and never takes the focus. Whoever slides off it has
// let go of it. What it does is up to the keypad.
class KeypadKey : public QPushButton {
public:
    KeypadKey(const QString& caption, KeySign sign, const QString& spokenName, QWidget* parent);

    // Lets the key come up if it is held.
    void LetGo() { hold(false); }

    bool IsHeld() const { return isHeld_; }

    // Called when the key goes down, or repeats itself, and when it comes up.
    std::function<void(bool repeated)> OnDown;
    std::function<void()> OnUp;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void hold(bool held);
    bool losesItsRelease(const QObject& watched, const QEvent& event) const;
    void paintCaption(QPainter& painter) const;
    void paintSign(QPainter& painter) const;

    KeySign sign_;
    QBasicTimer repeating_;
    bool isHeld_ = false;
};

} // namespace numbrela
