#include "common/screen/Keypad.h"

#include "common/screen/KeypadKey.h"
#include "common/screen/TextBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace numbrela {

// What a key does, looks like and is called, and where it stands.
struct KeyDesign {
    Qt::Key Code;
    QString Text; // that it writes
    KeySign Sign;
    QString SpokenName;
    QRect Cells; // column, row, columns, rows
};

namespace {

KeyDesign digit(int digit, int column, int row)
{
    const QString text = QString::number(digit);
    return { static_cast<Qt::Key>(Qt::Key_0 + digit), text, KeySign::None, text, { column, row, 1, 1 } };
}

// As on a keyboard, and below them what not every window has.
const std::array<KeyDesign, 11> numberKeys { {
    digit(7, 0, 0),
    digit(8, 1, 0),
    digit(9, 2, 0),
    digit(4, 0, 1),
    digit(5, 1, 1),
    digit(6, 2, 1),
    digit(1, 0, 2),
    digit(2, 1, 2),
    digit(3, 2, 2),
    { Qt::Key_Comma, QStringLiteral(","), KeySign::None, QStringLiteral("Coma"), { 0, 3, 1, 1 } },
    digit(0, 1, 3),
} };
const KeyDesign backspace { Qt::Key_Backspace, QStringLiteral("\b"), KeySign::Erase, QStringLiteral("Borrar cifra"),
    { 2, 3, 1, 1 } };
const KeyDesign forwardDelete { Qt::Key_Delete, QStringLiteral("\x7f"), KeySign::None, {}, {} };
const KeyDesign blank { Qt::Key_Space, QStringLiteral(" "), KeySign::Blank, QStringLiteral("Espacio"), { 0, 4, 3, 1 } };
const std::array<KeyDesign, 4> arrows { {
    { Qt::Key_Up, {}, KeySign::Up, QStringLiteral("Flecha arriba"), { 1, 5, 1, 1 } },
    { Qt::Key_Left, {}, KeySign::Left, QStringLiteral("Flecha izquierda"), { 0, 6, 1, 1 } },
    { Qt::Key_Down, {}, KeySign::Down, QStringLiteral("Flecha abajo"), { 1, 6, 1, 1 } },
    { Qt::Key_Right, {}, KeySign::Right, QStringLiteral("Flecha derecha"), { 2, 6, 1, 1 } },
} };

// In pixels, for keys of a size.
int gapBetween(int key)
{
    return std::max(4, key / 9);
}

int gripFor(int key)
{
    return key * 2 / 5;
}

constexpr QColor edge(0x6d, 0x84, 0x9c);

// Where a hand takes the keypad to drag it: two lines at its upper edge.
class Grip : public QWidget {
public:
    Grip(std::function<void(QPoint place)> drag, QWidget* keypad)
        : QWidget(keypad)
        , drag_(std::move(drag))
    {
        setCursor(Qt::SizeAllCursor);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(edge, 2, Qt::SolidLine, Qt::RoundCap));
        const int half = width() / 8;
        for (const int y : { height() / 2 - 3, height() / 2 + 3 }) {
            painter.drawLine(width() / 2 - half, y, width() / 2 + half, y);
        }
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        held_ = event->pos();
        dragging_ = false;
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        const QPoint way = event->pos() - held_;
        dragging_ = dragging_ || way.manhattanLength() >= QApplication::startDragDistance();
        if (dragging_) {
            drag_(parentWidget()->mapToParent(way));
        }
    }

private:
    std::function<void(QPoint place)> drag_;
    QPoint held_; // where the hand holds the keypad
    bool dragging_ = false;
};

} // namespace

Keypad::Keypad(KeypadKeys keys, QWidget* parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("Teclado"));
    setAccessibleName(QStringLiteral("Teclado en pantalla"));
    setAttribute(Qt::WA_NoMousePropagation); // what misses the keys must not reach the window below
    for (const KeyDesign& design : numberKeys) {
        add(design);
    }
    add(backspace);
    if (keys.Blank) {
        add(blank);
    }
    if (keys.Arrows) {
        for (const KeyDesign& design : arrows) {
            add(design);
        }
    }
}

void Keypad::LetGo()
{
    for (const Placed& each : keys_) {
        each.Key->LetGo();
    }
}

