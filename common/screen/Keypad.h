#pragma once

#include <QEvent>
#include <QFrame>

#include <functional>
#include <vector>

namespace numbrela {

class KeypadKey;
struct KeyDesign;

// What a keypad has besides the digits, the comma and the key that erases.
struct KeypadKeys {
    bool Blank = false;
    bool Arrows = false;
};

// A keypad on the screen, for those who have no keyboard at hand: its keys go down and up in whatever has the focus in
// its window, as those of a keyboard do. It has no key that has an answer checked; there is a button for that. When it
// is shown, and where, is up to its window.
class Keypad : public QFrame {
public:
    Keypad(KeypadKeys keys, QWidget* parent);
    ~Keypad() override;

    // Lets every key that is held come up.
    void LetGo();

    // Whether a key is held, and what is called when none is any more.
    bool IsHeld() const;
    std::function<void()> OnLetGo;

    // The size of a key, in pixels, that a finger meets in a window of this height.
    static int KeySizeIn(int windowHeight);

    // Makes each key look as large as this, reach to the middle of the gaps around it, and the keypad large enough for
    // all of them.
    void SetKeySize(int pixels);

    // Gives the keypad a grip; `drag` is called with the place, in the parent, to which a hand wants to bring it.
    void LetDrag(std::function<void(QPoint place)> drag);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Placed {
        KeypadKey* Key;
        QRect Cells;
    };

    void add(const KeyDesign& design);
    void send(QEvent::Type type, const KeyDesign& design, bool repeated = false) const;
    void erase();
    void comeUp(const KeyDesign& design) const;

    std::vector<Placed> keys_;
    QWidget* grip_ = nullptr;
    const KeyDesign* erasingBy_ = nullptr; // the key that the one that erases stands for while it is held
};

} // namespace numbrela
