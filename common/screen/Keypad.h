#pragma once

#include <QEvent>
#include <QFrame>

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

namespace numbrela {

class KeypadKey;
struct KeyDesign;

// All keypads have the digits, the comma and the key that erases.
enum class KeypadKeys { Numbers, WithBlank, WithBlankAndArrows };

// What assistive tools call a keypad and the button that shows it.
inline const QString KeypadName = QStringLiteral("Teclado en pantalla");

// How the keys stand: in each row a character for every cell, which is that of the key there, or a blank.
using KeypadShape = std::vector<std::string_view>;

// A keypad on the screen, for those who have no keyboard at hand: its keys go down and up in whatever has the focus in
// its window, as those of a keyboard do. It has no key that has an answer checked; there is a button for that. When it
// is shown, and where, is up to its window.
class Keypad : public QFrame {
    Q_OBJECT

public:
    Keypad(KeypadKeys keys, QWidget* parent);

    // Whether a key is held, and what is called when none is any more.
    bool IsHeld() const;
    std::function<void()> OnAllUp;

    // The size of a key, in pixels, that a finger meets in a window of this height.
    static int KeySizeIn(int windowHeight);

    // The keypad has several shapes, first a tall one as on a keyboard, then ever flatter ones. Their sizes with keys
    // that look as large as this, in pixels, and reach to the middle of the gaps around them; and taking one of them.
    std::vector<QSize> SizesWith(int keySize) const;
    void TakeShape(std::size_t shape, int keySize);

    // Gives the keypad a grip; `drag` is called with the place, in the parent, to which a hand wants to bring it, and
    // `drop` when the hand lets go.
    void LetDrag(std::function<void(QPoint place)> drag, std::function<void()> drop);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Made {
        KeypadKey* Key;
        const KeyDesign& Design;
    };

    void add(const KeyDesign& design);
    void send(QEvent::Type type, const KeyDesign& design, bool repeated = false) const;
    void erase(const KeyDesign& backspace);
    void comeUp(const KeyDesign& design) const;
    int topOf(const KeypadShape& shape, int keySize) const;

    const std::vector<KeypadShape>& shapes_;
    std::vector<Made> keys_;
    QWidget* grip_ = nullptr;
    const KeyDesign* erasingBy_ = nullptr; // the key that the one that erases stands for while it is held
};

} // namespace numbrela