// Keys that are held come up while there still is a keypad to send their releases.
Keypad::~Keypad()
{
    hide();
}

bool Keypad::IsHeld() const
{
    return std::any_of(keys_.begin(), keys_.end(), [](const Placed& each) { return each.Key->IsHeld(); });
}

int Keypad::KeySizeIn(int windowHeight)
{
    constexpr int leastPixels = 48;
    constexpr int keysInAHeight = 15;
    return std::max(leastPixels, (windowHeight + keysInAHeight - 1) / keysInAHeight);
}

void Keypad::SetKeySize(int pixels)
{
    constexpr double writing = 0.5; // of the height of a key
    const int gap = gapBetween(pixels);
    const int pitch = pixels + gap;
    const int half = gap / 2;
    const QMargins aroundKey(half, half, gap - half, gap - half);
    const int top = grip_ != nullptr ? gripFor(pixels) : gap;
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(static_cast<int>(pixels * writing));
    QRect cells;
    for (const Placed& each : keys_) {
        const QRect& at = each.Cells;
        each.Key->setFont(font);
        each.Key->setContentsMargins(aroundKey);
        each.Key->setGeometry(
            gap - half + at.x() * pitch, top - half + at.y() * pitch, at.width() * pitch, at.height() * pitch);
        cells |= at;
    }
    setFixedSize(gap + cells.width() * pitch, top + cells.height() * pitch);
    if (grip_ != nullptr) {
        grip_->setGeometry(0, 0, width(), top);
        grip_->lower(); // its last pixels belong to the keys
    }
}

void Keypad::LetDrag(std::function<void(QPoint place)> drag)
{
    grip_ = new Grip(std::move(drag), this);
}

void Keypad::add(const KeyDesign& design)
{
    const bool writesItsName = design.Sign == KeySign::None;
    auto* key = new KeypadKey(writesItsName ? design.Text : QString(), design.Sign, design.SpokenName, this);
    key->setObjectName(QStringLiteral("Tecla(%1)").arg(design.SpokenName));
    if (design.Sign == KeySign::Erase) {
        key->OnDown = [this](bool repeated) {
            if (repeated) {
                send(QEvent::KeyPress, *erasingBy_, true);
            } else {
                erase();
            }
        };
        key->OnUp = [this] { comeUp(*erasingBy_); };
    } else {
        key->OnDown = [this, &design](bool repeated) { send(QEvent::KeyPress, design, repeated); };
        key->OnUp = [this, &design] { comeUp(design); };
    }
    keys_.push_back({ key, design.Cells });
}

void Keypad::comeUp(const KeyDesign& design) const
{
    send(QEvent::KeyRelease, design);
    if (OnLetGo && !IsHeld()) {
        OnLetGo();
    }
}

// Where a result is written from its last digit to its first, the caret is before the digit that was written last.
// Backspace finds nothing to erase there, so Delete does it.
void Keypad::erase()
{
    const auto* box = qobject_cast<const TextBox*>(window()->focusWidget());
    const QString before = box != nullptr ? box->text() : QString();
    erasingBy_ = &backspace;
    send(QEvent::KeyPress, backspace);
    if (box != nullptr && box == window()->focusWidget() && box->IsWrittenFromTheRight() && box->text() == before
        && box->CaretPosition() == 0) {
        send(QEvent::KeyRelease, backspace);
        erasingBy_ = &forwardDelete;
        send(QEvent::KeyPress, forwardDelete);
    }
}

// Where a platform's own keys arrive, so that everything that looks at keys on their way sees these, too. A disabled
// keypad only lets go of the keys that are held: its window is blocked, and passes nothing on to the control.
void Keypad::send(QEvent::Type type, const KeyDesign& design, bool repeated) const
{
    if (QWindow* window = this->window()->windowHandle()) {
        QKeyEvent event(type, design.Code, Qt::NoModifier, design.Text, repeated);
        QCoreApplication::sendEvent(window, &event);
        if (QWidget* control = this->window()->focusWidget(); control != nullptr && !isEnabled()) {
            QCoreApplication::sendEvent(control, &event);
        }
    }
}

// ---------------------------------------------------------------------------------------------------------- the ground

void Keypad::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double radius = 8; // pixels
    constexpr QColor ground(0xb9, 0xc9, 0xda);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace numbrela
